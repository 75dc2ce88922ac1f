// How a container wants the control to look. What it leaves open is the system's.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>

#include "windows/gdi/Fonts.h"

namespace dlv {

/// A colour as containers give it: 0x00BBGGRR, or the system's with the number in the low byte under
/// 0x80000000.
using ContainerColour = std::uint32_t;

struct Appearance {
    Appearance() = default;
    // A font alone is an appearance.
    Appearance(FontChoice choice) : font(std::move(choice)) {}

    FontChoice Font() const { return font ? *font : DefaultFont(); }

    std::optional<FontChoice> font{};
    std::optional<ContainerColour> ground{};
    std::optional<ContainerColour> ink{};
    bool operator==(const Appearance&) const = default;
};

}  // namespace dlv
