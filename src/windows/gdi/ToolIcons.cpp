// The pictures of the tool bar, on a grid of 16 by 16 units: a unit is a pixel where the resolution is 96.
#include "windows/gdi/FacePainter.h"
#include "windows/gdi/Sketch.h"

namespace dlv {

namespace {

constexpr int kUnits = 16;

struct Inks {
    COLORREF line;
    COLORREF body;
    COLORREF paper;
};

Inks InksFor(const Palette& colours, IconState state) {
    const bool disabled = state == IconState::Disabled;
    if (colours.highContrast) {
        const COLORREF ink = disabled ? colours.disabledText : colours.faceText;
        return {ink, ink, colours.face};
    }
    if (disabled) return {RGB(150, 150, 150), RGB(176, 176, 176), RGB(244, 244, 244)};
    return {RGB(64, 72, 84), RGB(38, 106, 178), RGB(255, 255, 255)};
}

void DrawSave(const Sketch& sketch, const Inks& inks) {
    sketch.Shape({{2, 2}, {12, 2}, {14, 4}, {14, 14}, {2, 14}}, inks.body);
    sketch.Box(5, 2, 11, 6, inks.paper);
    sketch.Box(8, 3, 10, 5, inks.body);
    sketch.Box(4, 8, 12, 14, inks.paper);
    sketch.Box(6, 10, 10, 11, inks.body);
    sketch.Box(6, 12, 10, 13, inks.body);
}

void DrawPrint(const Sketch& sketch, const Inks& inks) {
    sketch.Box(4, 1, 12, 6, inks.line);
    sketch.Box(5, 2, 11, 6, inks.paper);
    sketch.Rounded(1, 5, 15, 12, 1, inks.body);
    sketch.Box(12, 7, 13, 8, inks.paper);
    sketch.Box(3, 9, 13, 10, inks.paper);
    sketch.Box(4, 10, 12, 15, inks.line);
    sketch.Box(5, 10, 11, 14, inks.paper);
    sketch.Box(6, 11, 10, 12, inks.line);
}

void DrawProfiles(const Sketch& sketch, const Inks& inks) {
    sketch.Oval(2, 1.5, 8, 7.5, inks.body);
    sketch.Rounded(0.5, 8.5, 9.5, 14, 3.5, inks.body);
    sketch.Box(0.5, 12, 9.5, 14, inks.body);
    for (const double top : {3.0, 7.0, 11.0}) sketch.Box(11, top, 16, top + 2, inks.line);
}

void DrawAbout(const Sketch& sketch, const Inks& inks) {
    sketch.Oval(1, 1, 15, 15, inks.body);
    sketch.Arc({5.4, 3.6}, {10.6, 8.6}, {8, 8.6}, {5.4, 6.1}, 1.7, inks.paper);
    sketch.Stroke({{8, 8.6}, {8, 9.4}}, 1.7, inks.paper);
    sketch.Oval(7, 11, 9, 13, inks.paper);
}

}  // namespace

void DrawToolIcon(const Canvas& canvas, const std::string& key, const RECT& area, IconState state) {
    using Draw = void (*)(const Sketch&, const Inks&);
    const Draw draw = key == "SaveGrid"    ? DrawSave
                      : key == "PrintGrid" ? DrawPrint
                      : key == "Profiles"  ? DrawProfiles
                      : key == "Help"      ? DrawAbout
                                           : nullptr;
    if (draw == nullptr) return;
    const int size = canvas.Scaled(kUnits);
    const int left = (area.left + area.right - size) / 2;
    const int top = (area.top + area.bottom - size) / 2;
    Sketch::Draw(canvas, {left, top, left + size, top + size}, kUnits,
                 [&](const Sketch& sketch) { draw(sketch, InksFor(canvas.Colours(), state)); });
}

}  // namespace dlv
