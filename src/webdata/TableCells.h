// The rows of a table: cells of four bytes, grouped by row, each row with its shape. A cell is a
// plain decimal number or the place of a text: in the document that the rows were read from, which
// is kept alive, or in the table's own store of decoded and set texts. Reading and editing take time
// in proportion to what is touched; adding rows and fields is linear.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "webdata/CellBuffer.h"
#include "webdata/TableShapes.h"

namespace dlv {

class TableCells {
public:
    using Column = TableShapes::Column;
    using Shape = TableShapes::Shape;

    /// The longest text that can be a number's plain form, in digits.
    static constexpr std::size_t kLongestNumber = 10;

    struct Row {
        std::uint32_t firstCell = 0;
        Shape shape = 0;
    };

    /// Without a document: an empty table to be filled. Error 7 when the document is 2 GB or more.
    explicit TableCells(std::shared_ptr<const std::string> source = nullptr);

    /// Gives a table the document that its cells refer to, before any text of its own is stored.
    void SetSource(std::shared_ptr<const std::string> source);

    TableShapes& Shapes() { return shapes_; }
    const TableShapes& Shapes() const { return shapes_; }

    std::size_t RowCount() const { return rows_.size(); }
    /// `row` counts from 0, here and below, and must exist. Settle first.
    Row RowAt(std::size_t row) const { return rows_[row]; }
    Cell CellAt(std::size_t index) const { return cells_[index]; }
    const Cell* CellsAt(std::size_t index) const { return cells_.Data() + index; }
    /// The text of a cell that has kTextTag. Holds until the table changes.
    std::string_view StoredText(Cell cell) const {
        const std::size_t at = cell & ~kTextTag;
        return at < document_.size() ? QuotedText(at) : OwnText(at - document_.size());
    }

    /// The cell for a text, which is stored when it is no plain number.
    Cell MakeCell(std::string_view text);
    /// The cell for a value of the document: what stands between the quotes, and the opening quote's offset.
    static Cell MakeSourceCell(std::string_view raw, std::size_t quote);

    void AddRow(std::span<const Column> columns, std::span<const Cell> cells);
    /// An empty row, to be set field by field.
    void AddRow() { AddRow({}, {}); }

    /// For rows alike, in bulk: cells are written at the end of the buffer and then taken as a row.
    CellBuffer& Buffer() { return cells_; }
    void TakeRow(Shape shape, std::size_t width) {
        rows_.push_back({static_cast<std::uint32_t>(cells_.Size()), shape});
        cells_.Take(width);
    }
    /// Makes room for a row of `width` cells, and as many more of them as are expected.
    void Expect(std::size_t width, std::size_t rows);
    /// Gives back room that is not needed, after the last row.
    void Trim();

    void SetField(std::size_t row, Column column, std::string_view text);
    /// Puts the row under edit, if any, back among the others.
    void Settle() {
        if (edit_.row != kNoRow) CloseEdit();
    }

private:
    static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

    /// The row whose fields were set last: lifted out, so that fields can be added one by one.
    struct Edit {
        std::size_t row = kNoRow;
        std::vector<Column> columns;
        std::vector<Cell> cells;
        /// Of each column, the place in the row and 1; 0 when the row lacks it.
        std::vector<std::uint32_t> places;
    };

    bool IsOwnText(Cell cell) const { return (cell & kTextTag) && (cell & ~kTextTag) >= document_.size(); }
    std::size_t OwnTextAt(Cell cell) const { return (cell & ~kTextTag) - document_.size(); }
    std::string_view OwnText(std::size_t at) const;
    std::string_view QuotedText(std::size_t quote) const;
    Cell StoreText(std::string_view text);
    void ReplaceCell(Cell& cell, std::string_view text);
    void CheckRoom(std::size_t cells) const;
    void OpenEdit(std::size_t row);
    void CloseEdit();
    bool IsWasteful() const;
    void Compact();

    std::shared_ptr<const std::string> source_;
    std::string_view document_;
    TableShapes shapes_;
    std::vector<Row> rows_;
    CellBuffer cells_;
    /// Each text with its length, four bytes, before it.
    std::string texts_;
    Edit edit_;
    std::size_t deadCells_ = 0;
    std::size_t deadTextBytes_ = 0;
};

/// Whether a text is a number's plain decimal form: digits, no leading zero, at most 2147483647.
bool IsPlainNumber(std::string_view text, std::uint32_t& number);

}  // namespace dlv
