#include "windows/gdi/Zoom.h"

#include <algorithm>

namespace dlv {

namespace {

constexpr double kDesignPoints = 9;
/// What the room limits grows and shrinks in steps, so that not every pixel of it makes new fonts.
constexpr int kDpiStep = 4;

}  // namespace

Zoom ZoomFor(const Appearance& wanted, int dpi, SIZE room, SIZE least) {
    FontChoice font = wanted.Font();
    if (font.points <= kDesignPoints) return {Scale(dpi), wanted};
    const int byRoom =
        static_cast<int>(std::min(room.cx * kDesignDpi / least.cx, room.cy * kDesignDpi / least.cy));
    const int byFont = static_cast<int>(std::min(dpi * font.points / kDesignPoints, 100.0 * kDesignDpi));
    const int zoomed = byFont <= byRoom ? byFont : byRoom / kDpiStep * kDpiStep;
    font.points = kDesignPoints;
    Zoom zoom{Scale(std::max(dpi, zoomed)), wanted};
    zoom.appearance.font = font;
    return zoom;
}

}  // namespace dlv
