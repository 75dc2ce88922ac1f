// Where the rows and columns of an outline grid stand on a surface, in pixels: what painting, scrolling and
// hit testing share. Making one costs as much as the grid has columns; the number of rows does not matter.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>
#include <vector>

#include "widgets/OutlineGrid.h"
#include "windows/gdi/Scale.h"

namespace dlv {

class GridLayout {
public:
    /// `outer` is the grid's size with its scroll bars, `barSize` how thick those are.
    GridLayout(const OutlineGrid& grid, Scale scale, SIZE outer, int barSize);

    bool HasVerticalBar() const { return verticalBar_; }
    bool HasHorizontalBar() const { return horizontalBar_; }
    /// What the scroll bars leave.
    SIZE Inner() const { return inner_; }
    int HeaderHeight() const { return headerHeight_; }
    int RowHeight() const { return rowHeight_; }
    int ColumnsWidth() const { return edges_.back(); }
    /// How far the columns are moved to the left.
    int Scrolled() const { return scrolled_; }

    /// Rows below the header that are wholly in sight; at least 1.
    int FullRows() const;
    /// Places among the displayed rows: the first below the header that is in sight, the highest that may be,
    /// and the one behind the last that is at least partly in sight.
    int TopIndex() const { return top_; }
    int LastTopIndex() const;
    int EndIndex() const;

    /// The row at a place among the displayed rows, header rows included, over all columns.
    RECT RowArea(int index) const;
    int ColumnLeft(int column) const { return edges_[Index(column)] - scrolled_; }
    int ColumnRight(int column) const { return edges_[Index(column) + 1] - scrolled_; }
    RECT CellArea(int index, int column) const;
    /// Where the text of a data cell may stand.
    RECT TextArea(int index, int column) const;

    /// How deep a row stands in the outline, from 0, as far as the tree column has room to show it.
    int Depth(int row) const;
    /// The middle of the outline bar of that depth, and where the text of a row of that depth begins.
    int BarPosition(int depth) const;
    int TextPosition(int depth) const { return BarPosition(depth) + indent_ / 2 + 1; }
    /// The box of the node at that place among the displayed rows; nothing for a row that shows none.
    std::optional<RECT> NodeBox(int index) const;

    struct Hit {
        int row;
        int column;
        bool onNodeBox;
    };
    std::optional<Hit> HitTest(POINT point) const;
    /// The column that a point below all rows stands in.
    std::optional<int> ColumnBelowRows(POINT point) const;
    /// The data cell nearest to a point, also to one outside; nothing when there is no such row.
    std::optional<Hit> NearestCell(POINT point) const;
    /// The column whose right edge the point is at, in the header, where the edge can be taken hold of.
    std::optional<int> EdgeAt(POINT point) const;

private:
    static std::size_t Index(int value) { return static_cast<std::size_t>(value); }
    void PlaceColumns(SIZE outer, int barSize);
    int DataRows() const;
    std::optional<int> ColumnAt(POINT point) const;
    /// The place among the displayed rows of a point below the header, where there may be no row.
    int IndexAt(POINT point) const;

    const OutlineGrid& grid_;
    Scale scale_;
    std::vector<int> edges_;
    std::vector<int> headerTops_;
    SIZE inner_{};
    int headerHeight_ = 0;
    int rowHeight_ = 1;
    int indent_ = 0;
    int scrolled_ = 0;
    int top_ = 0;
    bool verticalBar_ = false;
    bool horizontalBar_ = false;
};

}  // namespace dlv
