#include "windows/hwnd/PopupMenu.h"

#include <utility>

#include "base/Text.h"
#include "windows/com/ComError.h"
#include "windows/com/Strings.h"
#include "windows/hwnd/CommonControls.h"

namespace dlv {

namespace {

std::wstring Folded(const std::wstring& text) { return Wide(FoldCase(Narrow(text))); }

/// In lower case; empty for a line and an empty entry.
std::wstring FirstLetterOf(HMENU menu, int entry) {
    wchar_t text[3] = {};
    GetMenuStringW(menu, static_cast<UINT>(entry), text, 3, MF_BYPOSITION);
    return Folded(std::wstring(text, text[0] == L'\0' ? 0u : 1u));
}

}  // namespace

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

UINT PopupMenu::Choose(HWND owner, POINT place) const { return Track(owner, 0, place, nullptr); }

UINT PopupMenu::ChooseBelow(HWND owner, const RECT& button) const {
    TPMPARAMS clear{sizeof clear, button};
    PostMessageW(owner, WM_KEYDOWN, VK_DOWN, 1);
    return Track(owner, TPM_VERTICAL, {button.left, button.bottom}, &clear);
}

UINT PopupMenu::Track(HWND owner, UINT flags, POINT place, TPMPARAMS* clear) const {
    const HostScope inHost;
    return static_cast<UINT>(TrackPopupMenuEx(menu_, flags | TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                              place.x, place.y, owner, clear));
}

LRESULT PopupMenu::OnCharacter(HMENU menu, wchar_t character) {
    const std::wstring wanted = Folded({character});
    const int count = GetMenuItemCount(menu);
    int marked = -1;
    for (int i = 0; i < count && marked < 0; ++i)
        if ((GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_HILITE) != 0) marked = i;
    int found = -1;
    int others = 0;
    for (int step = 1; step <= count; ++step) {
        const int entry = (marked + step) % count;
        if (FirstLetterOf(menu, entry) != wanted) continue;
        if (found < 0)
            found = entry;
        else
            ++others;
    }
    if (found < 0) return MAKELRESULT(0, MNC_IGNORE);
    return MAKELRESULT(found, others == 0 ? MNC_EXECUTE : MNC_SELECT);
}

}  // namespace dlv
