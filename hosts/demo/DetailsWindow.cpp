#include "hosts/demo/DetailsWindow.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "windows/com/Strings.h"
#include "windows/hwnd/Clipboard.h"

namespace dlv::demo {

namespace {

constexpr wchar_t kClass[] = L"DashlonDemoDetails";
constexpr DWORD kStyle =
    WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_CLIPCHILDREN;
constexpr int kListHeight = 420;
constexpr SIZE kLeast{360, 200};

// Esc comes as IDCANCEL.
enum Command { kClose = IDCANCEL, kCopy = 100, kSelectAll };

ACCEL kKeys[] = {{FVIRTKEY | FCONTROL, 'C', kCopy},
                 {FVIRTKEY | FCONTROL, VK_INSERT, kCopy},
                 {FVIRTKEY | FCONTROL, 'A', kSelectAll}};

}  // namespace

DetailsWindow::~DetailsWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
    DestroyAcceleratorTable(keys_);
}

void DetailsWindow::Show(HWND owner, RecordTable table) {
    const bool made = window_ == nullptr;
    if (made && !Create(owner)) return;
    SetWindowTextW(window_, Wide(table.title).c_str());
    header_.SetTitle(Wide(table.count));
    header_.SetNote(Wide(table.moment));
    list_.SetTable(std::move(table));
    if (made) PlaceOver(owner);
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    SetFocus(list_.Handle());
}

bool DetailsWindow::Create(HWND owner) {
    WNDCLASSW definition{};
    definition.lpfnWndProc = Procedure;
    definition.hInstance = GetModuleHandleW(nullptr);
    definition.hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512));
    definition.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    definition.lpszClassName = kClass;
    RegisterClassW(&definition);
    header_ = {};
    list_ = {};
    // Where the owner is, so that it has the resolution of that screen.
    RECT place;
    GetWindowRect(owner, &place);
    CreateWindowExW(0, kClass, nullptr, kStyle, place.left, place.top, 100, 100, owner, nullptr,
                    definition.hInstance, this);
    if (window_ == nullptr || !header_.Create(window_, {}, {{kCopy, L"Copy"}, {kClose, L"Close"}}))
        return false;
    list_.Create(window_);
    if (keys_ == nullptr) keys_ = CreateAcceleratorTableW(kKeys, static_cast<int>(std::size(kKeys)));
    MakeLook();
    return true;
}

bool DetailsWindow::Owns(HWND window) const {
    return window_ != nullptr && (window == window_ || IsChild(window_, window) != FALSE);
}

bool DetailsWindow::Translate(MSG& message) {
    return TranslateAcceleratorW(window_, keys_, &message) != 0 ||
           IsDialogMessageW(window_, &message) != FALSE;
}

LRESULT CALLBACK DetailsWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        const auto* made = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        static_cast<DetailsWindow*>(made->lpCreateParams)->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made->lpCreateParams));
    }
    auto* const self = reinterpret_cast<DetailsWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self == nullptr ? DefWindowProcW(window, message, wParam, lParam)
                           : self->OnMessage(message, wParam, lParam);
}

LRESULT DetailsWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: OnCommand(LOWORD(wParam)); return 0;
        case WM_NOTIFY: {
            NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
            return header.hwndFrom == list_.Handle() ? list_.OnNotify(header) : 0;
        }
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) LayOut();
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {Scaled(kLeast.cx), Scaled(kLeast.cy)};
            return 0;
        case WM_SETFOCUS: SetFocus(list_.Handle()); return 0;
        case WM_DPICHANGED: {
            const RECT& place = *reinterpret_cast<const RECT*>(lParam);
            MakeLook();
            SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
                         place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
            return 0;
        }
        case WM_NCDESTROY:
            SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
            window_ = nullptr;
            return 0;
        default: return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void DetailsWindow::OnCommand(int command) {
    switch (command) {
        case kClose: DestroyWindow(window_); break;
        case kCopy: CopyToClipboard(window_, list_.CopiedText()); break;
        case kSelectAll: list_.SelectAll(); break;
        default: break;
    }
}

void DetailsWindow::MakeLook() {
    const int dpi = DpiOf(window_);
    const HostFonts before = std::exchange(fonts_, HostFonts(dpi));
    header_.SetLook(fonts_, dpi);
    list_.SetLook(fonts_, dpi);
}

void DetailsWindow::PlaceOver(HWND owner) {
    RECT wanted{0, 0, std::max(list_.WantedWidth(), Scaled(kLeast.cx)),
                header_.Height() + Scaled(kListHeight)};
    AdjustWindowRectExForDpi(&wanted, kStyle, FALSE, 0, static_cast<UINT>(DpiOf(window_)));
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    RECT over;
    GetWindowRect(owner, &over);
    const int width = std::min(wanted.right - wanted.left, work.right - work.left);
    const int height = std::min(wanted.bottom - wanted.top, work.bottom - work.top);
    const int left = std::clamp((over.left + over.right - width) / 2, work.left, work.right - width);
    const int top = std::clamp((over.top + over.bottom - height) / 2, work.top, work.bottom - height);
    SetWindowPos(window_, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void DetailsWindow::LayOut() {
    RECT place;
    GetClientRect(window_, &place);
    header_.Place(place.right);
    const int top = header_.Height();
    MoveWindow(list_.Handle(), 0, top, place.right, std::max<int>(place.bottom - top, 0), TRUE);
}

int DetailsWindow::Scaled(int pixels) const {
    return MulDiv(pixels, DpiOf(window_), USER_DEFAULT_SCREEN_DPI);
}

}  // namespace dlv::demo
