#include "windows/hwnd/TabMirror.h"

#include <commctrl.h>

#include "windows/com/Strings.h"
#include "windows/gdi/FacePainter.h"

namespace dlv {

namespace {

constexpr int kTabHeight = 20;
constexpr int kTabPadding = 10;

}  // namespace

void TabMirror::Make(HWND parent) {
    Making making;
    making.style = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | TCS_TOOLTIPS | TCS_FOCUSONBUTTONDOWN;
    making.parent = parent;
    MakeNative(WC_TABCONTROLW, making);
}

void TabMirror::LookChanged() {
    Mirror::LookChanged();
    const Scale scale = Kept().scale;
    SendMessageW(Handle(), TCM_SETPADDING, 0, MAKELPARAM(scale(kTabPadding), scale(2)));
    SendMessageW(Handle(), TCM_SETITEMSIZE, 0, MAKELPARAM(0, scale(kTabHeight)));
}

void TabMirror::Apply() {
    for (std::size_t i = 0; i < tabs_.Tabs().size(); ++i) {
        const TabStrip::Tab& tab = tabs_.Tabs()[i];
        if (i < shown_.size() && shown_[i] == tab) continue;
        std::wstring text = Wide(WithAccessKey(tab.caption, tab.key));
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = text.data();
        SendMessageW(Handle(), i < shown_.size() ? TCM_SETITEMW : TCM_INSERTITEMW, i,
                     reinterpret_cast<LPARAM>(&item));
    }
    for (std::size_t i = shown_.size(); i > tabs_.Tabs().size(); --i)
        SendMessageW(Handle(), TCM_DELETEITEM, i - 1, 0);
    shown_ = tabs_.Tabs();
    const int selected = tabs_.SelectedTab() - 1;
    if (SendMessageW(Handle(), TCM_GETCURSEL, 0, 0) != selected)
        SendMessageW(Handle(), TCM_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

LRESULT TabMirror::OnNotify(NMHDR& header) {
    if (header.code != TCN_SELCHANGE || Owner().Applying()) return 0;
    tabs_.SelectTab(static_cast<int>(SendMessageW(Handle(), TCM_GETCURSEL, 0, 0)) + 1);
    Owner().Listener().TabChosen(tabs_);
    return 0;
}

LRESULT TabMirror::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFY) {
        NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
        const auto strip = reinterpret_cast<HWND>(Default(TCM_GETTOOLTIPS, 0, 0));
        if (header.code == TTN_GETDISPINFOW && header.hwndFrom == strip) {
            toolTip_ = header.idFrom < tabs_.Tabs().size() ? Wide(tabs_.Tabs()[header.idFrom].toolTip)
                                                           : std::wstring();
            reinterpret_cast<NMTTDISPINFOW&>(header).lpszText = toolTip_.data();
            return 0;
        }
    }
    return Mirror::OnMessage(message, wParam, lParam);
}

}  // namespace dlv
