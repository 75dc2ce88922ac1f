// What everything is drawn with: a device context, the fonts and colours for it, and the few ways in which
// text and areas are drawn in this control.
#pragma once

#include "windows/com/PlainWindows.h"

#include <string>

#include "windows/gdi/Fonts.h"
#include "windows/gdi/Palette.h"

namespace dlv {

/// Everything but the device context: what one surface keeps between two paintings.
struct Look {
    Scale scale;
    Fonts fonts;
    Palette palette;

    Look(const Appearance& wanted, Scale newScale)
        : scale(newScale), fonts(wanted.Font(), newScale), palette(Palette::Current(wanted)) {}
};

class Canvas {
public:
    Canvas(HDC dc, const Look& look) : dc_(dc), look_(look) {}

    HDC Dc() const { return dc_; }
    const Palette& Colours() const { return look_.palette; }
    const Fonts& Faces() const { return look_.fonts; }
    int Scaled(int designPixels) const { return look_.scale(designPixels); }
    Scale Measure() const { return look_.scale; }
    const Look& Kept() const { return look_; }

    void Fill(const RECT& area, COLORREF colour) const;
    /// A line of `colour` along the inside of the area's edges.
    void Outline(const RECT& area, COLORREF colour, int width = 1) const;
    /// Text with a clear ground; `format` as for DrawText. Nothing in the text is a prefix.
    void Text(RECT area, const std::wstring& text, Weight weight, COLORREF colour, UINT format) const;
    enum class Upright { Top, Middle };
    /// Text that is made smaller where it would be cut, and only cut where that does not help: one line at
    /// its own size then. `format` says whether it may take several lines; it is smaller by `leastStep` steps
    /// at any rate. `marked` is the text with "&" before the letter that is underlined, if one is.
    void TextWithin(const RECT& area, const std::wstring& text, Weight weight, COLORREF colour, UINT format,
                    Upright upright, int leastStep = 0, const std::wstring& marked = {}) const;
    /// By how many steps TextWithin makes a text smaller.
    int StepWithin(const RECT& area, const std::wstring& text, Weight weight, UINT format) const;
    int TextWidth(const std::wstring& text, Weight weight) const;

private:
    SIZE Needed(const RECT& area, const std::wstring& text, HFONT font, UINT format) const;

    HDC dc_;
    const Look& look_;
};

}  // namespace dlv
