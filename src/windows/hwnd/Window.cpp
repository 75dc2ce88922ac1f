#include "windows/hwnd/Window.h"

#include <commctrl.h>

#include "windows/com/ComError.h"
#include "windows/hwnd/CommonControls.h"

namespace dlv {

namespace {

constexpr wchar_t kObjectProperty[] = L"DashlonViewer.Window";

/// The control's own window classes, registered while the library is loaded.
class OwnClasses {
public:
    explicit OwnClasses(WNDPROC procedure) {
        for (const wchar_t* name : {kControlClass, kFrameClass, kGridClass}) {
            WNDCLASSEXW description{};
            description.cbSize = sizeof description;
            description.style = CS_DBLCLKS;
            description.lpfnWndProc = procedure;
            description.hInstance = OwnModule();
            description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
            description.lpszClassName = name;
            if (RegisterClassExW(&description) == 0) RaiseLastError();
        }
    }
    ~OwnClasses() {
        for (const wchar_t* name : {kControlClass, kFrameClass, kGridClass})
            UnregisterClassW(name, OwnModule());
    }
    OwnClasses(const OwnClasses&) = delete;
    OwnClasses& operator=(const OwnClasses&) = delete;
};

}  // namespace

/// Lets go of the window handle behind the last message, however that ends.
class Window::LastMessage {
public:
    LastMessage(Window& window, bool last) : window_(window), last_(last) {}
    ~LastMessage() {
        if (last_) window_.Detach();
    }
    LastMessage(const LastMessage&) = delete;
    LastMessage& operator=(const LastMessage&) = delete;

private:
    Window& window_;
    const bool last_;
};

Window* Window::Of(HWND window) {
    return window == nullptr ? nullptr : static_cast<Window*>(GetPropW(window, kObjectProperty));
}

void Window::Destroy() {
    if (handle_ != nullptr) DestroyWindow(handle_);
}

void Window::Attach(HWND window, WNDPROC behind) {
    handle_ = window;
    behind_ = behind;
    if (!SetPropW(window, kObjectProperty, this)) RaiseLastError();
}

void Window::Detach() {
    RemovePropW(handle_, kObjectProperty);
    handle_ = nullptr;
}

void Window::MakeOwn(const wchar_t* className, const Making& making) {
    static const OwnClasses classes(Procedure);
    const RECT& place = making.place;
    const ControlsScope controls;
    CreateWindowExW(making.extendedStyle, className, making.text.c_str(), making.style, place.left, place.top,
                    place.right - place.left, place.bottom - place.top, making.parent, nullptr, OwnModule(),
                    this);
    if (handle_ == nullptr) RaiseLastError();
}

void Window::MakeNative(const wchar_t* className, const Making& making) {
    const RECT& place = making.place;
    const ControlsScope controls;
    NeedCommonControls();
    const HWND window =
        CreateWindowExW(making.extendedStyle, className, making.text.c_str(), making.style, place.left,
                        place.top, place.right - place.left, place.bottom - place.top, making.parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(making.id)), OwnModule(), nullptr);
    if (window == nullptr) RaiseLastError();
    Adopt(window);
}

void Window::Adopt(HWND window) {
    const LONG_PTR behind =
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Window::Procedure));
    Attach(window, reinterpret_cast<WNDPROC>(behind));
}

LRESULT Window::Default(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(behind_, handle_, message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (Window* self = Of(window)) return self->Dispatch(message, wParam, lParam);
    if (message != WM_NCCREATE) return DefWindowProcW(window, message, wParam, lParam);
    auto* self = static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    const Outcome outcome = self->host_.Window([&] { self->Attach(window, DefWindowProcW); });
    return outcome == Outcome::Done && self->Dispatch(message, wParam, lParam);
}

// Behind the guard the object may be gone.
LRESULT Window::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = handle_;
    const WNDPROC behind = behind_;
    LRESULT result = 0;
    const Outcome outcome = host_.Window([&] {
        const LastMessage last(*this, message == WM_NCDESTROY);
        const ControlsScope controls;
        result = OnMessage(message, wParam, lParam);
    });
    if (outcome == Outcome::Done) return result;
    // What Windows itself waits for is done although the message was not dealt with to its end.
    if (message == WM_PAINT) ValidateRect(window, nullptr);
    if (message == WM_NCDESTROY) return CallWindowProcW(behind, window, message, wParam, lParam);
    return result;
}

bool Window::Reflect(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_COMMAND) {
        Window* child = Of(reinterpret_cast<HWND>(lParam));
        if (child == nullptr) return false;
        child->OnCommand(HIWORD(wParam), LOWORD(wParam));
        result = 0;
        return true;
    }
    if (message != WM_NOTIFY) return false;
    NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
    Window* child = Of(header.hwndFrom);
    if (child == nullptr) return false;
    result = child->OnNotify(header);
    return true;
}

}  // namespace dlv
