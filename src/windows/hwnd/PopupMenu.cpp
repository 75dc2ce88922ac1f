#include "windows/hwnd/PopupMenu.h"

#include <utility>

#include "windows/com/ComError.h"
#include "windows/com/Strings.h"

namespace dlv {

PopupMenu::PopupMenu() : menu_(CreatePopupMenu()) {
    if (menu_ == nullptr) RaiseLastError();
}

PopupMenu::~PopupMenu() {
    if (menu_ != nullptr) DestroyMenu(menu_);
}

void PopupMenu::Add(const std::string& text, UINT command, UINT flags) {
    AppendMenuW(menu_, MF_STRING | flags, command, Wide(text).c_str());
}

void PopupMenu::AddMenu(const std::string& text, PopupMenu& inner) {
    if (AppendMenuW(menu_, MF_POPUP, reinterpret_cast<UINT_PTR>(inner.menu_), Wide(text).c_str()))
        inner.menu_ = nullptr;
}

void PopupMenu::AddLine() { AppendMenuW(menu_, MF_SEPARATOR, 0, nullptr); }

bool PopupMenu::Empty() const { return GetMenuItemCount(menu_) == 0; }

UINT PopupMenu::Choose(HWND owner, POINT place) const {
    return static_cast<UINT>(TrackPopupMenu(menu_, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, place.x,
                                            place.y, 0, owner, nullptr));
}

}  // namespace dlv
