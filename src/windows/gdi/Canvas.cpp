#include "windows/gdi/Canvas.h"

#include <algorithm>

namespace dlv {

void Canvas::Fill(const RECT& area, COLORREF colour) const {
    SetBkColor(dc_, colour);
    ExtTextOutW(dc_, area.left, area.top, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

void Canvas::Outline(const RECT& area, COLORREF colour, int width) const {
    Fill({area.left, area.top, area.right, area.top + width}, colour);
    Fill({area.left, area.bottom - width, area.right, area.bottom}, colour);
    Fill({area.left, area.top, area.left + width, area.bottom}, colour);
    Fill({area.right - width, area.top, area.right, area.bottom}, colour);
}

void Canvas::Text(RECT area, const std::wstring& text, Weight weight, COLORREF colour, UINT format) const {
    if (text.empty()) return;
    const SelectScope font(dc_, look_.fonts.Get(weight));
    SetTextColor(dc_, colour);
    SetBkMode(dc_, TRANSPARENT);
    DrawTextW(dc_, text.c_str(), static_cast<int>(text.size()), &area, format | DT_NOPREFIX);
}

void Canvas::TextWithin(const RECT& area, const std::wstring& text, Weight weight, COLORREF colour,
                        UINT format, Upright upright) const {
    if (text.empty()) return;
    const int length = static_cast<int>(text.size());
    SetTextColor(dc_, colour);
    SetBkMode(dc_, TRANSPARENT);
    for (int step = 0; step <= Fonts::kSmallest; ++step) {
        const SelectScope font(dc_, look_.fonts.Smaller(weight, step));
        RECT needed = area;
        DrawTextW(dc_, text.c_str(), length, &needed, format | DT_NOPREFIX | DT_CALCRECT);
        const LONG height = needed.bottom - needed.top;
        const bool fits =
            needed.right - needed.left <= area.right - area.left && height <= area.bottom - area.top;
        if (!fits && step < Fonts::kSmallest) continue;
        RECT place = area;
        if (upright == Upright::Middle) place.top += std::max(0L, (area.bottom - area.top - height) / 2);
        DrawTextW(dc_, text.c_str(), length, &place, format | DT_NOPREFIX | DT_END_ELLIPSIS);
        return;
    }
}

int Canvas::TextWidth(const std::wstring& text, Weight weight) const {
    const SelectScope font(dc_, look_.fonts.Get(weight));
    SIZE size{};
    GetTextExtentPoint32W(dc_, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace dlv
