// The windows that an onlooker finds: inside a window, or of this thread.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace dlv::container {

/// At any depth, in their order on the screen.
std::vector<HWND> WindowsInside(HWND parent);
/// Those of a class that are to be seen.
std::vector<HWND> VisibleInside(HWND parent, const wchar_t* className);
/// The windows of this thread that stand in no other.
std::vector<HWND> WindowsOfThread();

std::wstring ClassOf(HWND window);
/// The first 511 characters.
std::wstring TextOf(HWND window);

}  // namespace dlv::container
