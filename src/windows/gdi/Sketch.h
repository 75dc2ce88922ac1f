// Shapes on a grid of units, drawn four times finer than they are shown and then averaged, so that they are
// smooth at every resolution and under every version of Windows.
#pragma once

#include "windows/com/PlainWindows.h"

#include <cmath>
#include <functional>
#include <initializer_list>
#include <string>

#include "windows/gdi/Canvas.h"

namespace dlv {

class Sketch {
public:
    struct Point {
        double x;
        double y;
    };

    /// Draws over what stands in `area` already, which is `unitsWide` units wide.
    static void Draw(const Canvas& canvas, const RECT& area, double unitsWide,
                     const std::function<void(const Sketch&)>& draw);

    void Box(double left, double top, double right, double bottom, COLORREF fill) const;
    void Rounded(double left, double top, double right, double bottom, double radius, COLORREF fill) const;
    void Oval(double left, double top, double right, double bottom, COLORREF fill) const;
    void Shape(std::initializer_list<Point> corners, COLORREF fill) const;
    /// A line of that width through all points, with round ends.
    void Stroke(std::initializer_list<Point> points, double width, COLORREF colour) const;
    /// Part of an oval's edge, counterclockwise.
    void Arc(const Point& corner, const Point& opposite, const Point& from, const Point& to, double width,
             COLORREF colour) const;
    /// One line of text whose letters are `height` high; returns where it ends.
    double Text(double left, double top, double height, int weight, const std::wstring& text,
                COLORREF colour) const;

private:
    static constexpr int kFiner = 4;
    Sketch(HDC dc, double pixelsPerUnit) : dc_(dc), scale_(pixelsPerUnit) {}
    int At(double units) const { return static_cast<int>(std::lround(units * scale_)); }
    /// On the border between two pixels that are shown, so that straight edges are sharp.
    int Edge(double units) const {
        return kFiner * static_cast<int>(std::floor(units * scale_ / kFiner + 0.5));
    }
    template <class Figure>
    void Fill(COLORREF colour, const Figure& figure) const;
    template <class Figure>
    void Outline(double width, COLORREF colour, const Figure& figure) const;

    HDC dc_;
    double scale_;
};

}  // namespace dlv
