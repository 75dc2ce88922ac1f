#include "windows/dialogs/FormDialog.h"

#include <utility>

#include "windows/com/ComError.h"
#include "windows/com/Strings.h"
#include "windows/hwnd/CommonControls.h"
#include "windows/hwnd/Mirror.h"

namespace dlv {

namespace {

constexpr UINT_PTR kTimer = 1;

INT_PTR CALLBACK NothingOfItsOwn(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

RECT ScreenOf(HWND owner) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return monitor.rcWork;
}

/// In the middle of the owner, but wholly on its screen.
POINT Centred(HWND owner, SIZE size) {
    const RECT screen = ScreenOf(owner);
    RECT before = screen;
    if (owner != nullptr && !IsIconic(owner)) GetWindowRect(owner, &before);
    POINT place{(before.left + before.right - size.cx) / 2, (before.top + before.bottom - size.cy) / 2};
    place.x = std::max(screen.left, std::min(place.x, screen.right - size.cx));
    place.y = std::max(screen.top, std::min(place.y, screen.bottom - size.cy));
    return place;
}

}  // namespace

FormDialog::FormDialog(WindowHost& host, ModalForm& form, const FontChoice& font)
    : Window(host), form_(form), font_(font), windows_(host, form, *this) {}

FormDialog::~FormDialog() { Destroy(); }

void FormDialog::Open(HWND owner) {
    struct Template {
        DLGTEMPLATE dialog;
        WORD menu = 0;
        WORD windowClass = 0;
        WORD title = 0;
    } wanted{};
    wanted.dialog.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | WS_CLIPCHILDREN;
    const ControlsScope controls;
    const HWND dialog = CreateDialogIndirectParamW(OwnModule(), &wanted.dialog, owner, NothingOfItsOwn, 0);
    if (dialog == nullptr) RaiseLastError();
    Adopt(dialog);
    SetWindowTextW(dialog, Wide(form_.Caption()).c_str());
    const Zoom zoom = ZoomOn(owner);
    SetSize(owner, zoom.scale);
    windows_.Make(dialog, zoom.appearance, zoom.scale);
    for (const Control* control : form_.Controls())
        if (const auto* button = dynamic_cast<const class Button*>(control); button && button->IsDefault())
            SendMessageW(dialog, DM_SETDEFID, static_cast<WPARAM>(button->IsCancel() ? IDCANCEL : IDOK), 0);
    StartTimers();
    ShowWindow(dialog, SW_SHOW);
    windows_.TakeFocus(Direction::Forward);
}

Zoom FormDialog::ZoomOn(HWND owner) const {
    const RECT screen = ScreenOf(owner);
    const Scale design;
    return ZoomFor(
        font_, static_cast<int>(GetDpiForWindow(Handle())),
        {screen.right - screen.left, screen.bottom - screen.top},
        {std::max(1, design.ToPixels(form_.Width())), std::max(1, design.ToPixels(form_.Height()))});
}

void FormDialog::SetSize(HWND owner, Scale scale) {
    const UINT dpi = GetDpiForWindow(Handle());
    RECT area{0, 0, scale.ToPixels(form_.Width()), scale.ToPixels(form_.Height())};
    AdjustWindowRectExForDpi(&area, static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_EXSTYLE)), dpi);
    const SIZE size{area.right - area.left, area.bottom - area.top};
    const POINT place = Centred(owner, size);
    SetWindowPos(Handle(), nullptr, place.x, place.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

bool FormDialog::Open() const { return Handle() != nullptr && !form_.Closed() && !Host().Ending(); }

void FormDialog::Run() {
    const HostScope inHost;
    while (Open()) {
        MSG message{};
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            // The thread is to end: whoever runs its own loop must hear of it, too.
            if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (!Open()) {
            DispatchMessageW(&message);
            return;
        }
        if (PressAccessKey(message) || IsDialogMessageW(Handle(), &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void FormDialog::StartTimers() {
    for (const Control* control : form_.Controls()) {
        const auto* timer = dynamic_cast<const Timer*>(control);
        if (timer == nullptr) continue;
        const int wanted = timer->Enabled() ? timer->Interval() : 0;
        // Setting a timer that runs would put off its tick.
        if (std::exchange(interval_, wanted) == wanted) continue;
        if (wanted > 0)
            SetTimer(Handle(), kTimer, static_cast<UINT>(wanted), nullptr);
        else
            KillTimer(Handle(), kTimer);
    }
}

Button* FormDialog::ButtonFor(WORD id) const {
    for (Control* control : form_.Controls()) {
        auto* button = dynamic_cast<class Button*>(control);
        if (button == nullptr) continue;
        if (id == IDCANCEL ? button->IsCancel() : button->IsDefault()) return button;
    }
    return nullptr;
}

// Enter and Esc, and the closing of the window, which counts as Esc. They may be quicker than the timer that
// enables the button.
void FormDialog::Press(WORD id) {
    if (interval_ > 0) form_.Tick();
    Button* const button = ButtonFor(id);
    if (button != nullptr && button->Enabled())
        form_.Click(*button);
    else if (button == nullptr && id == IDCANCEL)
        form_.Unload();
}

void FormDialog::Clicked(Control& control) {
    if (auto* button = dynamic_cast<class Button*>(&control)) form_.Click(*button);
}

void FormDialog::LineChosen(ListBox&) { Press(IDOK); }

bool FormDialog::PressAccessKey(const MSG& message) {
    if (message.message != WM_SYSCHAR || !IsChild(Handle(), message.hwnd)) return false;
    bool pressed = false;
    Host().Window([&] {
        pressed = windows_.PressAccessKey(AccessLetter(message.wParam));
        BringUpToDate();
    });
    return pressed;
}

void FormDialog::BringUpToDate() {
    if (!Open()) return;
    StartTimers();
    windows_.Flush();
}

void FormDialog::FocusTaken(Control& control) { form_.GotFocus(control); }

LRESULT FormDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    switch (message) {
        case WM_COMMAND:
            if (!Reflect(message, wParam, lParam, result) && wParam <= IDCANCEL) Press(LOWORD(wParam));
            break;
        case WM_NOTIFY:
            if (!Reflect(message, wParam, lParam, result)) return Default(message, wParam, lParam);
            break;
        case WM_CLOSE: Press(IDCANCEL); break;
        case WM_TIMER: form_.Tick(); break;
        default: return Default(message, wParam, lParam);
    }
    BringUpToDate();
    return result;
}

}  // namespace dlv
