#include "windows/dialogs/DialogWatch.h"

#include <string_view>

namespace dlv {

namespace {

bool IsDialog(HWND window) {
    wchar_t name[16] = {};
    return GetClassNameW(window, name, 16) > 0 && std::wstring_view(name) == L"#32770";
}

}  // namespace

thread_local DialogWatch* DialogWatch::current_ = nullptr;

DialogWatch::DialogWatch(WindowHost& host, Closing closing, int answer)
    : host_(host), closing_(closing), answer_(answer), before_(current_) {
    current_ = this;
    found_ = SetWindowsHookExW(WH_CBT, NoteDialog, nullptr, GetCurrentThreadId());
    messages_ = SetWindowsHookExW(WH_GETMESSAGE, LookForEnd, nullptr, GetCurrentThreadId());
}

DialogWatch::~DialogWatch() {
    if (messages_ != nullptr) UnhookWindowsHookEx(messages_);
    if (found_ != nullptr) UnhookWindowsHookEx(found_);
    current_ = before_;
}

LRESULT CALLBACK DialogWatch::NoteDialog(int code, WPARAM wParam, LPARAM lParam) {
    const HWND window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && current_ != nullptr && current_->dialog_ == nullptr && IsDialog(window))
        current_->dialog_ = window;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK DialogWatch::LookForEnd(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && current_ != nullptr && current_->dialog_ != nullptr && current_->host_.Ending())
        current_->Close();
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void DialogWatch::Close() {
    const HWND top = GetLastActivePopup(dialog_);
    if (top != dialog_ && IsDialog(top)) {
        EndDialog(top, IDNO);
    } else if (closing_ == Closing::Pressed) {
        EndDialog(dialog_, answer_);
    } else if (!cancelled_) {
        cancelled_ = true;
        PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
    }
}

}  // namespace dlv
