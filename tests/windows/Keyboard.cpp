#include "tests/windows/Keyboard.h"

#include "hosts/container/WindowList.h"

namespace dlv::test {

HWND FindClass(HWND parent, const wchar_t* className) {
    const std::vector<HWND> found = container::VisibleInside(parent, className);
    return found.empty() ? nullptr : found.front();
}

std::wstring CaptionOf(HWND window) {
    wchar_t text[128] = {};
    GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    std::wstring plain;
    for (const wchar_t* at = text; *at != L'\0'; ++at) {
        if (*at == L'&' && at[1] != L'\0') ++at;
        plain += *at;
    }
    return plain;
}

HWND FindCaption(HWND parent, const std::wstring& caption) {
    for (const HWND child : container::WindowsInside(parent))
        if (IsWindowVisible(child) && CaptionOf(child) == caption) return child;
    return nullptr;
}

}  // namespace dlv::test
