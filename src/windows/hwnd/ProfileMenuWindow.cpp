#include "windows/hwnd/ProfileMenuWindow.h"

#include "windows/gdi/FacePainter.h"
#include "windows/hwnd/PopupMenu.h"

namespace dlv {

namespace {

enum Command : UINT { kNothing = 0, kSave = 1, kSaveAs, kManage, kFirstProfile };

void Add(PopupMenu& menu, const MenuItem& item, UINT command) {
    if (item.visible) menu.Add(WithAccessKey(item.caption), command, item.checked ? MF_CHECKED : 0u);
}

void AddCommand(PopupMenu& menu, const MenuItem& item, UINT command) {
    menu.Add(WithAccessKey(item.caption), command);
}

}  // namespace

void ShowProfileMenu(DLViewer& viewer, HWND owner) {
    const ViewerForm& form = viewer.Controls();
    PopupMenu profiles;
    UINT command = kFirstProfile;
    for (const MenuItem& item : form.mnuProfile) Add(profiles, item, command++);
    PopupMenu menu;
    if (!profiles.Empty()) {
        menu.AddMenu(WithAccessKey(form.mnuUse.caption), profiles);
        menu.AddLine();
    }
    AddCommand(menu, form.mnuSaveProfile, kSave);
    AddCommand(menu, form.mnuSaveProfileAs, kSaveAs);
    menu.AddLine();
    AddCommand(menu, form.mnuManage, kManage);

    POINT mouse{};
    GetCursorPos(&mouse);
    switch (const UINT id = menu.Choose(owner, mouse)) {
        case kNothing: return;
        case kSave: return viewer.mnuSaveProfile_Click();
        case kSaveAs: return viewer.mnuSaveProfileAs_Click();
        case kManage: return viewer.mnuManage_Click();
        default: return viewer.mnuProfile_Click(static_cast<int>(id - kFirstProfile));
    }
}

}  // namespace dlv
