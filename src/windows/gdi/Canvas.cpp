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

SIZE Canvas::Needed(const RECT& area, const std::wstring& text, HFONT font, UINT format) const {
    const SelectScope selected(dc_, font);
    RECT needed = area;
    DrawTextW(dc_, text.c_str(), static_cast<int>(text.size()), &needed, format | DT_NOPREFIX | DT_CALCRECT);
    return {needed.right - needed.left, needed.bottom - needed.top};
}

int Canvas::StepWithin(const RECT& area, const std::wstring& text, Weight weight, UINT format) const {
    const SIZE room{area.right - area.left, area.bottom - area.top};
    for (int step = 0; step <= Fonts::kSmallest; ++step) {
        const SIZE needed = Needed(area, text, look_.fonts.Smaller(weight, step), format);
        if (needed.cx <= room.cx && needed.cy <= room.cy) return step;
    }
    return (format & DT_SINGLELINE) != 0 ? 0 : Fonts::kSmallest;
}

void Canvas::TextWithin(const RECT& area, const std::wstring& text, Weight weight, COLORREF colour,
                        UINT format, Upright upright, int leastStep, const std::wstring& marked) const {
    if (text.empty()) return;
    const int step = std::max(leastStep, StepWithin(area, text, weight, format));
    const HFONT font = look_.fonts.Smaller(weight, step);
    const LONG height = Needed(area, text, font, format).cy;
    RECT place = area;
    if (upright == Upright::Middle) place.top += std::max(0L, (area.bottom - area.top - height) / 2);
    const SelectScope selected(dc_, font);
    SetTextColor(dc_, colour);
    SetBkMode(dc_, TRANSPARENT);
    DrawTextW(dc_, text.c_str(), static_cast<int>(text.size()), &place,
              format | DT_NOPREFIX | DT_END_ELLIPSIS);
    if (!marked.empty())
        DrawTextW(dc_, marked.c_str(), static_cast<int>(marked.size()), &place,
                  format | DT_PREFIXONLY | DT_END_ELLIPSIS);
}

int Canvas::TextWidth(const std::wstring& text, Weight weight) const {
    const SelectScope font(dc_, look_.fonts.Get(weight));
    SIZE size{};
    GetTextExtentPoint32W(dc_, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace dlv
