#include "windows/dialogs/Dialogs.h"

#include "windows/com/Strings.h"
#include "windows/dialogs/FormDialog.h"
#include "windows/dialogs/ModalScope.h"
#include "windows/hwnd/CommonControls.h"

namespace dlv {

namespace {

constexpr int kMostPendingMessages = 1000;

/// While it lives, the message box that this thread opens is closed when the control ends. Boxes may be
/// nested.
class BoxWatch {
public:
    BoxWatch(WindowHost& host, int answer) : host_(host), answer_(answer), before_(current_) {
        current_ = this;
        found_ = SetWindowsHookExW(WH_CBT, NoteBox, nullptr, GetCurrentThreadId());
        filter_ = SetWindowsHookExW(WH_MSGFILTER, LookForEnd, nullptr, GetCurrentThreadId());
    }
    ~BoxWatch() {
        if (filter_ != nullptr) UnhookWindowsHookEx(filter_);
        if (found_ != nullptr) UnhookWindowsHookEx(found_);
        current_ = before_;
    }
    BoxWatch(const BoxWatch&) = delete;
    BoxWatch& operator=(const BoxWatch&) = delete;

private:
    static LRESULT CALLBACK NoteBox(int code, WPARAM wParam, LPARAM lParam) {
        if (code == HCBT_ACTIVATE && current_ != nullptr && current_->box_ == nullptr)
            current_->box_ = reinterpret_cast<HWND>(wParam);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static LRESULT CALLBACK LookForEnd(int code, WPARAM wParam, LPARAM lParam) {
        if (code == MSGF_DIALOGBOX && current_ != nullptr && current_->box_ != nullptr &&
            current_->host_.Ending())
            EndDialog(current_->box_, current_->answer_);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static thread_local BoxWatch* current_;
    WindowHost& host_;
    int answer_;
    BoxWatch* before_;
    HHOOK found_ = nullptr;
    HHOOK filter_ = nullptr;
    HWND box_ = nullptr;
};

thread_local BoxWatch* BoxWatch::current_ = nullptr;

UINT Style(const MessageBox& box) {
    const UINT buttons = box.buttons == MessageBox::Buttons::YesNo ? MB_YESNO | MB_DEFBUTTON2 : MB_OK;
    const UINT icon = box.icon == MessageBox::Icon::Question      ? MB_ICONQUESTION
                      : box.icon == MessageBox::Icon::Information ? MB_ICONINFORMATION
                                                                  : 0u;
    return buttons | icon;
}

}  // namespace

void ShowModal(WindowHost& host, ModalForm& form, const FontChoice& font) {
    if (host.Ending()) return;
    ModalScope scope(host);
    FormDialog dialog(host, form, font);
    dialog.Open(scope.Owner());
    dialog.Run();
    scope.ReleaseOwner();
}

Answer ShowMessageBox(WindowHost& host, const MessageBox& box) {
    const bool asks = box.buttons == MessageBox::Buttons::YesNo;
    const Answer refused = asks ? Answer::No : Answer::Ok;
    if (host.Ending()) return refused;
    ModalScope scope(host);
    // The system's box disables its owner itself, and refuses one that is disabled.
    scope.ReleaseOwner();
    const BoxWatch watch(host, asks ? IDNO : IDOK);
    const ControlsScope controls;
    const int pressed =
        MessageBoxW(scope.Owner(), Wide(box.text).c_str(), Wide(box.title).c_str(), Style(box));
    return pressed == IDYES ? Answer::Yes : refused;
}

void ProcessPendingMessages() {
    MSG message{};
    for (int i = 0; i < kMostPendingMessages && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace dlv
