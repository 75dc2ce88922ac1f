#include "tests/windows/Keyboard.h"

#include "hosts/container/WindowList.h"

namespace dlv::test {

namespace {

HWND FirstVisible(HWND parent, std::function<bool(HWND)> wanted) {
    for (const HWND child : container::WindowsInside(parent))
        if (IsWindowVisible(child) && wanted(child)) return child;
    return nullptr;
}

}  // namespace

HWND FindClass(HWND parent, const wchar_t* className) {
    return FirstVisible(parent, [className](HWND child) {
        wchar_t name[64] = {};
        GetClassNameW(child, name, static_cast<int>(std::size(name)));
        return _wcsicmp(name, className) == 0;
    });
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
    return FirstVisible(parent, [&](HWND child) { return CaptionOf(child) == caption; });
}

}  // namespace dlv::test
