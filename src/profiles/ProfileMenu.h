// The profile menu: choose a profile, save the current one, save it under another name, manage them.
#pragma once

#include <string>
#include <vector>

#include "profiles/ProfileExchange.h"
#include "ui/CaptionCatalogue.h"
#include "ui/ModalOwner.h"

namespace dlv {

class ProfileMenu {
public:
    ProfileMenu(ProfileState& state, ViewerForm& form, ProfileDocument& document, ProfileExchange& exchange,
                const CaptionCatalogue& captions, ModalOwner& owner, Outside& outside, const Trap& trap)
        : state_(state),
          form_(form),
          document_(document),
          exchange_(exchange),
          captions_(captions),
          owner_(owner),
          outside_(outside),
          trap_(trap) {}

    /// Builds the items of the profiles; the current one gets the check mark. Without any names the
    /// first item stays as it was.
    void ConfigureProfileMenu();

    void mnuProfile_Click(int index);
    void mnuSaveProfile_Click();
    void mnuSaveProfileAs_Click();
    void mnuManage_Click();

    /// The manage-profiles dialog over the control.
    void ManageProfiles();

private:
    std::vector<std::string> SortProfiles() const;

    ProfileState& state_;
    ViewerForm& form_;
    ProfileDocument& document_;
    ProfileExchange& exchange_;
    const CaptionCatalogue& captions_;
    ModalOwner& owner_;
    Outside& outside_;
    const Trap& trap_;
};

}  // namespace dlv
