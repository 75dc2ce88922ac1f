// A window of the control's: of a class of its own, or one of the system's controls, whose messages come in
// through the control's guard. The object outlives its window; when it goes, so does the window.
#pragma once

#include "windows/com/PlainWindows.h"

#include <string>

#include "windows/com/WindowHost.h"

namespace dlv {

class Window {
public:
    explicit Window(WindowHost& host) : host_(host) {}
    virtual ~Window() { Destroy(); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// Null before the window was made and after it has gone, by whatever hand.
    HWND Handle() const { return handle_; }
    void Destroy();

    /// The object behind a window handle; null for a window that is none of ours.
    static Window* Of(HWND window);

protected:
    struct Making {
        DWORD style = WS_CHILD;
        DWORD extendedStyle = 0;
        RECT place{};
        HWND parent = nullptr;
        std::wstring text;
        int id = 0;
    };
    /// Each throws ComError when Windows makes no window.
    void MakeOwn(const wchar_t* className, const Making& making);
    void MakeNative(const wchar_t* className, const Making& making);
    /// Takes over a window that was made elsewhere.
    void Adopt(HWND window);

    /// Every message, inside an entry. What is of no interest goes to `Default`.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
        return Default(message, wParam, lParam);
    }
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);
    /// A WM_COMMAND or WM_NOTIFY that the window sent to its parent.
    virtual void OnCommand(int /*code*/, int /*id*/) {}
    virtual LRESULT OnNotify(NMHDR& /*header*/) { return 0; }
    /// For a parent: hands such a message on to the child that sent it. True when there was one.
    bool Reflect(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    WindowHost& Host() const { return host_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static void RegisterOwnClass(const wchar_t* className);
    class LastMessage;
    void Attach(HWND window, WNDPROC behind);
    void Detach();
    LRESULT Dispatch(UINT message, WPARAM wParam, LPARAM lParam);

    WindowHost& host_;
    HWND handle_ = nullptr;
    WNDPROC behind_ = DefWindowProcW;
};

/// The classes of windows that are the control's own.
inline constexpr wchar_t kControlClass[] = L"DashlonViewerControl";
inline constexpr wchar_t kFrameClass[] = L"DashlonViewerFrame";
inline constexpr wchar_t kGridClass[] = L"DashlonViewerGrid";

}  // namespace dlv
