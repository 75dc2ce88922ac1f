// The windows inside a window, as an onlooker finds them.
#pragma once

#include <windows.h>

#include <vector>

namespace dlv::demo {

/// All windows of a class that are to be seen, at any depth.
std::vector<HWND> VisibleChildren(HWND parent, const wchar_t* className);

}  // namespace dlv::demo
