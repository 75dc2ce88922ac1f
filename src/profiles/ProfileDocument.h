// The content of a profile, and the operations that move settings between the view and the current
// profile: which units are chosen, the unit option, the display option, the collapsed nodes.
#pragma once

#include <memory>

#include "model/cDLVController.h"
#include "profiles/ProfileState.h"
#include "ui/Outside.h"
#include "views/CollapsedNodes.h"
#include "views/HierarchyView.h"
#include "views/ViewerForm.h"

namespace dlv {

class ProfileDocument {
public:
    ProfileDocument(ProfileState& state, ViewerForm& form, const cDLVController& controller,
                    CollapsedNodes& collapsed, const HierarchyView& hierarchy, Outside& outside,
                    const Trap& trap)
        : state_(state),
          form_(form),
          controller_(controller),
          collapsed_(collapsed),
          hierarchy_(hierarchy),
          outside_(outside),
          trap_(trap) {}

    enum class Extent { StructureOnly, WithSettings };

    /// Writes the view's settings into the current profile, unless only its structure counts, and
    /// sends the whole set to the host.
    void UpdateCurrentProfile(Extent extent);
    /// Applies the current profile to the view; without settings in it the default view.
    void LoadProfileSettings();
    /// Makes sure that the current profile has both sections, and stores it when one was added.
    void InitProfileSettings();

    /// Gives a profile both sections, filled from the view.
    void WriteSettings(QZWebProfile& profile);

private:
    void WriteSelection(QZWebSectionRow& row) const;
    void SaveNodes(QZWebSection& nodes);
    void ShowDefaultView();
    void SelectUnits(const std::string& list);
    void SelectDisplay(int index);

    ProfileState& state_;
    ViewerForm& form_;
    const cDLVController& controller_;
    CollapsedNodes& collapsed_;
    const HierarchyView& hierarchy_;
    Outside& outside_;
    const Trap& trap_;
};

}  // namespace dlv
