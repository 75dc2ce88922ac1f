#include "windows/access/GridScreen.h"

#include <algorithm>

namespace dlv {

bool GridScreen::IsDisplayed(int row) const {
    const std::vector<int>& rows = Grid().DisplayedRows();
    return std::ranges::binary_search(rows, row);
}

int GridScreen::CurrentRow() const {
    const OutlineGrid& grid = Grid();
    const int row = grid.CurrentRow();
    if (row < grid.FixedRows() || row >= grid.Rows()) return OutlineGrid::kNoRow;
    return grid.DisplayedRows()[static_cast<std::size_t>(grid.DisplayedIndex(row))];
}

int GridScreen::CurrentColumn() const {
    const OutlineGrid& grid = Grid();
    const int column = grid.CurrentColumn();
    const bool read = column >= grid.TreeColumn() && column < grid.Columns() && grid.ColumnWidth(column) > 0;
    return read ? column : grid.TreeColumn();
}

bool GridScreen::IsSelected(int row, std::optional<int> column) const {
    const std::optional<OutlineGrid::Block> block = Grid().Selection();
    return block && block->Holds(row, column.value_or(block->firstColumn));
}

LONG GridScreen::IdOfCell(int row, int column) const {
    return -(Grid().DisplayedIndex(row) * Grid().Columns() + column) - 1;
}

std::optional<GridScreen::Place> GridScreen::PlaceOfId(LONG id) const {
    const std::vector<int>& rows = Grid().DisplayedRows();
    const LONG columns = Grid().Columns();
    if (id == CHILDID_SELF || columns == 0) return std::nullopt;
    const LONG index = id > 0 ? id - 1 : -(id + 1) / columns;
    if (index >= static_cast<LONG>(rows.size())) return std::nullopt;
    Place place{rows[static_cast<std::size_t>(index)], std::nullopt};
    if (id < 0) place.column = static_cast<int>(-(id + 1) % columns);
    return place;
}

void GridScreen::GoTo(int row, int column) { GoToCell(Grid(), row, column, Sight()); }

void GridScreen::AskForRecords(int row, int column) {
    pending_ = Pending{RowReference(Grid(), row), column};
    PostMessageW(Surface(), kAccessAction, 0, 0);
}

std::optional<GridScreen::Asked> GridScreen::TakeAsked() {
    if (!pending_) return std::nullopt;
    Pending pending = *std::exchange(pending_, std::nullopt);
    const int row = pending.row.Find(Grid());
    if (row == OutlineGrid::kNoRow || !IsDisplayed(row) || pending.column >= Grid().Columns())
        return std::nullopt;
    return Asked{row, pending.column};
}

}  // namespace dlv
