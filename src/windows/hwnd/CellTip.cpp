#include "windows/hwnd/CellTip.h"

#include <commctrl.h>

#include <algorithm>

#include "windows/com/Strings.h"
#include "windows/gdi/Handles.h"

namespace dlv {

namespace {

constexpr int kWidest = 420;
constexpr UINT_PTR kOnlyTool = 1;

TTTOOLINFOW ToolOf(HWND grid, wchar_t* text) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    tool.hwnd = grid;
    tool.uId = kOnlyTool;
    tool.lpszText = text;
    return tool;
}

int LineHeight(HFONT font) {
    const MemoryDc dc;
    const SelectScope select(dc.Get(), font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.Get(), &metrics);
    return metrics.tmHeight;
}

/// The place as near as it can be without leaving the screen.
POINT OnScreen(POINT place, SIZE size) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(MonitorFromPoint(place, MONITOR_DEFAULTTONEAREST), &monitor)) return place;
    const RECT& room = monitor.rcWork;
    return {std::max(room.left, std::min(place.x, room.right - size.cx)),
            std::max(room.top, std::min(place.y, room.bottom - size.cy))};
}

}  // namespace

void CellTip::Make(HWND grid) {
    Making making;
    making.style = WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX;
    making.extendedStyle = WS_EX_TOPMOST | WS_EX_TRANSPARENT;
    making.parent = grid;
    MakeNative(TOOLTIPS_CLASSW, making);
    TTTOOLINFOW tool = ToolOf(grid, text_.data());
    SendMessageW(Handle(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(Handle(), TTM_SETMAXTIPWIDTH, 0,
                 MulDiv(kWidest, static_cast<int>(GetDpiForWindow(grid)), USER_DEFAULT_SCREEN_DPI));
}

void CellTip::Show(HWND grid, const std::string& text, const RECT& area, Where where, HFONT font) {
    text_ = Wide(text);
    grid_ = grid;
    if (Handle() == nullptr) Make(grid);
    Hide();
    SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    TTTOOLINFOW tool = ToolOf(grid, text_.data());
    SendMessageW(Handle(), TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    RECT place = area;
    MapWindowPoints(grid, HWND_DESKTOP, reinterpret_cast<POINT*>(&place), 2);
    POINT corner{place.left, place.bottom + 2};
    if (where == Where::Over) {
        // Where the text stands in the cell, it is to stand in the tip.
        const int height = LineHeight(font);
        place.top = (place.top + place.bottom - height) / 2;
        place.bottom = place.top + height;
        SendMessageW(Handle(), TTM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&place));
        corner = {place.left, place.top};
    }
    SendMessageW(Handle(), TTM_TRACKPOSITION, 0, MAKELPARAM(corner.x, corner.y));
    SendMessageW(Handle(), TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
    // Its size is known only now.
    RECT shown{};
    GetWindowRect(Handle(), &shown);
    const POINT inside =
        OnScreen({shown.left, shown.top}, {shown.right - shown.left, shown.bottom - shown.top});
    if (inside.x != shown.left || inside.y != shown.top)
        SendMessageW(Handle(), TTM_TRACKPOSITION, 0, MAKELPARAM(inside.x, inside.y));
    shown_ = true;
}

void CellTip::Hide() {
    if (!shown_ || Handle() == nullptr) return;
    TTTOOLINFOW tool = ToolOf(grid_, text_.data());
    SendMessageW(Handle(), TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
    shown_ = false;
}

}  // namespace dlv
