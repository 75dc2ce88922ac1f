#include "windows/hwnd/ProfileMenuWindow.h"

#include "base/Text.h"
#include "widgets/AccessKeys.h"
#include "windows/gdi/FacePainter.h"
#include "windows/hwnd/PopupMenu.h"

namespace dlv {

namespace {

enum Command : UINT { kNothing = 0, kSave = 1, kSaveAs, kManage, kFirstProfile };

/// Of a profile's name, in characters: a menu is as wide as its widest entry.
constexpr std::size_t kLongestName = 80;

/// The profiles in a menu of their own; the number of each stands in its command.
void AddProfiles(PopupMenu& menu, const std::vector<MenuItem>& items) {
    UINT command = kFirstProfile;
    for (const MenuItem& item : items) {
        if (item.visible)
            menu.Add(WithAccessKey(OneLine(item.caption, kLongestName)), command,
                     item.checked ? MF_CHECKED : 0u);
        ++command;
    }
}

}  // namespace

void ShowProfileMenu(DLViewer& viewer, HWND owner, const std::optional<RECT>& button) {
    const ViewerForm& form = viewer.Controls();
    const std::string captions[] = {form.mnuUse.caption, form.mnuSaveProfile.caption,
                                    form.mnuSaveProfileAs.caption, form.mnuManage.caption};
    const std::vector<AccessKey> keys = ChooseAccessKeys(captions);
    const auto text = [&](std::size_t entry) { return WithAccessKey(captions[entry], keys[entry]); };
    PopupMenu profiles;
    AddProfiles(profiles, form.mnuProfile);
    PopupMenu menu;
    if (!profiles.Empty()) {
        menu.AddMenu(text(0), profiles);
        menu.AddLine();
    }
    menu.Add(text(1), kSave);
    menu.Add(text(2), kSaveAs);
    menu.AddLine();
    menu.Add(text(3), kManage);

    POINT mouse{};
    GetCursorPos(&mouse);
    switch (const UINT id = button ? menu.ChooseBelow(owner, *button) : menu.Choose(owner, mouse)) {
        case kNothing: return;
        case kSave: return viewer.mnuSaveProfile_Click();
        case kSaveAs: return viewer.mnuSaveProfileAs_Click();
        case kManage: return viewer.mnuManage_Click();
        default: return viewer.mnuProfile_Click(static_cast<int>(id - kFirstProfile));
    }
}

}  // namespace dlv
