#include "player/windows/MenuUse.h"

#include <vector>

#include "hosts/container/WindowList.h"
#include "player/windows/Hand.h"
#include "player/windows/Screen.h"

namespace dlv::player {

namespace {

constexpr wchar_t kMenuClass[] = L"#32768";
/// Then the line is not there.
constexpr int kMostPresses = 200;

std::vector<HMENU> OpenMenus() {
    std::vector<HMENU> menus;
    for (const HWND window : container::WindowsOfThread())
        if (IsWindowVisible(window) && container::ClassOf(window) == kMenuClass)
            menus.push_back(reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)));
    return menus;
}

UINT StateOf(HMENU menu, int line) { return GetMenuState(menu, static_cast<UINT>(line), MF_BYPOSITION); }

/// As it is drawn: of two ampersands one.
std::string TextOf(HMENU menu, int line) {
    wchar_t text[1024] = {};
    GetMenuStringW(menu, static_cast<UINT>(line), text, 1024, MF_BYPOSITION);
    std::wstring drawn;
    for (const wchar_t* at = text; *at != L'\0'; ++at) {
        if (*at == L'&' && at[1] != L'\0') ++at;
        drawn += *at;
    }
    return Utf8Of(drawn.c_str());
}

int LineOf(HMENU menu, const std::string& text) {
    const int count = GetMenuItemCount(menu);
    for (int line = 0; line < count; ++line)
        if (TextOf(menu, line) == text) return line;
    return -1;
}

Json LinesOf(HMENU menu) {
    Json lines = Json::array();
    const int count = menu == nullptr ? 0 : GetMenuItemCount(menu);
    for (int line = 0; line < count; ++line)
        lines.push_back({TextOf(menu, line), (StateOf(menu, line) & MF_CHECKED) != 0});
    return lines.empty() ? Json() : lines;
}

/// Down to a line, and there another key.
WORD KeyTowards(HMENU menu, int line, WORD there) {
    if (line < 0 || line >= GetMenuItemCount(menu)) return VK_ESCAPE;
    return (StateOf(menu, line) & MF_HILITE) != 0 ? there : static_cast<WORD>(VK_DOWN);
}

}  // namespace

void MenuUse::Begin(const Json& step, const ViewerForm& form) {
    const std::string op = step["op"];
    command_ = op == "menuSave"      ? form.mnuSaveProfile.caption
               : op == "menuSaveAs"  ? form.mnuSaveProfileAs.caption
               : op == "menuManage"  ? form.mnuManage.caption
               : op == "menuProfile" ? form.mnuUse.caption
                                     : "";
    profile_ = op == "menuProfile" ? step.value("index", -1) : -1;
    read_ = false;
    presses_ = 0;
}

void MenuUse::Tick() {
    const std::vector<HMENU> open = OpenMenus();
    if (open.empty()) return;
    // Only the outer one has a menu inside.
    const HMENU outer =
        open.size() > 1 && GetSubMenu(open.front(), 0) == nullptr ? open.back() : open.front();
    if (!read_) profiles_ = LinesOf(GetSubMenu(outer, 0));
    read_ = true;
    Hand::PressForNext(NextKey(outer, open.size() > 1));
}

WORD MenuUse::NextKey(HMENU outer, bool innerOpen) {
    if (command_.empty() || ++presses_ > kMostPresses) return VK_ESCAPE;
    const int line = LineOf(outer, command_);
    if (profile_ < 0) return innerOpen ? static_cast<WORD>(VK_LEFT) : KeyTowards(outer, line, VK_RETURN);
    return innerOpen ? KeyTowards(GetSubMenu(outer, line), profile_, VK_RETURN)
                     : KeyTowards(outer, line, VK_RIGHT);
}

}  // namespace dlv::player
