// The pictures of the tool bar. Each is drawn from shapes on a grid of 16 by 16 units, larger than it is
// shown and then made smaller, so that it is smooth at every resolution.
#include <algorithm>
#include <array>
#include <initializer_list>

#include "windows/gdi/FacePainter.h"

namespace dlv {

namespace {

constexpr int kUnits = 16;
constexpr int kFiner = 4;

struct Inks {
    COLORREF line;
    COLORREF body;
    COLORREF paper;
    COLORREF accent;
};

Inks InksFor(const Palette& colours, IconState state) {
    if (colours.highContrast) {
        const COLORREF line = state == IconState::Disabled ? colours.disabledText : colours.faceText;
        return {line, colours.face, colours.face, line};
    }
    if (state == IconState::Disabled)
        return {RGB(160, 160, 160), RGB(214, 214, 214), RGB(238, 238, 238), RGB(184, 184, 184)};
    return {RGB(58, 72, 92), RGB(96, 142, 198), RGB(255, 255, 255), RGB(38, 106, 178)};
}

/// Shapes in units of the picture, on a device context that is `size` units times finer.
class Sketch {
public:
    Sketch(HDC dc, int pixels) : dc_(dc), pixels_(pixels) {}

    void Box(double left, double top, double right, double bottom, COLORREF line, COLORREF fill) const {
        Shape(line, fill, [&] { Rectangle(dc_, At(left), At(top), At(right), At(bottom)); });
    }
    void Rounded(double left, double top, double right, double bottom, COLORREF line, COLORREF fill) const {
        Shape(line, fill, [&] { RoundRect(dc_, At(left), At(top), At(right), At(bottom), At(3), At(3)); });
    }
    void Oval(double left, double top, double right, double bottom, COLORREF line, COLORREF fill) const {
        Shape(line, fill, [&] { Ellipse(dc_, At(left), At(top), At(right), At(bottom)); });
    }
    void Shape(std::initializer_list<std::array<double, 2>> corners, COLORREF line, COLORREF fill) const {
        std::array<POINT, 12> points{};
        int count = 0;
        for (const auto& [x, y] : corners) points[static_cast<std::size_t>(count++)] = {At(x), At(y)};
        Shape(line, fill, [&] { Polygon(dc_, points.data(), count); });
    }
    /// A shape whose line is as its ground.
    void Solid(double left, double top, double right, double bottom, COLORREF fill) const {
        Box(left, top, right, bottom, fill, fill);
    }

private:
    int At(double units) const { return static_cast<int>(std::lround(units * pixels_ / kUnits)); }

    template <class Draw>
    void Shape(COLORREF line, COLORREF fill, const Draw& draw) const {
        const Pen pen(CreatePen(PS_SOLID, std::max(1, pixels_ / kUnits), line));
        const Brush brush(CreateSolidBrush(fill));
        const SelectScope selectPen(dc_, pen.Get());
        const SelectScope selectBrush(dc_, brush.Get());
        draw();
    }

    HDC dc_;
    int pixels_;
};

void DrawSave(const Sketch& sketch, const Inks& inks) {
    sketch.Shape({{2, 2}, {12, 2}, {14, 4}, {14, 14}, {2, 14}}, inks.line, inks.body);
    sketch.Box(4.5, 2, 11, 6.5, inks.line, inks.paper);
    sketch.Solid(8.5, 3, 9.5, 5.5, inks.line);
    sketch.Box(4, 8.5, 12, 14, inks.line, inks.paper);
    sketch.Solid(5.5, 10.2, 10.5, 10.7, inks.accent);
    sketch.Solid(5.5, 12, 10.5, 12.5, inks.accent);
}

void DrawPrint(const Sketch& sketch, const Inks& inks) {
    sketch.Box(4, 1.5, 12, 7, inks.line, inks.paper);
    sketch.Rounded(1.5, 5.5, 14.5, 12, inks.line, inks.body);
    sketch.Box(4, 9, 12, 14.5, inks.line, inks.paper);
    sketch.Solid(5.5, 10.8, 10.5, 11.3, inks.accent);
    sketch.Solid(5.5, 12.6, 10.5, 13.1, inks.accent);
    sketch.Solid(12, 7, 12.8, 7.8, inks.paper);
}

void DrawProfiles(const Sketch& sketch, const Inks& inks) {
    sketch.Box(2, 2, 14, 14, inks.line, inks.paper);
    sketch.Solid(2.5, 2.5, 13.5, 4.5, inks.body);
    double top = 6;
    for (const double length : {5.0, 3.5, 4.5}) {
        sketch.Box(4, top, 5.6, top + 1.6, inks.accent, inks.accent);
        sketch.Solid(7, top + 0.6, 7 + length, top + 1.1, inks.line);
        top += 2.6;
    }
}

void DrawAbout(const Sketch& sketch, const Inks& inks) {
    sketch.Oval(1.5, 1.5, 14.5, 14.5, inks.line, inks.accent);
    sketch.Oval(7.1, 3.7, 9.1, 5.7, inks.paper, inks.paper);
    sketch.Solid(7.3, 7, 8.9, 12, inks.paper);
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
    const int fine = size * kFiner;
    const int left = (area.left + area.right - size) / 2;
    const int top = (area.top + area.bottom - size) / 2;
    const MemoryDc memory(canvas.Dc());
    const Bitmap bitmap(CreateCompatibleBitmap(canvas.Dc(), fine, fine));
    const SelectScope select(memory.Get(), bitmap.Get());
    SetStretchBltMode(memory.Get(), HALFTONE);
    const Canvas finer(memory.Get(), canvas.Kept());
    // A metafile gives no pixels back: then the plain ground stands in for what is below.
    finer.Fill({0, 0, fine, fine}, canvas.Colours().face);
    StretchBlt(memory.Get(), 0, 0, fine, fine, canvas.Dc(), left, top, size, size, SRCCOPY);
    draw(Sketch(memory.Get(), fine), InksFor(canvas.Colours(), state));
    SetStretchBltMode(canvas.Dc(), HALFTONE);
    SetBrushOrgEx(canvas.Dc(), 0, 0, nullptr);
    StretchBlt(canvas.Dc(), left, top, size, size, memory.Get(), 0, 0, fine, fine, SRCCOPY);
}

}  // namespace dlv
