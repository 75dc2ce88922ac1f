// What a person has done with the grid: the current cell, what is selected, how far it is scrolled, and how
// all that survives a refill.
#include <algorithm>

#include "widgets/OutlineGrid.h"

namespace dlv {

void OutlineGrid::SetCurrentCell(int row, int column) {
    Assign(currentRow_, row);
    Assign(currentColumn_, column);
    Assign(anchorRow_, row);
    Assign(anchorColumn_, column);
    Assign(allSelected_, false);
}

void OutlineGrid::ExtendSelection(int row, int column) {
    Assign(currentRow_, row);
    Assign(currentColumn_, column);
    Assign(allSelected_, false);
}

void OutlineGrid::SelectAll() { Assign(allSelected_, true); }

std::optional<OutlineGrid::Block> OutlineGrid::Selection() const {
    if (allSelected_) return Block{fixedRows_, Rows() - 1, treeColumn_, columns_ - 1};
    if (currentRow_ < fixedRows_ || currentRow_ >= Rows() || anchorRow_ < fixedRows_) return std::nullopt;
    const auto [firstRow, lastRow] = std::minmax(anchorRow_, currentRow_);
    const auto [firstColumn, lastColumn] = std::minmax(anchorColumn_, currentColumn_);
    return Block{firstRow, std::min(lastRow, Rows() - 1), firstColumn, lastColumn};
}

int OutlineGrid::TopIndex() const {
    const int last = static_cast<int>(DisplayedRows().size()) - 1;
    return std::clamp(topIndex_, fixedRows_, std::max(fixedRows_, last));
}

void OutlineGrid::SetTopIndex(int index) { Assign(topIndex_, index); }

OutlineGrid::View OutlineGrid::SaveView() const {
    View view;
    view.currentRow = currentRow_;
    view.currentColumn = currentColumn_;
    view.currentData = DataOf(currentRow_);
    view.anchorRow = anchorRow_;
    view.anchorColumn = anchorColumn_;
    view.anchorData = DataOf(anchorRow_);
    view.allSelected = allSelected_;
    view.scrollLeft = scrollLeft_;
    const int top = TopIndex();
    if (Index(top) < DisplayedRows().size()) {
        view.topRow = DisplayedRows()[Index(top)];
        view.topData = RowData(view.topRow);
    }
    return view;
}

// A row without data is the grand total, which always stands first.
int OutlineGrid::RowOfView(const std::string& data, int row) const {
    if (!data.empty()) return FindRow(data);
    return row == fixedRows_ && row < Rows() ? row : kNoRow;
}

void OutlineGrid::RestoreView(const View& view) {
    const int row = RowOfView(view.currentData, view.currentRow);
    const int anchor = RowOfView(view.anchorData, view.anchorRow);
    if (row != kNoRow) {
        SetCurrentCell(row, view.currentColumn);
        // Half a selection is none.
        if (anchor != kNoRow) {
            SetCurrentCell(anchor, view.anchorColumn);
            ExtendSelection(row, view.currentColumn);
        }
    }
    if (view.allSelected) SelectAll();
    const int top = RowOfView(view.topData, view.topRow);
    SetTopIndex(top == kNoRow ? fixedRows_ : DisplayedIndex(top));
    SetScrollLeft(view.scrollLeft);
}

}  // namespace dlv
