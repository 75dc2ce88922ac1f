// The memory of collapsed nodes: across a refill of a grid, and in a profile's "CollapsedNodes"
// section. A node is known by the row data of its row, so the memory survives rows moving; the
// summary's grand total goes by the key "TOTAL".
#pragma once

#include <memory>
#include <string>

#include "base/Dictionary.h"
#include "base/Trap.h"
#include "views/ViewerForm.h"
#include "webdata/QZWebProfile.h"

namespace dlv {

class CollapsedNodes {
public:
    /// `profile` is the control's current profile, which may be nothing.
    CollapsedNodes(ViewerForm& form, const std::shared_ptr<QZWebProfile>& profile, const Trap& trap)
        : form_(form), profile_(profile), trap_(trap) {}

    /// `index` is the grid: 0 the summary, 1 and 2 the hierarchies.
    Dictionary SaveCollapsedList(int index);
    void RestoreCollapsedList(int index, const Dictionary& list);
    void ExpandNodes(int index);
    /// Writes the grid's collapsed nodes into row `index` + 1 of the section.
    void SaveNodesToProfile(QZWebSection& nodes, const std::string& id, int index);
    /// Applies the row of that id of the current profile; all nodes are open when it has none.
    void RestoreNodes(const std::string& id, int index);

private:
    void SetCollapsedNodes(int index, const std::string& list);

    ViewerForm& form_;
    const std::shared_ptr<QZWebProfile>& profile_;
    const Trap& trap_;
};

}  // namespace dlv
