#include "profiles/ProfileMenu.h"

#include <algorithm>

#include "base/Text.h"
#include "profiles/frmNewProfile.h"
#include "profiles/frmProfiles.h"

namespace dlv {

std::vector<std::string> ProfileMenu::SortProfiles() const {
    std::vector<std::string> sorted;
    trap_.Run("DLViewer.SortProfiles", [&] {
        struct Name {
            std::string folded;
            std::string text;
        };
        std::vector<Name> names;
        for (const auto& entry : state_.names) names.push_back({FoldCase(entry.key), entry.key});
        std::ranges::stable_sort(names, {}, &Name::folded);
        for (Name& name : names) sorted.push_back(std::move(name.text));
    });
    return sorted;
}

void ProfileMenu::ConfigureProfileMenu() {
    trap_.Run("DLViewer.ConfigureProfileMenu", [&] {
        std::vector<MenuItem>& items = form_.mnuProfile;
        items.resize(1);
        const std::vector<std::string> names = SortProfiles();
        if (names.empty()) return;
        items.clear();
        const std::string current = state_.current ? state_.current->Name() : std::string();
        for (const std::string& name : names)
            items.push_back({name, state_.current && name == current, true});
    });
}

void ProfileMenu::mnuProfile_Click(int index) {
    std::vector<MenuItem>& items = form_.mnuProfile;
    const auto chosen = static_cast<std::size_t>(index);
    if (index < 0 || chosen >= items.size() || !items[chosen].visible) return;
    const std::string name = items[chosen].caption;
    if (!state_.current || name != state_.current->Name())
        for (std::size_t i = 0; i < items.size(); ++i) items[i].checked = i == chosen;
    exchange_.ChooseNewProfile(name);
}

void ProfileMenu::mnuSaveProfile_Click() {
    document_.InitProfileSettings();
    document_.UpdateCurrentProfile(ProfileDocument::Extent::WithSettings);
}

void ProfileMenu::mnuSaveProfileAs_Click() {
    trap_.Run("DLViewer.mnuSaveProfileAs_Click", [&] {
        std::string name;
        frmNewProfile dialog(outside_, captions_);
        if (!dialog.GetNewProfile(name, "EnterProfileNameSaveAs", "SaveCurrentProfileAs", owner_)) return;
        if (!state_.names.Exists(name)) {
            exchange_.SaveProfileAs(name);
            return;
        }
        const MessageBox question{captions_.Caption("ProfileOverwrite"),
                                  captions_.Caption("Profile") + " : " + name, MessageBox::Buttons::YesNo,
                                  MessageBox::Icon::Question};
        if (outside_.ShowMessageBox(question) != Answer::Yes) return;
        if (state_.current && name == state_.current->Name())
            mnuSaveProfile_Click();
        else
            exchange_.SaveProfileAs(name);
    });
}

void ProfileMenu::mnuManage_Click() { exchange_.ChooseNewProfile(""); }

void ProfileMenu::ManageProfiles() {
    frmProfiles dialog(outside_, captions_,
                       {[this](const std::string& name) { exchange_.AddProfile(name); },
                        [this](const std::string& name) { exchange_.RemoveProfile(name); },
                        [this](const std::string& name) { exchange_.ChooseNewProfile(name); }});
    dialog.GetProfile(state_.names, state_.current ? state_.current->Name() : std::string(), owner_);
}

}  // namespace dlv
