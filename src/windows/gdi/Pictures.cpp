#include "windows/gdi/Pictures.h"

#include "windows/gdi/Sketch.h"

namespace dlv {

namespace {

struct Inks {
    COLORREF ground;
    COLORREF mark;
    COLORREF accent;
    COLORREF text;
};

Inks InksFor(const Palette& colours) {
    if (colours.highContrast) return {colours.faceText, colours.face, colours.face, colours.faceText};
    return {RGB(31, 82, 148), RGB(255, 255, 255), RGB(255, 186, 73), RGB(31, 62, 102)};
}

/// Three columns and a line that rises above them, on a tile 72 units wide.
void DrawLogo(const Sketch& sketch, const Inks& inks) {
    sketch.Rounded(4, 4, 68, 68, 12, inks.ground);
    sketch.Rounded(16, 42, 26, 58, 2, inks.mark);
    sketch.Rounded(31, 34, 41, 58, 2, inks.mark);
    sketch.Rounded(46, 26, 56, 58, 2, inks.mark);
    sketch.Stroke({{16, 32}, {30, 24}, {40, 27}, {56, 14}}, 4, inks.accent);
}

/// The product's name over a line, 200 units wide.
void DrawName(const Sketch& sketch, const Inks& inks) {
    const double end = sketch.Text(0, 0, 23, FW_BOLD, L"Dashlon", inks.text);
    sketch.Text(end + 5, 0, 23, FW_NORMAL, L"Viewer", inks.text);
    sketch.Rounded(1, 34, 60, 37, 1.5, inks.ground);
    sketch.Rounded(64, 34, 84, 37, 1.5, inks.accent == inks.mark ? inks.text : inks.accent);
}

}  // namespace

void DrawPicture(const Canvas& canvas, const std::string& picture, const RECT& area) {
    const Inks inks = InksFor(canvas.Colours());
    if (picture == "AboutLogo")
        Sketch::Draw(canvas, area, 72, [&](const Sketch& sketch) { DrawLogo(sketch, inks); });
    if (picture == "AboutName")
        Sketch::Draw(canvas, area, 200, [&](const Sketch& sketch) { DrawName(sketch, inks); });
}

}  // namespace dlv
