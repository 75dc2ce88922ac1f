// The control's dialogs as a person meets them: found on the screen, read, and closed.
#pragma once

#include "tests/windows/Support.h"

namespace dlv::test {

/// A visible child of that text, at any depth; null when there is none.
HWND FindChild(HWND parent, const std::wstring& text);
/// The dialog that is open on this thread; null when none is.
HWND OpenDialog();
/// Presses the left button over a window's middle and lets it go.
void Click(HWND window);

/// Looks for a dialog every few milliseconds, in whatever message loop this thread is, and calls back for
/// each that opens.
class DialogWatch {
public:
    explicit DialogWatch(std::function<void(HWND dialog)> found);
    ~DialogWatch();
    DialogWatch(const DialogWatch&) = delete;
    DialogWatch& operator=(const DialogWatch&) = delete;

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);

    static inline DialogWatch* current_ = nullptr;
    std::function<void(HWND)> found_;
    UINT_PTR timer_ = 0;
    HWND last_ = nullptr;
};

/// Notes what each dialog says and closes it.
class DialogCloser {
public:
    DialogCloser();
    int Closed() const { return closed_; }
    const std::vector<std::wstring>& Texts() const { return texts_; }
    bool Showed(const std::wstring& text) const;

private:
    int closed_ = 0;
    std::vector<std::wstring> texts_;
    DialogWatch watch_;
};

}  // namespace dlv::test
