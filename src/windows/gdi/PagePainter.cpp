#include "windows/gdi/PagePainter.h"

#include <algorithm>
#include <cmath>

#include "windows/com/Strings.h"

namespace dlv {

namespace {

constexpr double kDesignPoints = 9;

/// The size of one dot of the device, in the units that are drawn in; at least 1 each.
SIZE DotOf(HDC dc) {
    POINT corners[] = {{0, 0}, {1, 1}};
    DPtoLP(dc, corners, 2);
    return {std::max(1L, corners[1].x - corners[0].x), std::max(1L, corners[1].y - corners[0].y)};
}

UINT FormatOf(const PrintedPage::Text& text) {
    const UINT side = text.alignment == Alignment::Right    ? DT_RIGHT
                      : text.alignment == Alignment::Centre ? DT_CENTER
                                                            : DT_LEFT;
    return side | (text.wraps ? DT_WORDBREAK : DT_SINGLELINE);
}

}  // namespace

void MeasureInTwips(HDC dc, SIZE dotsPerInch, POINT corner) {
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, kTwipsPerInch, kTwipsPerInch, nullptr);
    SetViewportExtEx(dc, dotsPerInch.cx, dotsPerInch.cy, nullptr);
    SetViewportOrgEx(dc, corner.x, corner.y, nullptr);
}

const Look& PagePainter::LookFor(double size) {
    const int unitsPerInch = static_cast<int>(std::lround(kTwipsPerInch * size));
    const auto known = looks_.find(unitsPerInch);
    if (known != looks_.end()) return known->second;
    const Appearance appearance(FontChoice{face_, kDesignPoints});
    return looks_.try_emplace(unitsPerInch, appearance, Scale(unitsPerInch)).first->second;
}

void PagePainter::Paint(HDC dc, const PrintedPage& page) {
    const SIZE dot = DotOf(dc);
    const Scale twips(kTwipsPerInch);
    const Canvas canvas(dc, LookFor(1));
    for (const PrintedPage::Area& area : page.areas) {
        RECT place = twips.ToRect(area.place);
        place.right = std::max(place.right, place.left + dot.cx);
        place.bottom = std::max(place.bottom, place.top + dot.cy);
        canvas.Fill(place, area.colour);
    }
    for (const PrintedPage::Text& text : page.texts) Write(dc, text);
}

void PagePainter::Write(HDC dc, const PrintedPage::Text& text) {
    RECT place = Scale(kTwipsPerInch).ToRect(text.place);
    // A line may be a little higher than its row in some faces; that alone is no reason for smaller letters.
    if (!text.wraps) InflateRect(&place, 0, (place.bottom - place.top) / 8);
    Canvas(dc, LookFor(text.size))
        .TextWithin(place, Wide(text.text), text.bold ? Weight::Bold : Weight::Regular, RGB(0, 0, 0),
                    FormatOf(text), Canvas::Upright::Middle);
}

}  // namespace dlv
