// Closes every dialog and message box of this thread as soon as its message loop runs, so that nothing waits
// for a person.
#pragma once

#include "tests/windows/Dialogs.h"

namespace dlv::hostile {

class DialogKiller {
public:
    DialogKiller()
        : hook_(SetWindowsHookExW(WH_CBT, Note, nullptr, GetCurrentThreadId())),
          timer_(SetTimer(nullptr, 0, kEvery, Tick)) {}
    ~DialogKiller() {
        KillTimer(nullptr, timer_);
        UnhookWindowsHookEx(hook_);
    }
    DialogKiller(const DialogKiller&) = delete;
    DialogKiller& operator=(const DialogKiller&) = delete;

    /// How many dialogs there have been.
    static int Killed() { return killed_; }

private:
    static constexpr UINT kEvery = 250;  // milliseconds

    /// Esc, and the closing of a box that has no such button. The messages wait in the thread's queue until
    /// the dialog's own loop takes them.
    static void Close(HWND dialog) {
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        PostMessageW(dialog, WM_CLOSE, 0, 0);
        PostMessageW(dialog, WM_COMMAND, IDNO, 0);
    }
    static LRESULT CALLBACK Note(int code, WPARAM window, LPARAM data) {
        wchar_t name[16] = {};
        const auto handle = reinterpret_cast<HWND>(window);
        if (code == HCBT_CREATEWND && GetClassNameW(handle, name, static_cast<int>(std::size(name))) > 0 &&
            wcscmp(name, L"#32770") == 0) {
            ++killed_;
            Close(handle);
        }
        return CallNextHookEx(nullptr, code, window, data);
    }
    /// Messages that a nested loop used up are sent again.
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (const HWND dialog = test::OpenDialog(); dialog != nullptr) Close(dialog);
    }

    static inline int killed_ = 0;
    HHOOK hook_ = nullptr;
    UINT_PTR timer_ = 0;
};

}  // namespace dlv::hostile
