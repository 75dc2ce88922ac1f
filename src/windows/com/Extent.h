// The control's size: in HIMETRIC (1/100 mm) as containers agree on it, in pixels of a screen as windows have
// it, in twips as the layout counts.
#pragma once

#include "windows/com/PlainWindows.h"

namespace dlv {

inline constexpr int kHimetricPerInch = 2540;

/// Pixels per inch of the screen as the process sees it.
int ScreenDpi() noexcept;

SIZE ToPixels(SIZE himetric, int dpi) noexcept;
SIZE ToHimetric(SIZE pixels, int dpi) noexcept;

class Extent {
public:
    SIZE Himetric() const noexcept { return himetric_; }
    SIZE Pixels(int dpi) const noexcept { return ToPixels(himetric_, dpi); }
    double TwipsWide() const noexcept;
    double TwipsHigh() const noexcept;

    /// False, and no change, for the size that it has. Negative sizes count as 0.
    bool SetHimetric(SIZE size) noexcept;
    /// The same for a window's size. A size that comes to the same pixels leaves the extent as it is, so that
    /// a container gets back exactly what it set.
    bool SetPixels(SIZE size, int dpi) noexcept;

private:
    // 960 x 640 pixels at 96 dpi.
    SIZE himetric_{25400, 16933};
};

}  // namespace dlv
