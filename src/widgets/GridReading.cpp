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
    const auto size = [this](int run) { return run == kNone ? 0 : runs_[static_cast<std::size_t>(run)]; };
    const int top = row < grid.FixedRows() ? grid.Level(row) : grid.Level(grid.FixedRows());
    return {std::max(0, grid.Level(row) - top), entry.place, size(entry.run), size(entry.childRun)};
}

void OutlinePlaces::Read(const OutlineGrid& grid) {
    struct Open {
        int row;
        int level;
    };
    read_ = false;
    runs_.clear();
    rows_.assign(static_cast<std::size_t>(grid.Rows()), {});
    std::vector<Open> open;  // the last row of each level above, and the last of this one
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        const int level = grid.Level(row);
        while (!open.empty() && open.back().level > level) open.pop_back();
        Entry& entry = rows_[static_cast<std::size_t>(row)];
        if (!open.empty() && open.back().level == level) {
            const Entry& before = rows_[static_cast<std::size_t>(open.back().row)];
            entry.run = before.run;
            entry.place = before.place + 1;
            open.back().row = row;
        } else {
            entry.run = static_cast<int>(runs_.size());
            entry.place = 1;
            runs_.push_back(0);
            if (!open.empty()) {
                Entry& parent = rows_[static_cast<std::size_t>(open.back().row)];
                if (parent.childRun == kNone) parent.childRun = entry.run;
            }
            open.push_back({row, level});
        }
        ++runs_[static_cast<std::size_t>(entry.run)];
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
