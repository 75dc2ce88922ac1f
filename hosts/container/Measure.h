// Sizes as controls and containers agree on them (HIMETRIC, 1/100 mm) and as windows have them.
#pragma once

#include <windows.h>

namespace dlv::container {

inline constexpr int kHimetricPerInch = 2540;

/// Pixels per inch where a window stands.
inline int DpiOf(HWND window) {
    const HDC dc = GetDC(window);
    const int dpi = dc == nullptr ? 0 : GetDeviceCaps(dc, LOGPIXELSX);
    if (dc != nullptr) ReleaseDC(window, dc);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

inline SIZE ToHimetric(const RECT& place, int dpi) {
    return {MulDiv(place.right - place.left, kHimetricPerInch, dpi),
            MulDiv(place.bottom - place.top, kHimetricPerInch, dpi)};
}

}  // namespace dlv::container
