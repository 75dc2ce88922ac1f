#include "profiles/frmNewProfile.h"

#include "base/Text.h"
#include "widgets/AccessKeys.h"

namespace dlv {

namespace {

constexpr std::string_view kForbidden = "/\\:*?<>\"|&',";
constexpr int kTickMilliseconds = 100;

}  // namespace

frmNewProfile::frmNewProfile(Outside& outside, const CaptionCatalogue& captions)
    : ModalForm("frmNewProfile"), outside_(outside), captions_(captions) {
    SetSize(Pixels(360), Pixels(120));
    Place(lblIntro, {Pixels(14), Pixels(12), Pixels(332), Pixels(32)});
    Place(txtName, {Pixels(14), Pixels(46), Pixels(332), Pixels(24)});
    Place(cmdOK, {Pixels(172), Pixels(82), Pixels(82), Pixels(26)});
    Place(cmdCancel, {Pixels(264), Pixels(82), Pixels(82), Pixels(26)});
    Place(Timer1, {});
    Timer1.SetInterval(kTickMilliseconds);
    cmdOK.MakeDefault();
    cmdCancel.MakeCancel();
}

bool frmNewProfile::GetNewProfile(std::string& name, CaptionKey prompt, CaptionKey title, ModalOwner& owner) {
    SetCaption(captions_.Caption(title));
    lblIntro.SetCaption(captions_.Caption(prompt));
    cmdOK.SetCaption(captions_.Caption("OK"));
    cmdCancel.SetCaption(captions_.Caption("Cancel"));
    GiveAccessKeys({&lblIntro});
    txtName.SetText("");
    Tick();
    const ModalOwner::Scope scope(owner);
    outside_.ShowModal(*this);
    if (accepted_ && !Trim(txtName.Text()).empty()) name = Trim(txtName.Text());
    return accepted_;
}

void frmNewProfile::Click(Button& button) {
    if (&button == &cmdOK)
        cmdOK_Click();
    else
        Unload();
}

void frmNewProfile::cmdOK_Click() {
    const std::string& text = txtName.Text();
    if (Trim(text).empty() || text.find_first_of(kForbidden) != std::string::npos) {
        outside_.ShowMessageBox({captions_.Caption("EnterValidProfile"), Caption()});
        return;
    }
    accepted_ = true;
    Unload();
}

void frmNewProfile::GotFocus(Control& control) {
    if (&control == &txtName) txtName.Select(0, ToUtf16(txtName.Text()).size());
}

void frmNewProfile::Tick() { cmdOK.SetEnabled(!txtName.Text().empty()); }

}  // namespace dlv
