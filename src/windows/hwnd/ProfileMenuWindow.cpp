#include "windows/hwnd/ProfileMenuWindow.h"

#include "windows/com/ComError.h"
#include "windows/com/Strings.h"
#include "windows/gdi/FacePainter.h"

namespace dlv {

namespace {

enum Command : UINT { kNothing = 0, kSave = 1, kSaveAs, kManage, kFirstProfile };

/// Owns a menu and the menus inside it.
class Menu {
public:
    Menu() : menu_(CreatePopupMenu()) {
        if (menu_ == nullptr) RaiseLastError();
    }
    ~Menu() {
        if (menu_ != nullptr) DestroyMenu(menu_);
    }
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    HMENU Get() const { return menu_; }
    void Add(const MenuItem& item, UINT command) {
        if (!item.visible) return;
        AppendMenuW(menu_, MF_STRING | (item.checked ? MF_CHECKED : 0u), command, Text(item).c_str());
    }
    /// The inner menu belongs to this one from now on.
    void AddMenu(const MenuItem& item, Menu& inner) {
        if (AppendMenuW(menu_, MF_POPUP, reinterpret_cast<UINT_PTR>(inner.menu_), Text(item).c_str()))
            inner.menu_ = nullptr;
    }
    void AddLine() { AppendMenuW(menu_, MF_SEPARATOR, 0, nullptr); }
    bool Empty() const { return GetMenuItemCount(menu_) == 0; }

private:
    static std::wstring Text(const MenuItem& item) { return Wide(WithAccessKey(item.caption)); }

    HMENU menu_;
};

void AddCommand(Menu& menu, const MenuItem& item, UINT command) {
    menu.Add({item.caption, false, true}, command);
}

}  // namespace

void ShowProfileMenu(DLViewer& viewer, HWND owner) {
    const ViewerForm& form = viewer.Controls();
    Menu profiles;
    UINT command = kFirstProfile;
    for (const MenuItem& item : form.mnuProfile) profiles.Add(item, command++);
    Menu menu;
    if (!profiles.Empty()) {
        menu.AddMenu(form.mnuUse, profiles);
        menu.AddLine();
    }
    AddCommand(menu, form.mnuSaveProfile, kSave);
    AddCommand(menu, form.mnuSaveProfileAs, kSaveAs);
    menu.AddLine();
    AddCommand(menu, form.mnuManage, kManage);

    POINT mouse{};
    GetCursorPos(&mouse);
    const BOOL chosen = TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, mouse.x,
                                       mouse.y, 0, owner, nullptr);
    switch (const UINT id = static_cast<UINT>(chosen)) {
        case kNothing: return;
        case kSave: return viewer.mnuSaveProfile_Click();
        case kSaveAs: return viewer.mnuSaveProfileAs_Click();
        case kManage: return viewer.mnuManage_Click();
        default: return viewer.mnuProfile_Click(static_cast<int>(id - kFirstProfile));
    }
}

}  // namespace dlv
