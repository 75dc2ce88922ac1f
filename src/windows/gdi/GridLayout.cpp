#include "windows/gdi/GridLayout.h"

#include <algorithm>

namespace dlv {

namespace {

constexpr int kCellPadding = 4;
constexpr int kIndent = 15;
constexpr int kBoxSize = 9;
constexpr int kTreeTextRoom = 60;

}  // namespace

GridLayout::GridLayout(const OutlineGrid& grid, Scale scale, SIZE outer, int barSize)
    : grid_(grid), scale_(scale), indent_(scale(kIndent)) {
    double bottom = 0;
    for (int row = 0; row < std::min(grid.FixedRows(), grid.Rows()); ++row) {
        headerTops_.push_back(scale.ToPixels(bottom));
        bottom += grid.RowHeight(row);
    }
    headerHeight_ = scale.ToPixels(bottom);
    headerTops_.push_back(headerHeight_);
    rowHeight_ = std::max(1, scale.ToPixels(grid.DefaultRowHeight()));
    PlaceColumns(outer, barSize);

    const int most = std::max(0, ColumnsWidth() - static_cast<int>(inner_.cx));
    scrolled_ = std::clamp(scale.ToPixels(grid.ScrollLeft()), 0, horizontalBar_ ? most : 0);
    top_ = std::clamp(grid.TopIndex(), grid.FixedRows(), LastTopIndex());
}

int GridLayout::DataRows() const {
    return std::max(0, static_cast<int>(grid_.DisplayedRows().size()) - grid_.FixedRows());
}

// Columns that would fit if only the vertical scroll bar were not there are drawn closer together: a
// horizontal scroll bar that moves by the width of the other one helps nobody.
void GridLayout::PlaceColumns(SIZE outer, int barSize) {
    double sum = 0;
    edges_.push_back(0);
    for (int column = 0; column < grid_.Columns(); ++column) {
        sum += grid_.ColumnWidth(column);
        edges_.push_back(scale_.ToPixels(sum));
    }
    const int width = ColumnsWidth();
    const int height = headerHeight_ + DataRows() * rowHeight_;
    inner_ = outer;
    verticalBar_ = height > outer.cy;
    if (verticalBar_) inner_.cx -= barSize;
    if (width > inner_.cx && width > outer.cx) {
        horizontalBar_ = true;
        inner_.cy -= barSize;
        if (!verticalBar_ && height > inner_.cy) {
            verticalBar_ = true;
            inner_.cx -= barSize;
        }
    } else if (width > inner_.cx && inner_.cx > 0) {
        for (int& edge : edges_) edge = MulDiv(edge, inner_.cx, width);
    }
    inner_.cx = std::max(0L, inner_.cx);
    inner_.cy = std::max(0L, inner_.cy);
}

int GridLayout::FullRows() const {
    return std::max(1, (static_cast<int>(inner_.cy) - headerHeight_) / rowHeight_);
}

int GridLayout::LastTopIndex() const { return grid_.FixedRows() + std::max(0, DataRows() - FullRows()); }

int GridLayout::EndIndex() const {
    const int room = std::max(0, static_cast<int>(inner_.cy) - headerHeight_);
    const int end = top_ + (room + rowHeight_ - 1) / rowHeight_;
    return std::min(end, grid_.FixedRows() + DataRows());
}

RECT GridLayout::RowArea(int index) const {
    RECT area{-scrolled_, 0, ColumnsWidth() - scrolled_, 0};
    if (index < grid_.FixedRows()) {
        area.top = headerTops_[Index(index)];
        area.bottom = headerTops_[Index(index) + 1];
    } else {
        area.top = headerHeight_ + (index - top_) * rowHeight_;
        area.bottom = area.top + rowHeight_;
    }
    return area;
}

RECT GridLayout::CellArea(int index, int column) const {
    RECT area = RowArea(index);
    area.left = ColumnLeft(column);
    area.right = ColumnRight(column);
    return area;
}

int GridLayout::Depth(int row) const {
    const int depth = std::max(0, grid_.Level(row) - grid_.Level(grid_.FixedRows()));
    const int width = ColumnRight(grid_.TreeColumn()) - ColumnLeft(grid_.TreeColumn());
    const int deepest = (width - scale_(kTreeTextRoom)) / indent_;
    return std::min(depth, std::max(1, deepest));
}

int GridLayout::BarPosition(int depth) const {
    return ColumnLeft(grid_.TreeColumn()) + indent_ / 2 + 1 + depth * indent_;
}

std::optional<RECT> GridLayout::NodeBox(int index) const {
    const int row = grid_.DisplayedRows()[Index(index)];
    if (row < grid_.FixedRows() || !grid_.IsNode(row) || !grid_.HasChildren(row)) return std::nullopt;
    const RECT area = RowArea(index);
    const int size = scale_(kBoxSize) | 1;  // odd, so that the sign has a middle
    const int left = BarPosition(Depth(row)) - size / 2;
    const int top = (area.top + area.bottom - 1 - size) / 2;
    return RECT{left, top, left + size, top + size};
}

std::optional<int> GridLayout::ColumnAt(POINT point) const {
    if (point.x < 0 || point.y < 0 || point.x >= inner_.cx || point.y >= inner_.cy) return std::nullopt;
    const auto edge = std::upper_bound(edges_.begin(), edges_.end(), static_cast<int>(point.x) + scrolled_);
    if (edge == edges_.end()) return std::nullopt;
    return static_cast<int>(edge - edges_.begin()) - 1;
}

int GridLayout::IndexAt(POINT point) const {
    return top_ + (static_cast<int>(point.y) - headerHeight_) / rowHeight_;
}

std::optional<int> GridLayout::ColumnBelowRows(POINT point) const {
    const bool below = point.y >= headerHeight_ && IndexAt(point) >= grid_.FixedRows() + DataRows();
    return below ? ColumnAt(point) : std::nullopt;
}

std::optional<GridLayout::Hit> GridLayout::HitTest(POINT point) const {
    const std::optional<int> column = ColumnAt(point);
    if (!column) return std::nullopt;
    if (point.y < headerHeight_) {
        const auto top = std::upper_bound(headerTops_.begin(), headerTops_.end(), static_cast<int>(point.y));
        return Hit{static_cast<int>(top - headerTops_.begin()) - 1, *column, false};
    }
    const int index = IndexAt(point);
    if (index >= grid_.FixedRows() + DataRows()) return std::nullopt;
    Hit hit{grid_.DisplayedRows()[Index(index)], *column, false};
    if (const std::optional<RECT> box = NodeBox(index); box && *column == grid_.TreeColumn()) {
        RECT target = *box;
        InflateRect(&target, scale_(3), scale_(3));
        hit.onNodeBox = PtInRect(&target, point) != 0;
    }
    return hit;
}

std::optional<GridLayout::Hit> GridLayout::NearestCell(POINT point) const {
    const int last = std::min(EndIndex(), grid_.FixedRows() + DataRows()) - 1;
    if (last < top_ || ColumnsWidth() == 0) return std::nullopt;
    const RECT rows{0, headerHeight_, inner_.cx, RowArea(last).bottom};
    point.x =
        std::clamp(point.x, rows.left, std::max(rows.left, std::min(rows.right, RowArea(last).right) - 1));
    point.y = std::clamp(point.y, rows.top, rows.bottom - 1);
    const int index = IndexAt(point);
    const auto edge = std::upper_bound(edges_.begin(), edges_.end(), static_cast<int>(point.x) + scrolled_);
    const int column = std::min(static_cast<int>(edge - edges_.begin()) - 1, grid_.Columns() - 1);
    return Hit{grid_.DisplayedRows()[Index(index)], column, false};
}

std::optional<int> GridLayout::EdgeAt(POINT point) const {
    if (point.y < 0 || point.y >= headerHeight_ || point.x >= inner_.cx) return std::nullopt;
    for (int column = grid_.Columns() - 1; column >= grid_.TreeColumn(); --column)
        if (grid_.ColumnWidth(column) > 0 &&
            std::abs(static_cast<int>(point.x) - ColumnRight(column)) <= scale_(3))
            return column;
    return std::nullopt;
}

RECT GridLayout::TextArea(int index, int column) const {
    RECT area = CellArea(index, column);
    const int padding = scale_(kCellPadding);
    area.left = column == grid_.TreeColumn()
                    ? TextPosition(Depth(grid_.DisplayedRows()[Index(index)])) + padding / 2
                    : area.left + padding;
    area.right -= padding + 1;
    --area.bottom;
    return area;
}

}  // namespace dlv
