// How large everything is shown: places and sizes on a form are made for a font of 9 points, so a larger font
// enlarges all of it, as far as the room allows.
#pragma once

#include "windows/com/PlainWindows.h"

#include "windows/gdi/Appearance.h"
#include "windows/gdi/Scale.h"

namespace dlv {

/// A scale, and an appearance whose font has the size that suits it.
struct Zoom {
    Scale scale{};
    Appearance appearance{};
    bool operator==(const Zoom& other) const {
        return scale.Dpi() == other.scale.Dpi() && appearance == other.appearance;
    }
};

/// What the control needs at least, in pixels of a screen with 96 dots per inch.
inline constexpr SIZE kLeastControlSize{856, 420};

/// The zoom for the font that is wanted, at that resolution, at which `least` still fits into `room` pixels.
/// Never smaller than the resolution asks for: then the room does not suffice for any font.
Zoom ZoomFor(const Appearance& wanted, int dpi, SIZE room, SIZE least);

}  // namespace dlv
