#include "profiles/frmProfiles.h"

#include <algorithm>

#include "profiles/frmNewProfile.h"
#include "widgets/AccessKeys.h"

namespace dlv {

namespace {

constexpr int kTickMilliseconds = 100;

}  // namespace

frmProfiles::frmProfiles(Outside& outside, const CaptionCatalogue& captions, Events events)
    : ModalForm("frmProfiles"), outside_(outside), captions_(captions), events_(std::move(events)) {
    SetSize(Pixels(380), Pixels(232));
    Place(lstProfiles, {Pixels(14), Pixels(14), Pixels(250), Pixels(204)});
    Place(cmdChoose, {Pixels(278), Pixels(14), Pixels(88), Pixels(26)});
    Place(cmdNew, {Pixels(278), Pixels(46), Pixels(88), Pixels(26)});
    Place(cmdRemove, {Pixels(278), Pixels(78), Pixels(88), Pixels(26)});
    Place(cmdClose, {Pixels(278), Pixels(192), Pixels(88), Pixels(26)});
    Place(Timer1, {});
    Timer1.SetInterval(kTickMilliseconds);
    cmdChoose.MakeDefault();
    cmdClose.MakeCancel();
}

void frmProfiles::GetProfile(const Dictionary& names, const std::string& currentName, ModalOwner& owner) {
    SetCaption(captions_.Caption("Profiles"));
    cmdChoose.SetCaption(captions_.Caption("Choose"));
    cmdNew.SetCaption(captions_.Caption("New"));
    cmdRemove.SetCaption(captions_.Caption("Remove"));
    cmdClose.SetCaption(captions_.Caption("Close"));
    GiveAccessKeys({&cmdChoose, &cmdNew, &cmdRemove, &cmdClose});
    for (const auto& entry : names) names_.AddNew(entry.key);
    currentName_ = currentName;
    owner_ = &owner;
    if (names_.Count() == 0)
        outside_.ShowMessageBox({captions_.Caption("CreateOneProfile"), captions_.Caption("Profiles"),
                                 MessageBox::Buttons::Ok, MessageBox::Icon::Information});
    FillList();
    Tick();
    const ModalOwner::Scope scope(owner);
    outside_.ShowModal(*this);
}

void frmProfiles::FillList() {
    std::vector<std::string> items;
    for (const auto& entry : names_) items.push_back(entry.key);
    const auto current = currentName_.empty() ? items.end() : std::ranges::find(items, currentName_);
    const int index = current != items.end() ? static_cast<int>(current - items.begin())
                      : items.empty()        ? -1
                                             : 0;
    lstProfiles.SetItems(std::move(items));
    lstProfiles.SetListIndex(index);
}

void frmProfiles::Tick() {
    const bool selected = lstProfiles.ListIndex() >= 0;
    cmdChoose.SetEnabled(selected);
    cmdRemove.SetEnabled(selected);
}

const std::string* frmProfiles::SelectedName() const {
    const auto index = static_cast<std::size_t>(lstProfiles.ListIndex());
    if (lstProfiles.ListIndex() < 0 || index >= lstProfiles.Items().size()) return nullptr;
    const std::string& name = lstProfiles.Items()[index];
    return names_.Exists(name) ? &name : nullptr;
}

void frmProfiles::Click(Button& button) {
    if (&button == &cmdChoose)
        cmdChoose_Click();
    else if (&button == &cmdNew)
        cmdNew_Click();
    else if (&button == &cmdRemove)
        cmdRemove_Click();
    else
        Unload();
}

void frmProfiles::cmdChoose_Click() {
    const std::string* name = SelectedName();
    if (!name) return;
    events_.ChooseProfile(*name);
    Unload();
}

void frmProfiles::cmdNew_Click() {
    std::string name;
    frmNewProfile dialog(outside_, captions_);
    if (!dialog.GetNewProfile(name, "EnterProfileName", "NewProfile", *owner_)) return;
    if (names_.Exists(name)) {
        outside_.ShowMessageBox({captions_.Caption("ProfileExists"), captions_.Caption("Profiles")});
        return;
    }
    events_.AddProfile(name);
    Unload();
}

void frmProfiles::cmdRemove_Click() {
    const std::string* name = SelectedName();
    if (!name) return;
    std::string upper = *name;
    std::ranges::transform(upper, upper.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
    if (upper == "DEFAULT" || *name == currentName_) {
        outside_.ShowMessageBox({captions_.Caption("CannotRemoveProfile"), captions_.Caption("Profiles")});
        return;
    }
    const MessageBox question{captions_.Caption("CheckRemoveProfile"),
                              captions_.Caption("Profile") + " : " + *name, MessageBox::Buttons::YesNo,
                              MessageBox::Icon::Question};
    if (outside_.ShowMessageBox(question) != Answer::Yes) return;
    events_.RemoveProfile(*name);
    Unload();
}

}  // namespace dlv
