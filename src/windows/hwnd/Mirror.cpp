#include "windows/hwnd/Mirror.h"

#include <commctrl.h>

#include "windows/com/Strings.h"

namespace dlv {

void Mirror::LookChanged() {
    SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(Kept().fonts.Regular()), 0);
    InvalidateRect(Handle(), nullptr, TRUE);
}

HDWP Mirror::ApplyPlace(HDWP batch) {
    const bool enable = control_.Enabled();
    if ((IsWindowEnabled(Handle()) != 0) != enable) EnableWindow(Handle(), enable);
    const RECT wanted = PlaceInPixels();
    RECT place{};
    GetWindowRect(Handle(), &place);
    MapWindowPoints(HWND_DESKTOP, GetParent(Handle()), reinterpret_cast<POINT*>(&place), 2);
    const bool shown = (GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_VISIBLE) != 0;
    UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER;
    if (EqualRect(&place, &wanted)) flags |= SWP_NOMOVE | SWP_NOSIZE;
    if (shown != control_.Visible()) flags |= control_.Visible() ? SWP_SHOWWINDOW : SWP_HIDEWINDOW;
    if (EqualRect(&place, &wanted) && shown == control_.Visible()) return batch;
    const int width = std::max(0L, wanted.right - wanted.left);
    const int height = std::max(0L, wanted.bottom - wanted.top);
    if (batch != nullptr)
        batch = DeferWindowPos(batch, Handle(), nullptr, wanted.left, wanted.top, width, height, flags);
    if (batch == nullptr) SetWindowPos(Handle(), nullptr, wanted.left, wanted.top, width, height, flags);
    return batch;
}

void Mirror::ApplyText(const std::string& text) {
    const std::wstring wanted = Wide(text);
    std::wstring shown(static_cast<std::size_t>(GetWindowTextLengthW(Handle())), L'\0');
    GetWindowTextW(Handle(), shown.data(), static_cast<int>(shown.size()) + 1);
    if (shown != wanted) SetWindowTextW(Handle(), wanted.c_str());
}

Mirror::~Mirror() { CutAnchor(); }

const std::shared_ptr<AccessAnchor>& Mirror::Anchor() {
    if (!anchor_) anchor_ = std::make_shared<AccessAnchor>(Host(), Handle());
    return anchor_;
}

void Mirror::CutAnchor() {
    if (anchor_) std::exchange(anchor_, nullptr)->Cut();
}

LRESULT Mirror::OnToolTipText(NMHDR& header) {
    toolTip_ = Wide(ToolTip());
    reinterpret_cast<NMTTDISPINFOW&>(header).lpszText = toolTip_.data();
    return 0;
}

// A key that nobody translated on its way here: the container is asked first, then Tab moves the focus,
// around the ends since there is nowhere else to go.
bool Mirror::OnUntranslatedKey(WPARAM key, LPARAM lParam) {
    if (key != VK_TAB || GetKeyState(VK_CONTROL) < 0) return false;
    MSG message{Handle(), WM_KEYDOWN, key, lParam, static_cast<DWORD>(GetMessageTime()), {}};
    if (Host().OfferKeyToContainer(message)) return true;
    const Direction direction = GetKeyState(VK_SHIFT) < 0 ? Direction::Backward : Direction::Forward;
    return form_.MoveFocus(direction) || form_.TakeFocus(direction);
}

LRESULT Mirror::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETFOCUS:
        case WM_KILLFOCUS: {
            const LRESULT result = Default(message, wParam, lParam);
            form_.FocusChanged(*this, reinterpret_cast<HWND>(wParam), message == WM_SETFOCUS);
            return result;
        }
        case WM_GETOBJECT:
            if (static_cast<LONG>(lParam) == OBJID_CLIENT)
                if (const ComPtr<AccessibleObject> object = Accessible())
                    return LresultFromObject(__uuidof(IAccessible), wParam,
                                             static_cast<IAccessible*>(object.Get()));
            break;
        case WM_DESTROY: CutAnchor(); break;
        case WM_KEYDOWN:
            if (OnUntranslatedKey(wParam, lParam)) return 0;
            break;
        case WM_SYSCHAR:
            if (form_.PressAccessKey(AccessLetter(wParam))) return 0;
            break;
        case WM_NOTIFY: {
            NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
            if (header.code == TTN_GETDISPINFOW && header.hwndFrom == form_.TipWindow())
                return OnToolTipText(header);
            break;
        }
        default: break;
    }
    return Default(message, wParam, lParam);
}

}  // namespace dlv
