#include "hosts/container/WindowList.h"

#include <iterator>

namespace dlv::container {

namespace {

BOOL CALLBACK Collect(HWND window, LPARAM found) {
    reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
    return TRUE;
}

}  // namespace

std::vector<HWND> WindowsInside(HWND parent) {
    std::vector<HWND> found;
    EnumChildWindows(parent, Collect, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::vector<HWND> VisibleInside(HWND parent, const wchar_t* className) {
    std::vector<HWND> found = WindowsInside(parent);
    std::erase_if(found, [className](HWND window) {
        return !IsWindowVisible(window) || lstrcmpiW(ClassOf(window).c_str(), className) != 0;
    });
    return found;
}

std::vector<HWND> WindowsOfThread() {
    std::vector<HWND> found;
    EnumThreadWindows(GetCurrentThreadId(), Collect, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[256] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return name;
}

std::wstring TextOf(HWND window) {
    wchar_t text[512] = {};
    GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    return text;
}

}  // namespace dlv::container
