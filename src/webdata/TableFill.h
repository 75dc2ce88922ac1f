// The rows of a table to be, written cell by cell: row after row, one value for each column. A table takes
// them over as a whole, so that it stays as it is when one of them fails. Equal texts that come again soon
// are stored once, so that whoever reads the table by keys meets few of them.
#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "webdata/TableCells.h"

namespace dlv {

class TableFill {
public:
    /// Error 457 for a column named twice.
    explicit TableFill(std::span<const std::string> columns);

    std::size_t Width() const { return columns_.size(); }
    /// The place of the next value, from 0.
    std::size_t Row() const { return cells_.RowCount(); }
    std::size_t Column() const { return line_.size(); }

    /// So many rows are to come.
    void Expect(std::size_t rows) { cells_.Expect(Width(), rows); }

    void Add(std::string_view text);
    void AddWhole(std::int32_t number) {
        if (number >= 0) return AddCell(static_cast<Cell>(number));
        char text[16];
        const auto written = std::to_chars(text, text + sizeof text, number);
        Add({text, written.ptr});
    }

    /// Error 5 when the last row is not whole.
    TableCells Take();

private:
    /// A text that was stored, by where it stands in the document.
    struct Known {
        std::uint32_t place = 0;
        std::uint32_t length = 0;
    };
    static constexpr std::size_t kKnown = 1024;

    void AddCell(Cell cell) {
        line_.push_back(cell);
        if (line_.size() < columns_.size()) return;
        cells_.AddRow(columns_, line_);
        line_.clear();
    }
    Cell Store(std::string_view text);

    TableCells cells_;
    std::vector<TableCells::Column> columns_;
    std::vector<Cell> line_;
    /// What the table's cells will refer to, as if it had been read from there: each text between two quotes
    /// of its own.
    std::string document_;
    std::array<Known, kKnown> known_{};
};

}  // namespace dlv
