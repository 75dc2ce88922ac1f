// The dialog that lists the profiles and lets the user choose, create or remove one. What the user
// decided is told through its three events.
#pragma once

#include <functional>

#include "base/Dictionary.h"
#include "ui/CaptionCatalogue.h"
#include "ui/ModalOwner.h"
#include "ui/Outside.h"

namespace dlv {

class frmProfiles : public ModalForm {
public:
    struct Events {
        std::function<void(const std::string& name)> AddProfile;
        std::function<void(const std::string& name)> RemoveProfile;
        std::function<void(const std::string& name)> ChooseProfile;
    };

    frmProfiles(Outside& outside, const CaptionCatalogue& captions, Events events);

    /// Returns when the dialog has closed.
    void GetProfile(const Dictionary& names, const std::string& currentName, ModalOwner& owner);

    void Click(Button& button) override;
    void Tick() override;

    ListBox lstProfiles{"lstProfiles"};
    Button cmdChoose{"cmdChoose"};
    Button cmdNew{"cmdNew"};
    Button cmdRemove{"cmdRemove"};
    Button cmdClose{"cmdClose"};
    Timer Timer1{"Timer1"};

private:
    void FillList();
    void cmdChoose_Click();
    void cmdNew_Click();
    void cmdRemove_Click();
    /// The selected name; nothing where none is selected or it is no longer among the names.
    const std::string* SelectedName() const;

    Outside& outside_;
    const CaptionCatalogue& captions_;
    Events events_;
    Dictionary names_{KeyCompare::IgnoreCase};
    std::string currentName_;
    ModalOwner* owner_ = nullptr;
};

}  // namespace dlv
