#include "windows/hwnd/ToolTips.h"

#include <commctrl.h>

namespace dlv {

namespace {

/// Longer tips take several lines.
constexpr int kWidest = 420;

}  // namespace

void ToolTips::Make(HWND parent) {
    Making making;
    making.style = WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX;
    making.extendedStyle = WS_EX_TOPMOST;
    making.parent = parent;
    making.place = {0, 0, 0, 0};
    MakeNative(TOOLTIPS_CLASSW, making);
    SendMessageW(Handle(), TTM_SETMAXTIPWIDTH, 0,
                 MulDiv(kWidest, static_cast<int>(GetDpiForWindow(parent)), USER_DEFAULT_SCREEN_DPI));
}

void ToolTips::Add(const Mirror& mirror) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = mirror.Handle();
    tool.uId = reinterpret_cast<UINT_PTR>(mirror.Handle());
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(Handle(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace dlv
