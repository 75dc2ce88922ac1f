// A picture of a window with everything in it, as a PNG file.
#pragma once

#include <windows.h>

#include <string>

namespace dlv::demo {

/// The window must be on the screen, with nothing before it. False when the file cannot be written.
bool SavePicture(HWND window, const std::wstring& path);

}  // namespace dlv::demo
