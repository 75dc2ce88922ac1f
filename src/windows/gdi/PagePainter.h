// Draws printed pages on a device context whose unit is the twip: a printer's, a metafile's.
#pragma once

#include "windows/com/PlainWindows.h"

#include <map>

#include "widgets/Output.h"
#include "windows/gdi/Canvas.h"

namespace dlv {

/// Makes the twip the unit of a device context, counted from `corner` in the device's own pixels.
void MeasureInTwips(HDC dc, SIZE dotsPerInch, POINT corner);

class PagePainter {
public:
    /// The font's face is what pages are written in; its size is that of the control's design.
    explicit PagePainter(const FontChoice& font) : face_(font.face) {}

    /// Lines thinner than a dot of the device are drawn one dot wide.
    void Paint(HDC dc, const PrintedPage& page);

private:
    void Write(HDC dc, const PrintedPage::Text& text);
    const Look& LookFor(double size);

    std::wstring face_;
    std::map<int, Look> looks_;
};

}  // namespace dlv
