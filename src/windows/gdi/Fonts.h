// The fonts of one surface: regular and bold in the size that its resolution asks for, and smaller ones for
// text that has to keep within bounds.
#pragma once

#include "windows/com/PlainWindows.h"

#include <array>
#include <string>

#include "windows/gdi/Handles.h"
#include "windows/gdi/Scale.h"

namespace dlv {

enum class Weight { Regular, Bold };

struct FontChoice {
    std::wstring face = L"Segoe UI";
    double points = 9;
    bool operator==(const FontChoice&) const = default;
};

/// The font that the user has for messages and dialogs.
FontChoice DefaultFont();

class Fonts {
public:
    Fonts(const FontChoice& choice, Scale scale);

    HFONT Get(Weight weight) const { return Smaller(weight, 0); }
    HFONT Regular() const { return Get(Weight::Regular); }
    /// Smaller step by step, up to `kSmallest`; 0 is the font's own size.
    HFONT Smaller(Weight weight, int step) const;
    static constexpr int kSmallest = 3;
    /// From the top of a line of text to that of the next, in pixels.
    int LineHeight() const { return lineHeight_; }
    /// Width of one line of text in pixels.
    int TextWidth(std::wstring_view text, Weight weight) const;

private:
    using Sizes = std::array<Font, kSmallest + 1>;

    FontChoice choice_;
    Scale scale_;
    // Smaller ones are made when they are asked for.
    mutable std::array<Sizes, 2> fonts_;
    int lineHeight_ = 0;
};

}  // namespace dlv
