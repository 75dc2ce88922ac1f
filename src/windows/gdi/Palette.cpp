#include "windows/gdi/Palette.h"

namespace dlv {

namespace {

int Lightness(COLORREF colour) { return 3 * GetRValue(colour) + 6 * GetGValue(colour) + GetBValue(colour); }

// Light text on a dark window asks for the same, whether the system calls it high contrast or not: the pale
// colours of the grids would glare on it.
bool InHighContrast() {
    if (Lightness(GetSysColor(COLOR_WINDOW)) < Lightness(GetSysColor(COLOR_WINDOWTEXT))) return true;
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

/// `share` parts of a hundred of `over`, the rest of `ground`.
COLORREF Mix(COLORREF over, COLORREF ground, int share) {
    const auto part = [&](int a, int b) { return static_cast<BYTE>((a * share + b * (100 - share)) / 100); };
    return RGB(part(GetRValue(over), GetRValue(ground)), part(GetGValue(over), GetGValue(ground)),
               part(GetBValue(over), GetBValue(ground)));
}

COLORREF Resolve(ContainerColour colour) {
    constexpr ContainerColour kSystem = 0x80000000u;
    return (colour & kSystem) != 0 ? GetSysColor(static_cast<int>(colour & 0xFF)) : colour & 0xFFFFFF;
}

}  // namespace

Palette Palette::Current(const Appearance& wanted) {
    Palette palette{};
    palette.highContrast = InHighContrast();
    palette.face = GetSysColor(COLOR_BTNFACE);
    palette.faceText = GetSysColor(COLOR_BTNTEXT);
    if (!palette.highContrast) {
        if (wanted.ground) palette.face = Resolve(*wanted.ground);
        if (wanted.ink) palette.faceText = Resolve(*wanted.ink);
    }
    palette.disabledText = GetSysColor(COLOR_GRAYTEXT);
    palette.window = GetSysColor(COLOR_WINDOW);
    palette.windowText = GetSysColor(COLOR_WINDOWTEXT);
    palette.selected = GetSysColor(COLOR_HIGHLIGHT);
    palette.selectedText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    if (palette.highContrast) {
        palette.resting = palette.selected;
        palette.restingText = palette.selectedText;
        palette.gridLine = palette.headerLine = palette.outline = palette.edge = palette.windowText;
    } else {
        palette.resting = Mix(palette.windowText, palette.window, 15);
        palette.restingText = palette.windowText;
        palette.gridLine = Mix(palette.windowText, palette.window, 22);
        palette.headerLine = Mix(palette.windowText, palette.window, 45);
        palette.outline = Mix(palette.windowText, palette.window, 50);
        palette.edge = Mix(palette.faceText, palette.face, 22);
    }
    return palette;
}

}  // namespace dlv
