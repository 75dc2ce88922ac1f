#include "windows/gdi/GridPainter.h"

#include <algorithm>
#include <functional>

#include "widgets/GridText.h"
#include "windows/com/Strings.h"

namespace dlv {

namespace {

constexpr UINT kCaptionFormat = DT_CENTER | DT_WORDBREAK;

RECT Inside(RECT area) {
    --area.right;
    --area.bottom;
    return area;
}

bool Meets(const RECT& a, const RECT& b) {
    RECT both;
    return IntersectRect(&both, &a, &b) != 0;
}

std::size_t Combine(std::size_t seed, std::size_t value) {
    return seed ^ (value + 0x9e3779b9U + (seed << 6) + (seed >> 2));
}

}  // namespace

void GridPainter::Paint(const RECT& clip) const {
    const SIZE inner = layout_.Inner();
    const RECT area{0, 0, inner.cx, inner.cy};
    RECT seen;
    if (!IntersectRect(&seen, &area, &clip)) return;
    const SaveScope save(canvas_.Dc());
    IntersectClipRect(canvas_.Dc(), seen.left, seen.top, seen.right, seen.bottom);
    const int end = std::max(0, layout_.ColumnsWidth() - layout_.Scrolled());
    canvas_.Fill({end, 0, inner.cx, inner.cy}, canvas_.Colours().window);
    PaintHeader(seen);
    PaintBody(seen);
}

std::vector<GridPainter::HeaderCell> GridPainter::HeaderCells(int row) const {
    std::vector<HeaderCell> cells;
    for (int column = 0; column < grid_.Columns();) {
        const int last = LastOfCaption(grid_, row, column);
        RECT area = layout_.CellArea(row, column);
        area.right = layout_.ColumnRight(last);
        RECT textArea = Inside(area);
        // A caption over several columns stays in the middle of what is in sight of them.
        if (last > column) {
            textArea.left = std::max(textArea.left, 0L);
            textArea.right = std::min(textArea.right, layout_.Inner().cx);
        }
        InflateRect(&textArea, -canvas_.Scaled(1), 0);
        const bool bold = grid_.RowBold(row) || grid_.ColumnBold(column);
        cells.push_back({column, area, textArea, Wide(grid_.CellText(row, column)),
                         bold ? Weight::Bold : Weight::Regular});
        column = last + 1;
    }
    return cells;
}

// Where one caption needs a smaller font, its neighbours take the first smaller one too, so that a row looks
// even.
void GridPainter::PaintHeader(const RECT& clip) const {
    if (clip.top >= layout_.HeaderHeight()) return;
    for (int row = 0; row < std::min(grid_.FixedRows(), grid_.Rows()); ++row) {
        const std::vector<HeaderCell> cells = HeaderCells(row);
        const bool crowded = std::ranges::any_of(cells, [&](const HeaderCell& cell) {
            return canvas_.StepWithin(cell.textArea, cell.text, cell.weight, kCaptionFormat) > 0;
        });
        for (const HeaderCell& cell : cells)
            if (Meets(cell.area, clip)) PaintHeaderCell(row, cell, crowded ? 1 : 0);
    }
}

void GridPainter::PaintHeaderCell(int row, const HeaderCell& cell, int leastStep) const {
    const Palette& colours = canvas_.Colours();
    const std::optional<Colour> colour = grid_.HeaderColour(row, cell.column);
    const bool plain = !colour || colours.highContrast;
    const RECT inside = Inside(cell.area);
    canvas_.Fill(cell.area, colours.headerLine);
    canvas_.Fill(inside, plain ? colours.face : colours.Ground(colour));
    const SaveScope save(canvas_.Dc());
    IntersectClipRect(canvas_.Dc(), inside.left, inside.top, inside.right, inside.bottom);
    canvas_.TextWithin(cell.textArea, cell.text, cell.weight,
                       plain ? colours.faceText : colours.TextOn(colour), kCaptionFormat,
                       Canvas::Upright::Middle, leastStep);
}

void GridPainter::PaintBody(const RECT& clip) const {
    const SIZE inner = layout_.Inner();
    const SaveScope save(canvas_.Dc());
    IntersectClipRect(canvas_.Dc(), 0, layout_.HeaderHeight(), inner.cx, inner.cy);
    const int end = layout_.EndIndex();
    for (int index = layout_.TopIndex(); index < end; ++index)
        if (Meets(layout_.RowArea(index), clip)) PaintRow(index, clip);
    const LONG bottom = end > layout_.TopIndex() ? layout_.RowArea(end - 1).bottom : layout_.HeaderHeight();
    canvas_.Fill({0, bottom, inner.cx, inner.cy}, canvas_.Colours().window);
}

void GridPainter::PaintRow(int index, const RECT& clip) const {
    const int row = grid_.DisplayedRows()[static_cast<std::size_t>(index)];
    const RECT area = layout_.RowArea(index);
    canvas_.Fill({area.left, area.bottom - 1, area.right, area.bottom}, canvas_.Colours().gridLine);
    for (int column = 0; column < grid_.Columns(); ++column) {
        const LONG left = layout_.ColumnLeft(column);
        const LONG right = layout_.ColumnRight(column);
        if (right <= left || right <= clip.left || left >= clip.right) continue;
        canvas_.Fill({right - 1, area.top, right, area.bottom}, canvas_.Colours().gridLine);
        PaintCell(index, row, column);
    }
}

void GridPainter::PaintCell(int index, int row, int column) const {
    const Palette& colours = canvas_.Colours();
    const RECT area = Inside(layout_.CellArea(index, column));
    const bool current = row == grid_.CurrentRow() && column == grid_.CurrentColumn();
    const std::optional<OutlineGrid::Block> selection = grid_.Selection();
    const bool selected = selection && column >= grid_.TreeColumn() && selection->Holds(row, column);
    const bool held = selected && focus_ != GridFocus::None;
    const std::optional<Colour> colour = grid_.CellBackColour(row, column);
    const COLORREF ground = held ? colours.selected : selected ? colours.resting : colours.Ground(colour);
    const COLORREF ink = held       ? colours.selectedText
                         : selected ? colours.restingText
                                    : colours.TextOn(colour);
    const bool tree = column == grid_.TreeColumn();
    RECT filled = area;
    if (tree && selected) {
        // The bars keep the row's own ground, so that they stay readable.
        filled.left = std::min(area.right, static_cast<LONG>(layout_.TextPosition(layout_.Depth(row))));
        canvas_.Fill({area.left, area.top, filled.left, area.bottom}, colours.Ground(colour));
    }
    canvas_.Fill(filled, ground);
    if (tree) PaintTree(index, row, area);

    const std::wstring text = Wide(ShownText(grid_, row, column));
    const Weight weight = grid_.RowBold(row) || grid_.ColumnBold(column) ? Weight::Bold : Weight::Regular;
    const RECT place = layout_.TextArea(index, column);
    const UINT side = column > grid_.TreeColumn() ? DT_RIGHT : DT_LEFT;
    if (place.right > place.left)
        canvas_.Text(place, text, weight, ink, side | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);

    if (current && !held) canvas_.Outline(filled, colours.outline);
    if (current && focus_ == GridFocus::HeldWithCue) {
        SetTextColor(canvas_.Dc(), ink);
        SetBkColor(canvas_.Dc(), ground);
        DrawFocusRect(canvas_.Dc(), &filled);
    }
}

// A bar hangs below each open node down to the last of the rows that stand under it. Whether it goes on can
// be seen from the next displayed row alone.
void GridPainter::PaintTree(int index, int row, const RECT& cell) const {
    const std::vector<int>& rows = grid_.DisplayedRows();
    const std::size_t next = static_cast<std::size_t>(index) + 1;
    const int depth = layout_.Depth(row);
    const int nextDepth = next < rows.size() ? layout_.Depth(rows[next]) : 0;
    const COLORREF colour = canvas_.Colours().outline;
    const int middle = (cell.top + cell.bottom) / 2;
    const int width = std::max(1, canvas_.Scaled(1));
    const SaveScope save(canvas_.Dc());
    IntersectClipRect(canvas_.Dc(), cell.left, cell.top, cell.right, cell.bottom + 1);
    for (int bar = 0; bar < depth; ++bar) {
        const int x = layout_.BarPosition(bar);
        const bool ends = nextDepth <= bar;
        canvas_.Fill({x, cell.top, x + width, ends ? middle + width : cell.bottom + 1}, colour);
        if (ends) canvas_.Fill({x, middle, x + canvas_.Scaled(5), middle + width}, colour);
    }
    const std::optional<RECT> box = layout_.NodeBox(index);
    if (!box) return;
    if (!grid_.IsCollapsed(row)) {
        const int x = layout_.BarPosition(depth);
        canvas_.Fill({x, box->bottom, x + width, cell.bottom + 1}, colour);
    }
    PaintNodeBox(*box, grid_.IsCollapsed(row));
}

void GridPainter::PaintNodeBox(const RECT& box, bool collapsed) const {
    const Palette& colours = canvas_.Colours();
    const int width = std::max(1, canvas_.Scaled(1));
    canvas_.Fill(box, colours.window);
    canvas_.Outline(box, colours.outline, width);
    const int gap = width + canvas_.Scaled(1);
    const LONG across = (box.top + box.bottom - width) / 2;
    const LONG down = (box.left + box.right - width) / 2;
    canvas_.Fill({box.left + gap, across, box.right - gap, across + width}, colours.windowText);
    if (collapsed) canvas_.Fill({down, box.top + gap, down + width, box.bottom - gap}, colours.windowText);
}

std::size_t RowFingerprint(const OutlineGrid& grid, int index) {
    const std::vector<int>& rows = grid.DisplayedRows();
    const std::size_t place = static_cast<std::size_t>(index);
    const int row = rows[place];
    const int nextLevel = place + 1 < rows.size() ? grid.Level(rows[place + 1]) : 0;
    std::size_t sum = 0;
    const int base = grid.Level(grid.FixedRows());
    const std::optional<OutlineGrid::Block> selection = grid.Selection();
    const bool selected = selection && row >= selection->firstRow && row <= selection->lastRow;
    const int facts[] = {grid.Level(row) - base,
                         nextLevel - base,
                         (grid.RowBold(row) ? 1 : 0) | (grid.IsNode(row) && grid.HasChildren(row) ? 2 : 0) |
                             (grid.IsCollapsed(row) ? 4 : 0),
                         static_cast<int>(grid.RowBackColour(row).value_or(0xFFFFFFFF)),
                         grid.FirstColouredColumn(row),
                         grid.CurrentRow() == row ? grid.CurrentColumn() : -1,
                         selected ? selection->firstColumn : -1,
                         selected ? selection->lastColumn : -1};
    for (const int fact : facts) sum = Combine(sum, static_cast<std::size_t>(static_cast<unsigned>(fact)));
    for (int column = 0; column < grid.Columns(); ++column)
        sum = Combine(sum, std::hash<std::string>{}(ShownText(grid, row, column)));
    return sum;
}

std::size_t HeaderFingerprint(const OutlineGrid& grid) {
    std::size_t sum = 0;
    for (int row = 0; row < std::min(grid.FixedRows(), grid.Rows()); ++row) {
        for (int column = 0; column < grid.Columns(); ++column) {
            sum = Combine(sum, std::hash<std::string>{}(grid.CellText(row, column)));
            sum = Combine(sum, grid.HeaderColour(row, column).value_or(0xFFFFFFFF));
            sum = Combine(sum, grid.ColumnBold(column) ? 1 : 0);
        }
        sum = Combine(sum, grid.RowBold(row) ? 1 : 0);
    }
    return sum;
}

}  // namespace dlv
