#include "hosts/demo/HeaderBar.h"

namespace dlv::demo {

namespace {

constexpr wchar_t kClass[] = L"DashlonDemoHeader";
constexpr int kHeight = 38;
constexpr int kMargin = 12;
constexpr int kButtonHeight = 24;
constexpr int kButtonPadding = 10;
constexpr int kGap = 6;

constexpr COLORREF kGround = RGB(35, 61, 92);
constexpr COLORREF kTitle = RGB(255, 255, 255);
constexpr COLORREF kNote = RGB(196, 212, 230);
constexpr COLORREF kButton = RGB(58, 88, 124);
constexpr COLORREF kButtonPressed = RGB(88, 122, 162);

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

void Fill(HDC dc, const RECT& place, COLORREF colour) {
    SetDCBrushColor(dc, colour);
    FillRect(dc, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void DrawLine(HDC dc, const std::wstring& text, RECT place, HFONT font, COLORREF colour, UINT format) {
    const HGDIOBJ before = SelectObject(dc, font);
    SetTextColor(dc, colour);
    SetBkMode(dc, TRANSPARENT);
    DrawTextW(dc, text.c_str(), -1, &place,
              format | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(dc, before);
}

}  // namespace

bool HeaderBar::Create(HWND parent, const std::wstring& title, const std::vector<Item>& items) {
    title_ = title;
    WNDCLASSW definition{};
    definition.lpfnWndProc = Procedure;
    definition.hInstance = GetModuleHandleW(nullptr);
    definition.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    definition.lpszClassName = kClass;
    RegisterClassW(&definition);
    CreateWindowExW(WS_EX_CONTROLPARENT, kClass, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 0, 0,
                    parent, nullptr, definition.hInstance, this);
    for (const Item& item : items) {
        buttons_.push_back(CreateWindowExW(
            0, L"BUTTON", item.text.c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, 0, 0, 0, 0,
            window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(item.command)), definition.hInstance,
            nullptr));
    }
    return window_ != nullptr;
}

void HeaderBar::SetLook(const HostFonts& fonts, int dpi) {
    fonts_ = &fonts;
    dpi_ = dpi;
}

void HeaderBar::SetTitle(const std::wstring& title) {
    title_ = title;
    InvalidateRect(window_, nullptr, FALSE);
}

void HeaderBar::SetNote(const std::wstring& note) {
    if (note == note_) return;
    note_ = note;
    InvalidateRect(window_, nullptr, FALSE);
}

void HeaderBar::SetItemText(int command, const std::wstring& text) {
    if (TextOf(GetDlgItem(window_, command)) == text) return;
    SetDlgItemTextW(window_, command, text.c_str());
    Place(width_);
}

void HeaderBar::Place(int width) {
    width_ = width;
    MoveWindow(window_, 0, 0, width, Height(), TRUE);
    const int top = (Height() - Scaled(kButtonHeight)) / 2;
    int right = width - Scaled(kMargin);
    for (auto button = buttons_.rbegin(); button != buttons_.rend(); ++button) {
        const int buttonWidth = TextWidth(TextOf(*button), fonts_->Regular()) + 2 * Scaled(kButtonPadding);
        MoveWindow(*button, right - buttonWidth, top, buttonWidth, Scaled(kButtonHeight), TRUE);
        right -= buttonWidth + Scaled(kGap);
    }
    buttonsLeft_ = right;
    InvalidateRect(window_, nullptr, FALSE);
}

int HeaderBar::Height() const { return Scaled(kHeight); }

POINT HeaderBar::MenuPoint(int command) const {
    RECT place{};
    GetWindowRect(GetDlgItem(window_, command), &place);
    return {place.left, place.bottom};
}

LRESULT CALLBACK HeaderBar::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        const auto* made = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        static_cast<HeaderBar*>(made->lpCreateParams)->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made->lpCreateParams));
    }
    auto* const self = reinterpret_cast<HeaderBar*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self == nullptr ? DefWindowProcW(window, message, wParam, lParam)
                           : self->OnMessage(message, wParam, lParam);
}

LRESULT HeaderBar::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: return SendMessageW(GetParent(window_), WM_COMMAND, LOWORD(wParam), 0);
        case WM_DRAWITEM: PaintButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)); return TRUE;
        case WM_ERASEBKGND: return TRUE;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            Paint(BeginPaint(window_, &paint));
            EndPaint(window_, &paint);
            return 0;
        }
        case WM_NCDESTROY: SetWindowLongPtrW(window_, GWLP_USERDATA, 0); return 0;
        default: return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void HeaderBar::Paint(HDC dc) const {
    RECT place;
    GetClientRect(window_, &place);
    Fill(dc, place, kGround);
    place.left += Scaled(kMargin);
    place.right = buttonsLeft_ - Scaled(kMargin);
    DrawLine(dc, title_, place, fonts_->Bold(), kTitle, DT_LEFT);
    place.left += TextWidth(title_, fonts_->Bold()) + 2 * Scaled(kMargin);
    DrawLine(dc, note_, place, fonts_->Regular(), kNote, DT_LEFT);
}

void HeaderBar::PaintButton(const DRAWITEMSTRUCT& item) const {
    Fill(item.hDC, item.rcItem, (item.itemState & ODS_SELECTED) != 0 ? kButtonPressed : kButton);
    DrawLine(item.hDC, TextOf(item.hwndItem), item.rcItem, fonts_->Regular(), kTitle, DT_CENTER);
    if ((item.itemState & (ODS_FOCUS | ODS_NOFOCUSRECT)) == ODS_FOCUS) {
        RECT focus = item.rcItem;
        InflateRect(&focus, -Scaled(2), -Scaled(2));
        SetTextColor(item.hDC, kTitle);
        DrawFocusRect(item.hDC, &focus);
    }
}

int HeaderBar::Scaled(int pixels) const { return MulDiv(pixels, dpi_, USER_DEFAULT_SCREEN_DPI); }

int HeaderBar::TextWidth(const std::wstring& text, HFONT font) const {
    const HDC dc = GetDC(window_);
    const HGDIOBJ before = SelectObject(dc, font);
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    ReleaseDC(window_, dc);
    return size.cx;
}

}  // namespace dlv::demo
