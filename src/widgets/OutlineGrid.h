// The outline grid's engine: rows and columns of cells, fixed header rows, row data, outline nodes
// with levels and collapse state, the current cell and the scroll position. It draws nothing: a
// painter reads it, and only the rows in sight. Rows count from 0, header rows included. Finding a
// row by its data takes constant time; inserting, removing and sorting take one pass over the rows
// however many rows take part.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "widgets/Control.h"

namespace dlv {

class OutlineGrid : public Control {
public:
    static constexpr int kNoRow = -1;
    static constexpr double kDefaultRowHeight = Pixels(17);

    using Control::Control;

    /// No rows, no columns, no colours; the current cell is (0, 0).
    void Clear();

    int Rows() const { return static_cast<int>(order_.size()); }
    int Columns() const { return columns_; }
    int FixedRows() const { return fixedRows_; }
    /// Sets the number of columns of a grid without rows.
    void SetColumns(int columns);
    void SetFixedRows(int rows) { fixedRows_ = rows; }
    /// Adds empty rows at the end, or drops rows from the end.
    void SetRows(int rows);
    void InsertRows(int position, int count);
    /// Removes the rows whose mark is set; `marks` has one entry for each row.
    void RemoveRows(const std::vector<bool>& marks);
    /// Makes room for so many rows without further allocation.
    void Reserve(int rows);

    /// Error 9 outside the grid, as for every cell and row below.
    std::string CellText(int row, int column) const;
    /// Appends the cell's text: for whoever reads very many.
    void AppendCell(int row, int column, std::string& text) const { Append(At(row, column), text); }
    void SetText(int row, int column, std::string_view text);
    void SetWhole(int row, int column, std::int64_t value);
    /// A rate: shown with the fewest digits that give the value back.
    void SetSingle(int row, int column, float value);
    void ClearCell(int row, int column);
    bool IsEmpty(int row, int column) const;
    /// The cell read as a whole number; 0 for an empty cell.
    std::int64_t Whole(int row, int column) const;

    const std::string& RowData(int row) const { return State(row).data; }
    void SetRowData(int row, std::string_view data);
    /// The first row with that data; `kNoRow` when there is none. Empty data matches no row.
    int FindRow(std::string_view data) const;

    /// Stable, ascending by the exact texts of the columns in turn. Rows move whole.
    void SortRows(int first, int last, std::span<const int> byColumns);
    /// Puts a node row above each run of data rows with equal text in `column`: it takes that text, and in
    /// the columns from `firstSum` to the last the sums of its run, where a sum of 0 leaves the cell empty.
    /// Nodes have level 1 and the rows below them level 2.
    void GroupRows(int column, int firstSum);

    bool IsNode(int row) const { return State(row).node; }
    int Level(int row) const { return State(row).level; }
    /// How deep a row stands that is no node: one more than the node above it.
    void SetLevel(int row, int level);
    void MakeNode(int row, int level);
    bool IsCollapsed(int row) const { return State(row).collapsed; }
    /// Acts on node rows only.
    void SetCollapsed(int row, bool collapsed);
    void ExpandAll();
    /// Whether rows stand below the node.
    bool HasChildren(int row) const;
    /// The nearest row above with a lower level; `kNoRow` when there is none.
    int ParentRow(int row) const;

    /// Grows with every change of which rows there are, in which order and how deep.
    unsigned RowsVersion() const { return rowsVersion_; }
    /// The nodes that were opened or closed since this was last called, but for those of other rows: nothing
    /// from before the last change of the rows. When many were, only the first of them.
    std::vector<int> TakeToggled() { return std::exchange(toggled_, {}); }

    /// The rows that no collapsed node hides, header rows included, in order.
    const std::vector<int>& DisplayedRows() const;
    /// The place of a row among the displayed rows; for a hidden row that of the node that hides it.
    int DisplayedIndex(int row) const;

    /// Error 9 outside the grid's columns, as for every property of a column.
    double ColumnWidth(int column) const { return ColumnAt(column).width; }
    void SetColumnWidth(int column, double width);
    bool ColumnBold(int column) const { return ColumnAt(column).bold; }
    void SetColumnBold(int column, bool bold);
    double RowHeight(int row) const;
    double DefaultRowHeight() const { return rowHeight_; }
    void SetDefaultRowHeight(double height) { Assign(rowHeight_, height); }
    /// How many times as tall as the others a header row is.
    void SetHeaderRowHeight(int row, double factor);

    std::optional<Colour> RowBackColour(int row) const;
    /// The cells to the left of `firstColumn` stay without a colour.
    void SetRowBackColour(int row, std::optional<Colour> colour, int firstColumn = 0);
    std::optional<Colour> CellBackColour(int row, int column) const;
    int FirstColouredColumn(int row) const { return State(row).firstColoured; }
    bool RowBold(int row) const { return State(row).bold; }
    void SetRowBold(int row, bool bold);
    std::optional<Colour> HeaderColour(int row, int column) const;
    void SetHeaderColour(int row, int firstColumn, int lastColumn, Colour colour);
    /// The column that shows the outline's bars and nodes.
    int TreeColumn() const { return treeColumn_; }
    void SetTreeColumn(int column) { Assign(treeColumn_, column); }

    /// While redrawing is off, a painter leaves the old picture standing.
    bool Redraw() const { return redraw_; }
    void SetRedraw(bool redraw) { Assign(redraw_, redraw); }

    /// Where the current row goes away, the current cell is (0, 0).
    int CurrentRow() const { return currentRow_; }
    int CurrentColumn() const { return currentColumn_; }
    /// The current cell is the only one that is selected then.
    void SetCurrentCell(int row, int column);
    /// Makes the cell the current one; all cells between the one before and it are selected, those of further
    /// calls counted from the same one.
    void ExtendSelection(int row, int column);
    /// Selects all cells below the header and leaves the current one as it is.
    void SelectAll();
    bool AllSelected() const { return allSelected_; }

    /// Rows and columns, the last ones included. Rows that are not displayed stand in it too.
    struct Block {
        int firstRow;
        int lastRow;
        int firstColumn;
        int lastColumn;
        bool Holds(int row, int column) const {
            return row >= firstRow && row <= lastRow && column >= firstColumn && column <= lastColumn;
        }
        bool operator==(const Block&) const = default;
    };
    /// Nothing while the current cell is in the header.
    std::optional<Block> Selection() const;
    /// The first displayed row below the header, as a place among the displayed rows.
    int TopIndex() const;
    void SetTopIndex(int index);
    /// How far the columns are scrolled to the left, in twips.
    double ScrollLeft() const { return scrollLeft_; }
    void SetScrollLeft(double left) { Assign(scrollLeft_, left < 0 ? 0 : left); }

    /// Where the user was, named by row data, so that it survives a refill.
    struct View {
        std::string currentData;
        int currentRow = 0;
        int currentColumn = 0;
        std::string anchorData;
        int anchorRow = 0;
        int anchorColumn = 0;
        bool allSelected = false;
        std::string topData;
        int topRow = 0;
        double scrollLeft = 0;
    };
    View SaveView() const;
    void RestoreView(const View& view);

private:
    struct Cell {
        enum class Kind : std::uint8_t { Empty, Whole, Single, Text } kind = Kind::Empty;
        union {
            std::int64_t whole = 0;
            float single;
            std::size_t text;
        };
    };
    struct Row {
        std::string data;
        std::int32_t level = 0;
        bool node = false;
        bool collapsed = false;
        bool bold = false;
        bool coloured = false;
        Colour colour = 0;
        std::int32_t firstColoured = 0;
    };
    struct Column {
        double width = Pixels(64);
        bool bold = false;
    };

    static constexpr std::size_t kMostToggled = 64;

    static std::size_t Index(int value) { return static_cast<std::size_t>(value); }
    std::size_t Slot(int row) const;
    const Row& State(int row) const { return states_[Slot(row)]; }
    Row& State(int row) { return states_[Slot(row)]; }
    const Column& ColumnAt(int column) const;
    Column& ColumnAt(int column);
    const Cell& At(int row, int column) const;
    Cell& At(int row, int column);
    std::uint32_t NewSlot();
    void Restructured();
    void DropUnusedTexts();
    void Append(const Cell& cell, std::string& text) const;
    std::string TextOf(const Cell& cell) const;
    void IndexRows() const;
    std::string DataOf(int row) const { return row < Rows() ? RowData(row) : std::string(); }
    int RowOfView(const std::string& data, int row) const;

    int columns_ = 0;
    int fixedRows_ = 0;
    int treeColumn_ = 0;
    double rowHeight_ = kDefaultRowHeight;
    std::vector<std::uint32_t> order_;  // the slot of each row
    std::vector<Row> states_;           // by slot
    std::vector<Cell> cells_;           // by slot, `columns_` each
    std::vector<std::string> texts_;
    std::vector<Column> columnState_;
    std::vector<double> headerFactors_;
    std::vector<std::optional<Colour>> headerColours_;

    int currentRow_ = 0;
    int currentColumn_ = 0;
    int anchorRow_ = 0;
    int anchorColumn_ = 0;
    bool allSelected_ = false;
    int topIndex_ = 0;
    double scrollLeft_ = 0;
    bool redraw_ = true;
    unsigned rowsVersion_ = 0;
    std::vector<int> toggled_;

    // Made when asked for: rows by data up to `indexedRows_`, and the displayed rows.
    mutable std::unordered_map<std::string_view, int> rowsByData_;
    mutable int indexedRows_ = 0;
    mutable std::vector<int> displayed_;
    mutable bool displayedKnown_ = false;
};

}  // namespace dlv
