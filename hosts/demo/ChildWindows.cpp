#include "hosts/demo/ChildWindows.h"

namespace dlv::demo {

namespace {

struct Search {
    const wchar_t* className;
    std::vector<HWND> found;
};

BOOL CALLBACK Look(HWND window, LPARAM lParam) {
    auto& search = *reinterpret_cast<Search*>(lParam);
    wchar_t name[64] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (IsWindowVisible(window) && lstrcmpiW(name, search.className) == 0) search.found.push_back(window);
    return TRUE;
}

}  // namespace

std::vector<HWND> VisibleChildren(HWND parent, const wchar_t* className) {
    Search search{className, {}};
    EnumChildWindows(parent, Look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace dlv::demo
