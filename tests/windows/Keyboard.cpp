#include "tests/windows/Keyboard.h"

namespace dlv::test {

namespace {

struct Search {
    std::function<bool(HWND)> wanted;
    HWND found = nullptr;
};

HWND FirstVisible(HWND parent, std::function<bool(HWND)> wanted) {
    Search search{std::move(wanted)};
    EnumChildWindows(
        parent,
        [](HWND child, LPARAM data) -> BOOL {
            auto& sought = *reinterpret_cast<Search*>(data);
            if (!IsWindowVisible(child) || !sought.wanted(child)) return TRUE;
            sought.found = child;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
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
