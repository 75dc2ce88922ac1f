// An outline grid as it is read out: which of its columns tell something, where a row stands among its like,
// and a row that can be found again after the grid was filled anew.
#pragma once

#include <string>
#include <vector>

#include "widgets/OutlineGrid.h"

namespace dlv {

/// The columns to be seen from the tree column on: those that keys lead to.
std::vector<int> ReadColumns(const OutlineGrid& grid);

/// Where rows stand among those of the same level below the same node. Asked for the first time after rows
/// changed, it takes one pass over the grid; after that, constant time.
class OutlinePlaces {
public:
    struct Place {
        /// From 0: how many levels below the first row.
        int depth = 0;
        /// From 1, of `count`.
        int place = 0;
        int count = 0;
        /// How many rows stand directly below.
        int children = 0;
    };
    /// All 0 for a header row.
    Place Of(const OutlineGrid& grid, int row);

private:
    static constexpr int kNone = -1;
    struct Entry {
        int place = 0;
        int run = kNone;
        int children = 0;
    };
    void Read(const OutlineGrid& grid);

    std::vector<Entry> rows_;
    std::vector<int> runs_;  // how many rows each run of siblings has
    unsigned version_ = 0;
    bool read_ = false;
};

/// A row of a grid that outlives changes of the rows: by its data, and by its place as long as that is the
/// same row.
class RowReference {
public:
    /// Error 9 outside the grid.
    RowReference(const OutlineGrid& grid, int row);
    /// Where the row is now; `OutlineGrid::kNoRow` when it has gone.
    int Find(const OutlineGrid& grid);

    bool operator==(const RowReference& other) const {
        return data_ == other.data_ && level_ == other.level_ && (!data_.empty() || row_ == other.row_);
    }

private:
    int FindAnew(const OutlineGrid& grid) const;

    std::string data_;
    int row_;
    int level_;
    bool header_;
    unsigned version_;
};

}  // namespace dlv
