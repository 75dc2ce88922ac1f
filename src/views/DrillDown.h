// Drill-down: which records stand behind a figure, as the request that the host is asked with.
#pragma once

#include <optional>
#include <string>

#include "model/cDLVController.h"
#include "views/ViewerForm.h"
#include "webdata/DLVParams.h"

namespace dlv {

class DrillDown {
public:
    DrillDown(const ViewerForm& form, const cDLVController& controller)
        : form_(form), controller_(controller) {}

    /// Notes the button of a mouse event on a grid; 1 is the left one.
    void NoteButton(int button) { lastButton_ = button; }

    /// The request for a double-click on a grid with the mouse over that cell; nothing where the
    /// click means none. `summed` are the units that the summary shows.
    std::optional<DLVParams> ForCell(int index, int mouseRow, int mouseColumn,
                                     const Dictionary& summed) const;
    /// The request for the technicians of the summary's units.
    DLVParams ForTechnicians(const Dictionary& summed) const;

private:
    std::optional<DLVParams> ForSummaryCell(int mouseRow, const Dictionary& summed) const;
    std::optional<DLVParams> ForHierarchyCell(const OutlineGrid& grid, int mouseRow) const;
    DLVParams Request(const char* info) const;

    const ViewerForm& form_;
    const cDLVController& controller_;
    int lastButton_ = 0;
};

}  // namespace dlv
