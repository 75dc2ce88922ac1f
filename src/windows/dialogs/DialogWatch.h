// Closes a dialog of the system's, and whatever that dialog has opened, when the control ends: nobody else
// can reach the message loop that such a dialog runs.
#pragma once

#include "windows/com/PlainWindows.h"

#include "windows/com/WindowHost.h"

namespace dlv {

/// While it lives, the next dialog that this thread opens is watched. Watches may be nested.
class DialogWatch {
public:
    /// How a dialog takes that it has to go.
    enum class Closing {
        /// As when a button is pressed: for message boxes, of which some have no way to be cancelled.
        Pressed,
        /// As when a person cancels it.
        Cancelled
    };

    /// `answer` is the button that counts as pressed.
    DialogWatch(WindowHost& host, Closing closing, int answer = IDCANCEL);
    ~DialogWatch();
    DialogWatch(const DialogWatch&) = delete;
    DialogWatch& operator=(const DialogWatch&) = delete;

private:
    static LRESULT CALLBACK NoteDialog(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK LookForEnd(int code, WPARAM wParam, LPARAM lParam);
    void Close();

    static thread_local DialogWatch* current_;
    WindowHost& host_;
    Closing closing_;
    int answer_;
    DialogWatch* before_;
    HHOOK found_ = nullptr;
    HHOOK messages_ = nullptr;
    HWND dialog_ = nullptr;
    bool cancelled_ = false;
};

}  // namespace dlv
