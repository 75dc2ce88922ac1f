#include "windows/gdi/Sketch.h"

#include <algorithm>
#include <array>

namespace dlv {

namespace {

constexpr std::size_t kMostPoints = 12;

/// A bitmap whose pixels can be read and written.
class Raster {
public:
    Raster(HDC like, int width, int height) : width_(width), height_(height), dc_(like) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = Bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        bits_ = static_cast<RGBQUAD*>(bits);
        before_ = SelectObject(dc_.Get(), bitmap_.Get());
    }
    ~Raster() { SelectObject(dc_.Get(), before_); }
    Raster(const Raster&) = delete;
    Raster& operator=(const Raster&) = delete;

    HDC Dc() const { return dc_.Get(); }
    RGBQUAD& At(int x, int y) const { return bits_[y * width_ + x]; }
    int Width() const { return width_; }
    int Height() const { return height_; }

private:
    int width_;
    int height_;
    MemoryDc dc_;
    Bitmap bitmap_;
    RGBQUAD* bits_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

/// Of the pixels that one is shown for.
RGBQUAD Average(const Raster& fine, int finer, int x, int y) {
    int blue = 0;
    int green = 0;
    int red = 0;
    for (int dy = 0; dy < finer; ++dy)
        for (int dx = 0; dx < finer; ++dx) {
            const RGBQUAD& pixel = fine.At(x * finer + dx, y * finer + dy);
            blue += pixel.rgbBlue;
            green += pixel.rgbGreen;
            red += pixel.rgbRed;
        }
    const int count = finer * finer;
    const auto mean = [count](int sum) { return static_cast<BYTE>((sum + count / 2) / count); };
    return {mean(blue), mean(green), mean(red), 0};
}

}  // namespace

void Sketch::Draw(const Canvas& canvas, const RECT& area, double unitsWide,
                  const std::function<void(const Sketch&)>& draw) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    if (width <= 0 || height <= 0) return;
    const Raster shown(canvas.Dc(), width, height);
    const Raster fine(canvas.Dc(), width * kFiner, height * kFiner);
    // A metafile gives no pixels back: then the plain ground stands in for what is below.
    Canvas(fine.Dc(), canvas.Kept()).Fill({0, 0, fine.Width(), fine.Height()}, canvas.Colours().face);
    SetStretchBltMode(fine.Dc(), COLORONCOLOR);
    StretchBlt(fine.Dc(), 0, 0, fine.Width(), fine.Height(), canvas.Dc(), area.left, area.top, width, height,
               SRCCOPY);
    draw(Sketch(fine.Dc(), fine.Width() / unitsWide));
    GdiFlush();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) shown.At(x, y) = Average(fine, kFiner, x, y);
    BitBlt(canvas.Dc(), area.left, area.top, width, height, shown.Dc(), 0, 0, SRCCOPY);
}

template <class Figure>
void Sketch::Fill(COLORREF colour, const Figure& figure) const {
    const Brush brush(CreateSolidBrush(colour));
    const SelectScope pen(dc_, GetStockObject(NULL_PEN));
    const SelectScope fill(dc_, brush.Get());
    figure();
}

template <class Figure>
void Sketch::Outline(double width, COLORREF colour, const Figure& figure) const {
    const LOGBRUSH ink{BS_SOLID, colour, 0};
    const Pen pen(ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                               static_cast<DWORD>(std::max(1, At(width))), &ink, 0, nullptr));
    const SelectScope line(dc_, pen.Get());
    const SelectScope fill(dc_, GetStockObject(NULL_BRUSH));
    figure();
}

void Sketch::Box(double left, double top, double right, double bottom, COLORREF fill) const {
    const RECT area{Edge(left), Edge(top), Edge(right), Edge(bottom)};
    const Brush brush(CreateSolidBrush(fill));
    FillRect(dc_, &area, brush.Get());
}

// Without a pen a figure ends a pixel before its right and lower edges.
void Sketch::Rounded(double left, double top, double right, double bottom, double radius,
                     COLORREF fill) const {
    Fill(fill, [&] {
        RoundRect(dc_, Edge(left), Edge(top), Edge(right) + 1, Edge(bottom) + 1, At(2 * radius),
                  At(2 * radius));
    });
}

void Sketch::Oval(double left, double top, double right, double bottom, COLORREF fill) const {
    Fill(fill, [&] { Ellipse(dc_, At(left), At(top), At(right) + 1, At(bottom) + 1); });
}

void Sketch::Shape(std::initializer_list<Point> corners, COLORREF fill) const {
    std::array<POINT, kMostPoints> points{};
    int count = 0;
    for (const Point& corner : corners)
        points[static_cast<std::size_t>(count++)] = {Edge(corner.x), Edge(corner.y)};
    Fill(fill, [&] { Polygon(dc_, points.data(), count); });
}

void Sketch::Stroke(std::initializer_list<Point> through, double width, COLORREF colour) const {
    std::array<POINT, kMostPoints> points{};
    int count = 0;
    for (const Point& point : through) points[static_cast<std::size_t>(count++)] = {At(point.x), At(point.y)};
    Outline(width, colour, [&] { Polyline(dc_, points.data(), count); });
}

void Sketch::Arc(const Point& corner, const Point& opposite, const Point& from, const Point& to, double width,
                 COLORREF colour) const {
    Outline(width, colour, [&] {
        ::Arc(dc_, At(corner.x), At(corner.y), At(opposite.x), At(opposite.y), At(from.x), At(from.y),
              At(to.x), At(to.y));
    });
}

double Sketch::Text(double left, double top, double height, int weight, const std::wstring& text,
                    COLORREF colour) const {
    const Font font(CreateFontW(-At(height), 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, NONANTIALIASED_QUALITY, DEFAULT_PITCH,
                                DefaultFont().face.c_str()));
    const SelectScope select(dc_, font.Get());
    SetTextColor(dc_, colour);
    SetBkMode(dc_, TRANSPARENT);
    TextOutW(dc_, At(left), At(top), text.c_str(), static_cast<int>(text.size()));
    SIZE size{};
    GetTextExtentPoint32W(dc_, text.c_str(), static_cast<int>(text.size()), &size);
    return left + size.cx / scale_;
}

}  // namespace dlv
