#include "widgets/GridReading.h"

#include <algorithm>

namespace dlv {

std::vector<int> ReadColumns(const OutlineGrid& grid) {
    std::vector<int> columns;
    for (int column = grid.TreeColumn(); column < grid.Columns(); ++column)
        if (grid.ColumnWidth(column) > 0) columns.push_back(column);
    return columns;
}

OutlinePlaces::Place OutlinePlaces::Of(const OutlineGrid& grid, int row) {
    if (!read_ || version_ != grid.RowsVersion()) Read(grid);
    const Entry& entry = rows_.at(static_cast<std::size_t>(row));
    if (entry.run == kNone) return {};
    return {std::max(0, grid.Level(row) - grid.Level(grid.FixedRows())), entry.place,
            runs_[static_cast<std::size_t>(entry.run)], entry.children};
}

void OutlinePlaces::Read(const OutlineGrid& grid) {
    const auto entry = [this](int row) -> Entry& { return rows_[static_cast<std::size_t>(row)]; };
    read_ = false;
    runs_.clear();
    rows_.assign(static_cast<std::size_t>(grid.Rows()), {});
    std::vector<int> open;  // of the rows above and this one's run, the last of each level
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        while (!open.empty() && grid.Level(open.back()) > grid.Level(row)) open.pop_back();
        if (!open.empty() && grid.Level(open.back()) == grid.Level(row)) {
            entry(row).run = entry(open.back()).run;
            open.pop_back();
        } else {
            entry(row).run = static_cast<int>(runs_.size());
            runs_.push_back(0);
        }
        entry(row).place = ++runs_[static_cast<std::size_t>(entry(row).run)];
        if (!open.empty()) ++entry(open.back()).children;
        open.push_back(row);
    }
    version_ = grid.RowsVersion();
    read_ = true;
}

RowReference::RowReference(const OutlineGrid& grid, int row)
    : data_(grid.RowData(row)),
      row_(row),
      level_(grid.Level(row)),
      header_(row < grid.FixedRows()),
      version_(grid.RowsVersion()) {}

int RowReference::Find(const OutlineGrid& grid) {
    if (version_ == grid.RowsVersion()) return row_;
    const int row = FindAnew(grid);
    if (row == OutlineGrid::kNoRow) return row;
    row_ = row;
    version_ = grid.RowsVersion();
    return row;
}

// A row without data is the grand total, which always stands first. Different rows may have the same data.
int RowReference::FindAnew(const OutlineGrid& grid) const {
    const bool there = row_ < grid.Rows();
    if (header_ || data_.empty()) {
        const bool same = header_ ? row_ < grid.FixedRows()
                                  : row_ == grid.FixedRows() && there && grid.RowData(row_).empty();
        return same && there ? row_ : OutlineGrid::kNoRow;
    }
    const auto fits = [&](int row) {
        return row >= grid.FixedRows() && grid.RowData(row) == data_ && grid.Level(row) == level_;
    };
    if (there && fits(row_)) return row_;
    const int found = grid.FindRow(data_);
    return found != OutlineGrid::kNoRow && fits(found) ? found : OutlineGrid::kNoRow;
}

}  // namespace dlv
