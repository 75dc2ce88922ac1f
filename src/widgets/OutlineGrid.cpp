#include "widgets/OutlineGrid.h"

#include <algorithm>
#include <cmath>

#include "base/Number.h"
#include "base/RunTimeError.h"

namespace dlv {

std::size_t OutlineGrid::Slot(int row) const {
    if (row < 0 || row >= Rows()) RaiseSubscript();
    return order_[Index(row)];
}

const OutlineGrid::Cell& OutlineGrid::At(int row, int column) const {
    if (column < 0 || column >= columns_) RaiseSubscript();
    return cells_[Slot(row) * Index(columns_) + Index(column)];
}

OutlineGrid::Cell& OutlineGrid::At(int row, int column) {
    return const_cast<Cell&>(std::as_const(*this).At(row, column));
}

const OutlineGrid::Column& OutlineGrid::ColumnAt(int column) const {
    if (column < 0 || column >= columns_) RaiseSubscript();
    return columnState_[Index(column)];
}

OutlineGrid::Column& OutlineGrid::ColumnAt(int column) {
    return const_cast<Column&>(std::as_const(*this).ColumnAt(column));
}

void OutlineGrid::Restructured() {
    // The index refers to texts of rows, which move when rows are added.
    rowsByData_.clear();
    indexedRows_ = 0;
    displayedKnown_ = false;
    ++rowsVersion_;
    toggled_.clear();
    if (currentRow_ >= Rows()) SetCurrentCell(0, 0);
    MarkChanged();
}

void OutlineGrid::Clear() {
    order_.clear();
    states_.clear();
    cells_.clear();
    texts_.clear();
    columnState_.clear();
    headerFactors_.clear();
    headerColours_.clear();
    columns_ = 0;
    fixedRows_ = 0;
    topIndex_ = 0;
    SetCurrentCell(0, 0);
    Restructured();
}

void OutlineGrid::SetColumns(int columns) {
    columns_ = columns;
    columnState_.resize(Index(columns));
    MarkChanged();
}

std::uint32_t OutlineGrid::NewSlot() {
    states_.emplace_back();
    cells_.resize(cells_.size() + Index(columns_));
    return static_cast<std::uint32_t>(states_.size() - 1);
}

void OutlineGrid::Reserve(int rows) {
    order_.reserve(Index(rows));
    states_.reserve(Index(rows));
    cells_.reserve(Index(rows) * Index(columns_));
    Restructured();
}

void OutlineGrid::SetRows(int rows) {
    if (rows < Rows()) {
        order_.resize(Index(rows));
        Restructured();
        if (rows <= fixedRows_) DropUnusedTexts();
        return;
    }
    while (Rows() < rows) order_.push_back(NewSlot());
    Restructured();
}

// Slots and texts of removed rows stay behind until only the header is left: a refill starts so.
void OutlineGrid::DropUnusedTexts() {
    std::vector<Row> states;
    std::vector<Cell> cells;
    std::vector<std::string> texts;
    for (std::uint32_t& slot : order_) {
        states.push_back(std::move(states_[slot]));
        for (int column = 0; column < columns_; ++column) {
            Cell cell = cells_[Index(static_cast<int>(slot)) * Index(columns_) + Index(column)];
            if (cell.kind == Cell::Kind::Text) {
                texts.push_back(std::move(texts_[cell.text]));
                cell.text = texts.size() - 1;
            }
            cells.push_back(cell);
        }
        slot = static_cast<std::uint32_t>(states.size() - 1);
    }
    // The buffers are kept: the next fill needs about as much again.
    states_.clear();
    std::ranges::move(states, std::back_inserter(states_));
    cells_.clear();
    std::ranges::copy(cells, std::back_inserter(cells_));
    texts_ = std::move(texts);
}

void OutlineGrid::InsertRows(int position, int count) {
    if (position < 0 || position > Rows()) RaiseSubscript();
    std::vector<std::uint32_t> added(Index(count));
    for (std::uint32_t& slot : added) slot = NewSlot();
    order_.insert(order_.begin() + position, added.begin(), added.end());
    Restructured();
}

void OutlineGrid::RemoveRows(const std::vector<bool>& marks) {
    std::size_t kept = 0;
    for (std::size_t row = 0; row < order_.size(); ++row)
        if (!marks[row]) order_[kept++] = order_[row];
    if (kept == order_.size()) return;
    order_.resize(kept);
    Restructured();
}

void OutlineGrid::Append(const Cell& cell, std::string& text) const {
    switch (cell.kind) {
        case Cell::Kind::Empty: return;
        case Cell::Kind::Whole: return AppendWhole(text, cell.whole);
        case Cell::Kind::Single: text += SingleText(cell.single); return;
        case Cell::Kind::Text: text += texts_[cell.text]; return;
    }
}

std::string OutlineGrid::TextOf(const Cell& cell) const {
    std::string text;
    Append(cell, text);
    return text;
}

std::string OutlineGrid::CellText(int row, int column) const { return TextOf(At(row, column)); }

void OutlineGrid::SetText(int row, int column, std::string_view text) {
    Cell& cell = At(row, column);
    if (cell.kind == Cell::Kind::Text) {
        texts_[cell.text] = text;
    } else {
        texts_.emplace_back(text);
        cell.kind = Cell::Kind::Text;
        cell.text = texts_.size() - 1;
    }
    MarkChanged();
}

void OutlineGrid::SetWhole(int row, int column, std::int64_t value) {
    Cell& cell = At(row, column);
    cell.kind = Cell::Kind::Whole;
    cell.whole = value;
    MarkChanged();
}

void OutlineGrid::SetSingle(int row, int column, float value) {
    Cell& cell = At(row, column);
    cell.kind = Cell::Kind::Single;
    cell.single = value;
    MarkChanged();
}

void OutlineGrid::ClearCell(int row, int column) {
    At(row, column) = Cell{};
    MarkChanged();
}

bool OutlineGrid::IsEmpty(int row, int column) const {
    const Cell& cell = At(row, column);
    return cell.kind == Cell::Kind::Empty || (cell.kind == Cell::Kind::Text && texts_[cell.text].empty());
}

std::int64_t OutlineGrid::Whole(int row, int column) const {
    const Cell& cell = At(row, column);
    if (cell.kind == Cell::Kind::Whole) return cell.whole;
    return static_cast<std::int64_t>(RoundHalfEven(LeadingNumber(TextOf(cell))));
}

void OutlineGrid::SetRowData(int row, std::string_view data) {
    State(row).data = data;
    if (row < indexedRows_) {
        rowsByData_.clear();
        indexedRows_ = 0;
    }
    MarkChanged();
}

void OutlineGrid::IndexRows() const {
    for (; indexedRows_ < Rows(); ++indexedRows_) {
        const std::string& data = RowData(indexedRows_);
        if (!data.empty()) rowsByData_.try_emplace(data, indexedRows_);
    }
}

int OutlineGrid::FindRow(std::string_view data) const {
    if (data.empty()) return kNoRow;
    IndexRows();
    const auto found = rowsByData_.find(data);
    return found == rowsByData_.end() ? kNoRow : found->second;
}

void OutlineGrid::SetColumnWidth(int column, double width) { Assign(ColumnAt(column).width, width); }

void OutlineGrid::SetColumnBold(int column, bool bold) { Assign(ColumnAt(column).bold, bold); }

double OutlineGrid::RowHeight(int row) const {
    return Index(row) < headerFactors_.size() && headerFactors_[Index(row)] > 0
               ? rowHeight_ * headerFactors_[Index(row)]
               : rowHeight_;
}

void OutlineGrid::SetHeaderRowHeight(int row, double factor) {
    if (Index(row) >= headerFactors_.size()) headerFactors_.resize(Index(row) + 1, 1.0);
    Assign(headerFactors_[Index(row)], factor);
}

std::optional<Colour> OutlineGrid::RowBackColour(int row) const {
    const Row& state = State(row);
    return state.coloured ? std::optional<Colour>(state.colour) : std::nullopt;
}

std::optional<Colour> OutlineGrid::CellBackColour(int row, int column) const {
    return column < FirstColouredColumn(row) ? std::nullopt : RowBackColour(row);
}

void OutlineGrid::SetRowBackColour(int row, std::optional<Colour> colour, int firstColumn) {
    Row& state = State(row);
    Assign(state.coloured, colour.has_value());
    Assign(state.firstColoured, firstColumn);
    Assign(state.colour, colour.value_or(0));
}

void OutlineGrid::SetRowBold(int row, bool bold) { Assign(State(row).bold, bold); }

std::optional<Colour> OutlineGrid::HeaderColour(int row, int column) const {
    const std::size_t place = Index(row) * Index(columns_) + Index(column);
    return place < headerColours_.size() ? headerColours_[place] : std::nullopt;
}

void OutlineGrid::SetHeaderColour(int row, int firstColumn, int lastColumn, Colour colour) {
    const std::size_t rowStart = Index(row) * Index(columns_);
    if (headerColours_.size() < rowStart + Index(columns_)) headerColours_.resize(rowStart + Index(columns_));
    for (int column = firstColumn; column <= lastColumn; ++column)
        headerColours_[rowStart + Index(column)] = colour;
    MarkChanged();
}

}  // namespace dlv
