// Why a figure in a grid is what it is, in the user's words: which units it sums, by which rule a rate is
// made, and why a row is empty or a figure 0. Nothing is kept for it in the cells, and an answer looks at a
// few rows only.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "model/cDLVController.h"
#include "ui/CaptionCatalogue.h"
#include "views/ViewerForm.h"

namespace dlv {

class HierarchyView;
class SummaryView;

/// So many units are named; of further ones it is said how many there are.
inline constexpr std::size_t kNamedUnits = 5;

class FigureReasons {
public:
    FigureReasons(const ViewerForm& form, const cDLVController& controller, const CaptionCatalogue& captions,
                  const SummaryView& summary, const HierarchyView& hierarchy)
        : form_(form),
          controller_(controller),
          captions_(captions),
          summary_(summary),
          hierarchy_(hierarchy) {}

    /// For a cell of the grid of that index; empty for a name, a heading and where there are no figures yet.
    std::string For(int index, int row, int column) const;

private:
    std::string ForSummary(int row, int column) const;
    std::string ForHierarchy(int index, int row, int column) const;
    std::string Rate(const OutlineGrid& grid, int row) const;
    std::string Sum(std::size_t count, const std::vector<std::string>& firstIds) const;
    std::vector<std::string> FirstUnitsBelow(int row) const;

    const ViewerForm& form_;
    const cDLVController& controller_;
    const CaptionCatalogue& captions_;
    const SummaryView& summary_;
    const HierarchyView& hierarchy_;
};

}  // namespace dlv
