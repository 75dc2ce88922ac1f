#include "windows/gdi/ControlPainter.h"

#include <algorithm>

#include "windows/com/Strings.h"
#include "windows/gdi/FacePainter.h"
#include "windows/gdi/GridPainter.h"
#include "windows/gdi/PaintBuffer.h"

namespace dlv {

namespace {

/// Draws control after control in the order of the form, from back to front.
class FormPicture {
public:
    FormPicture(const Canvas& canvas, const ViewerForm& form)
        : canvas_(canvas), form_(form), groups_(HeadingGroups(form)) {}

    void Draw() const {
        const Palette& colours = canvas_.Colours();
        const RECT all = canvas_.Measure().ToRect({0, 0, form_.Width(), form_.Height()});
        canvas_.Fill(all, colours.face);
        for (Control* control : form_.Controls()) {
            const std::optional<RECT> area = AreaOf(*control);
            if (!area) continue;
            const SaveScope save(canvas_.Dc());
            IntersectClipRect(canvas_.Dc(), area->left, area->top, area->right, area->bottom);
            DrawOne(*control, *area);
        }
    }

private:
    /// Nothing for a control that is hidden, itself or by what it stands in.
    std::optional<RECT> AreaOf(const Control& control) const {
        Bounds bounds = control.Place();
        for (const Control* c = &control; c != nullptr; c = c->Container()) {
            if (!c->Visible()) return std::nullopt;
            if (c == &control) continue;
            bounds.left += c->Left();
            bounds.top += c->Top();
        }
        return canvas_.Measure().ToRect(bounds);
    }

    void DrawOne(Control& control, const RECT& area) const {
        const COLORREF face = canvas_.Colours().face;
        if (const auto* frame = dynamic_cast<const Frame*>(&control)) {
            canvas_.Fill(area, face);
            DrawFrameEdge(canvas_, *frame, area, face);
        } else if (const auto* label = dynamic_cast<const Label*>(&control)) {
            DrawLabel(canvas_, *label, area, face, LeastStep(*label));
        } else if (const auto* grid = dynamic_cast<const OutlineGrid*>(&control)) {
            DrawGrid(*grid, area);
        } else if (const auto* list = dynamic_cast<const ListView*>(&control)) {
            DrawList(*list, area);
        } else if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) {
            DrawTabs(*tabs, area);
        } else if (const auto* bar = dynamic_cast<const Toolbar*>(&control)) {
            DrawBar(*bar, area);
        } else if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
            DrawOption(*option, area);
        } else if (const auto* button = dynamic_cast<const Button*>(&control)) {
            DrawButton(*button, area);
        }
    }

    int LeastStep(const Label& label) const {
        for (const LabelGroup& group : groups_)
            if (std::ranges::find(group, &label) != group.end()) return GroupStep(canvas_, group);
        return 0;
    }

    void DrawGrid(const OutlineGrid& grid, const RECT& area) const {
        const SIZE size{area.right - area.left, area.bottom - area.top};
        const GridLayout layout(grid, canvas_.Measure(), size, 0);
        const SaveScope save(canvas_.Dc());
        POINT origin{};
        GetWindowOrgEx(canvas_.Dc(), &origin);
        SetWindowOrgEx(canvas_.Dc(), origin.x - area.left, origin.y - area.top, nullptr);
        GridPainter(canvas_, grid, layout, GridFocus::None).Paint({0, 0, size.cx, size.cy});
    }

    void DrawList(const ListView& list, RECT area) const {
        const Palette& colours = canvas_.Colours();
        canvas_.Fill(area, colours.window);
        canvas_.Outline(area, colours.edge);
        const int line = canvas_.Faces().LineHeight() + canvas_.Scaled(2);
        RECT row{area.left + 2, area.top + 2, area.right - 2, area.top + 2 + line};
        for (const ListView::Item& item : list.Items()) {
            if (row.top >= area.bottom) break;
            canvas_.Fill(row, item.selected ? colours.selected : colours.window);
            RECT text = row;
            InflateRect(&text, -canvas_.Scaled(4), 0);
            canvas_.Text(text, Wide(item.text), Weight::Regular,
                         item.selected ? colours.selectedText : colours.windowText,
                         DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
            OffsetRect(&row, 0, line);
        }
    }

    void DrawTabs(const TabStrip& tabs, const RECT& area) const {
        const Palette& colours = canvas_.Colours();
        RECT body = area;
        body.top += canvas_.Scaled(22);
        canvas_.Outline(body, colours.edge);
        LONG left = area.left + canvas_.Scaled(2);
        for (std::size_t i = 0; i < tabs.Tabs().size(); ++i) {
            const std::wstring text = Wide(tabs.Tabs()[i].caption);
            const int width = canvas_.TextWidth(text, Weight::Regular) + canvas_.Scaled(20);
            const bool selected = static_cast<int>(i) + 1 == tabs.SelectedTab();
            RECT tab{left, area.top + (selected ? 0 : canvas_.Scaled(2)), left + width, body.top + 1};
            canvas_.Fill(tab, colours.face);
            canvas_.Outline(tab, colours.edge);
            if (selected) canvas_.Fill({tab.left + 1, body.top, tab.right - 1, body.top + 1}, colours.face);
            canvas_.Text(tab, text, Weight::Regular, colours.faceText,
                         DT_CENTER | DT_VCENTER | DT_SINGLELINE);
            left += width;
        }
    }

    void DrawBar(const Toolbar& bar, const RECT& area) const {
        LONG left = area.left;
        const std::vector<bool> shown = ShownTools(bar);
        for (std::size_t i = 0; i < shown.size(); ++i) {
            if (!shown[i]) continue;
            const Toolbar::Item& item = bar.Items()[i];
            const bool separator = item.style == Toolbar::Style::Separator;
            const RECT place{left, area.top, left + canvas_.Scaled(separator ? 8 : 28), area.bottom};
            DrawToolIcon(canvas_, item.key, place, IconState::Normal);
            left = place.right + (item.style == Toolbar::Style::DropDown ? canvas_.Scaled(12) : 0);
        }
    }

    void DrawOption(const OptionButton& option, RECT area) const {
        const Palette& colours = canvas_.Colours();
        canvas_.Fill(area, colours.face);
        const int size = canvas_.Scaled(13);
        const int top = (area.top + area.bottom - size) / 2;
        const Pen pen(CreatePen(PS_SOLID, 1, colours.outline));
        {
            const SelectScope line(canvas_.Dc(), pen.Get());
            const Brush paper(CreateSolidBrush(colours.window));
            const SelectScope ground(canvas_.Dc(), paper.Get());
            Ellipse(canvas_.Dc(), area.left, top, area.left + size, top + size);
        }
        if (option.Value()) {
            const Brush ink(CreateSolidBrush(colours.windowText));
            const SelectScope ground(canvas_.Dc(), ink.Get());
            const int gap = canvas_.Scaled(4);
            Ellipse(canvas_.Dc(), area.left + gap, top + gap, area.left + size - gap, top + size - gap);
        }
        area.left += size + canvas_.Scaled(4);
        canvas_.Text(area, Wide(option.Caption()), Weight::Regular,
                     option.Enabled() ? colours.faceText : colours.disabledText,
                     DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    }

    void DrawButton(const Button& button, const RECT& area) const {
        const Palette& colours = canvas_.Colours();
        canvas_.Fill(area, colours.face);
        canvas_.Outline(area, colours.outline);
        canvas_.Text(area, Wide(button.Caption()), Weight::Regular,
                     button.Enabled() ? colours.faceText : colours.disabledText,
                     DT_CENTER | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    }

    const Canvas& canvas_;
    const ViewerForm& form_;
    std::vector<LabelGroup> groups_;
};

SIZE PixelSize(const ViewerForm& form, Scale scale) {
    return {std::max(1, scale.ToPixels(form.Width())), std::max(1, scale.ToPixels(form.Height()))};
}

/// Makes one logical unit of `dc` one pixel of the picture, with the picture's corner at that of `place`.
void MapTo(HDC dc, const RECT& place, SIZE size) {
    POINT corners[2] = {{place.left, place.top}, {place.right, place.bottom}};
    LPtoDP(dc, corners, 2);
    if (GetGraphicsMode(dc) == GM_ADVANCED) ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetWindowExtEx(dc, size.cx, size.cy, nullptr);
    SetViewportOrgEx(dc, corners[0].x, corners[0].y, nullptr);
    SetViewportExtEx(dc, corners[1].x - corners[0].x, corners[1].y - corners[0].y, nullptr);
}

/// An old-style metafile can measure no text and clip nothing: it gets a bitmap.
void DrawAsBitmap(HDC dc, const RECT& place, const ViewerForm& form, const Look& look) {
    const SIZE size = PixelSize(form, look.scale);
    const WindowDc screen(nullptr);
    const MemoryDc memory(screen.Get());
    const Bitmap bitmap(CreateCompatibleBitmap(screen.Get(), size.cx, size.cy));
    {
        const SelectScope select(memory.Get(), bitmap.Get());
        FormPicture(Canvas(memory.Get(), look), form).Draw();
    }
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), size.cx, size.cy, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    const std::size_t stride = (static_cast<std::size_t>(size.cx) * 3 + 3) / 4 * 4;
    std::string bits(stride * static_cast<std::size_t>(size.cy), '\0');
    GetDIBits(memory.Get(), bitmap.Get(), 0, static_cast<UINT>(size.cy), bits.data(), &info, DIB_RGB_COLORS);
    StretchDIBits(dc, place.left, place.top, place.right - place.left, place.bottom - place.top, 0, 0,
                  size.cx, size.cy, bits.data(), &info, DIB_RGB_COLORS, SRCCOPY);
}

}  // namespace

std::vector<LabelGroup> HeadingGroups(const ViewerForm& form) {
    return {{&form.lblTechCount.heading, &form.lblHrsWorked.heading, &form.lblHrsRemaining.heading,
             &form.lblWODone.heading, &form.lblWOOpen.heading, &form.lblPtsDone.heading,
             &form.lblPtsOpen.heading},
            {&form.lblWOsPerHr, &form.lblPtsPerHr},
            {&form.lblToday, &form.lblReqProd}};
}

int GroupStep(const Canvas& canvas, const LabelGroup& group) {
    int step = 0;
    for (const Label* label : group) step = std::max(step, LabelStep(canvas, *label));
    return step;
}

void DrawControl(HDC dc, const RECT& place, ViewerForm& form, const Zoom& zoom) {
    if (place.right == place.left || place.bottom == place.top) return;
    const Look look(zoom.appearance, zoom.scale);
    if (GetObjectType(dc) == OBJ_METADC) return DrawAsBitmap(dc, place, form, look);
    const SaveScope save(dc);
    IntersectClipRect(dc, place.left, place.top, place.right, place.bottom);
    MapTo(dc, place, PixelSize(form, look.scale));
    const Canvas canvas(dc, look);
    FormPicture(canvas, form).Draw();
}

}  // namespace dlv
