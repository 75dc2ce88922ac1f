// From twips to the pixels of a screen or printer and back.
#pragma once

#include "windows/com/PlainWindows.h"

#include <cmath>

#include "widgets/Control.h"

namespace dlv {

inline constexpr int kDesignDpi = 96;
inline constexpr int kTwipsPerInch = 1440;

class Scale {
public:
    explicit Scale(int dpi = kDesignDpi) : dpi_(dpi) {}

    int Dpi() const { return dpi_; }
    int ToPixels(double twips) const { return static_cast<int>(std::lround(twips * dpi_ / kTwipsPerInch)); }
    double ToTwips(int pixels) const { return static_cast<double>(pixels) * kTwipsPerInch / dpi_; }
    /// A measure given in pixels of a screen with 96 dots per inch.
    int operator()(int designPixels) const { return MulDiv(designPixels, dpi_, kDesignDpi); }
    /// Edges are rounded each by itself, so that what touches in twips touches in pixels.
    RECT ToRect(const Bounds& bounds) const {
        return {ToPixels(bounds.left), ToPixels(bounds.top), ToPixels(bounds.left + bounds.width),
                ToPixels(bounds.top + bounds.height)};
    }

private:
    int dpi_;
};

}  // namespace dlv
