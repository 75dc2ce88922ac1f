#include "windows/com/Extent.h"

#include <algorithm>

#include "windows/gdi/Scale.h"

namespace dlv {

int ScreenDpi() noexcept {
    const HDC screen = GetDC(nullptr);
    const int dpi = screen == nullptr ? 0 : GetDeviceCaps(screen, LOGPIXELSX);
    if (screen != nullptr) ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

SIZE ToPixels(SIZE himetric, int dpi) noexcept {
    return {MulDiv(himetric.cx, dpi, kHimetricPerInch), MulDiv(himetric.cy, dpi, kHimetricPerInch)};
}

SIZE ToHimetric(SIZE pixels, int dpi) noexcept {
    return {MulDiv(pixels.cx, kHimetricPerInch, dpi), MulDiv(pixels.cy, kHimetricPerInch, dpi)};
}

double Extent::TwipsWide() const noexcept {
    return static_cast<double>(himetric_.cx) * kTwipsPerInch / kHimetricPerInch;
}

double Extent::TwipsHigh() const noexcept {
    return static_cast<double>(himetric_.cy) * kTwipsPerInch / kHimetricPerInch;
}

bool Extent::SetHimetric(SIZE size) noexcept {
    size = {std::max(size.cx, LONG{0}), std::max(size.cy, LONG{0})};
    if (size.cx == himetric_.cx && size.cy == himetric_.cy) return false;
    himetric_ = size;
    return true;
}

bool Extent::SetPixels(SIZE size, int dpi) noexcept {
    const SIZE present = Pixels(dpi);
    if (size.cx == present.cx && size.cy == present.cy) return false;
    return SetHimetric(ToHimetric(size, dpi));
}

}  // namespace dlv
