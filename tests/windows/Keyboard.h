// Keys as a host's message loop meets them.
#pragma once

#include "tests/windows/Support.h"

namespace dlv::test {

enum Held : unsigned { kNone = 0, kShift = 1, kCtrl = 2, kAlt = 4 };

/// Holds keys down while it lives, as far as this thread can tell.
class HeldKeys {
public:
    explicit HeldKeys(unsigned held) {
        GetKeyboardState(before_);
        BYTE state[256] = {};
        if (held & kShift) state[VK_SHIFT] = state[VK_LSHIFT] = 0x80;
        if (held & kCtrl) state[VK_CONTROL] = state[VK_LCONTROL] = 0x80;
        if (held & kAlt) state[VK_MENU] = state[VK_LMENU] = 0x80;
        SetKeyboardState(state);
    }
    ~HeldKeys() { SetKeyboardState(before_); }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

private:
    BYTE before_[256] = {};
};

/// A key message for the window with the focus.
inline MSG KeyMessage(UINT message, WPARAM key) {
    static DWORD time = 1000;
    return {GetFocus(), message, key, 1, ++time, {}};
}

/// The one child, at any depth, of that window class; the first that is visible.
HWND FindClass(HWND parent, const wchar_t* className);
/// The caption of a window without the marks of access keys.
std::wstring CaptionOf(HWND window);
/// A visible child with that caption.
HWND FindCaption(HWND parent, const std::wstring& caption);

}  // namespace dlv::test
