#include "webdata/TableCells.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "base/RunTimeError.h"
#include "webdata/Words.h"

namespace dlv {

namespace {

using TextLength = std::uint32_t;

[[noreturn]] void RaiseOutOfMemory() { throw RunTimeError(kErrorOutOfMemory, "Out of memory"); }

}  // namespace

bool IsPlainNumber(std::string_view text, std::uint32_t& number) {
    if (text.empty() || text.size() > TableCells::kLongestNumber || (text[0] == '0' && text.size() > 1))
        return false;
    std::uint64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return false;
        value = value * 10 + static_cast<std::uint64_t>(c - '0');
    }
    if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max())) return false;
    number = static_cast<std::uint32_t>(value);
    return true;
}

TableCells::TableCells(std::shared_ptr<const std::string> source) {
    if (source) SetSource(std::move(source));
}

void TableCells::SetSource(std::shared_ptr<const std::string> source) {
    if (source->size() >= kTextTag) RaiseOutOfMemory();
    source_ = std::move(source);
    document_ = *source_;
}

std::string_view TableCells::OwnText(std::size_t at) const {
    TextLength length;
    std::memcpy(&length, texts_.data() + at, sizeof length);
    return {texts_.data() + at + sizeof length, length};
}

/// What stands between the quote at `quote` and the next of its kind, which exists.
std::string_view TableCells::QuotedText(std::size_t quote) const {
    const char* const begin = document_.data() + quote + 1;
    const char* const end = document_.data() + document_.size();
    const std::uint64_t quotes = EveryByte(static_cast<unsigned char>(begin[-1]));
    const char* at = begin;
    for (; end - at >= static_cast<std::ptrdiff_t>(sizeof quotes); at += sizeof quotes) {
        const std::uint64_t found = BytesZero(LoadWord(at) ^ quotes);
        if (found) return {begin, at + std::countr_zero(found) / 8};
    }
    while (*at != begin[-1]) ++at;
    return {begin, at};
}

Cell TableCells::MakeCell(std::string_view text) {
    std::uint32_t number;
    return IsPlainNumber(text, number) ? number : StoreText(text);
}

Cell TableCells::MakeSourceCell(std::string_view raw, std::size_t quote) {
    std::uint32_t number;
    return IsPlainNumber(raw, number) ? number : kTextTag | static_cast<Cell>(quote);
}

Cell TableCells::StoreText(std::string_view text) {
    const std::size_t place = document_.size() + texts_.size();
    if (place >= kTextTag || text.size() >= kTextTag) RaiseOutOfMemory();
    const auto length = static_cast<TextLength>(text.size());
    // A text of this very table may move while the store grows.
    const std::string copy(text);
    texts_.append(reinterpret_cast<const char*>(&length), sizeof length).append(copy);
    return kTextTag | static_cast<Cell>(place);
}

void TableCells::ReplaceCell(Cell& cell, std::string_view text) {
    std::uint32_t number;
    const bool plain = IsPlainNumber(text, number);
    if (!IsOwnText(cell)) {
        cell = plain ? number : StoreText(text);
        return;
    }
    const std::size_t at = OwnTextAt(cell);
    const auto before = static_cast<TextLength>(OwnText(at).size());
    if (!plain && text.size() <= before) {
        const auto length = static_cast<TextLength>(text.size());
        std::memmove(texts_.data() + at + sizeof length, text.data(), text.size());
        std::memcpy(texts_.data() + at, &length, sizeof length);
        deadTextBytes_ += before - length;
        return;
    }
    cell = plain ? number : StoreText(text);
    deadTextBytes_ += before + sizeof(TextLength);
}

void TableCells::CheckRoom(std::size_t cells) const {
    if (cells > std::numeric_limits<std::uint32_t>::max() - cells_.Size()) RaiseOutOfMemory();
}

void TableCells::Expect(std::size_t width, std::size_t rows) {
    CheckRoom(width);
    rows_.reserve(std::max(rows_.size() + rows + 1, rows_.capacity()));
    if (cells_.Free() < width) cells_.Grow(width, width * rows);
}

void TableCells::Trim() {
    cells_.Trim();
    if (rows_.capacity() > rows_.size() + rows_.size() / 2) rows_.shrink_to_fit();
}

void TableCells::AddRow(std::span<const Column> columns, std::span<const Cell> cells) {
    const Shape shape = shapes_.ShapeOf(columns);
    CheckRoom(cells.size());
    if (cells_.Free() < cells.size()) cells_.Grow(cells.size(), 0);
    std::copy(cells.begin(), cells.end(), cells_.End());
    TakeRow(shape, cells.size());
}

void TableCells::SetField(std::size_t row, Column column, std::string_view text) {
    if (edit_.row != row) {
        const Row line = rows_[row];
        const std::uint32_t place = shapes_.Place(line.shape, column);
        if (place != TableShapes::kNowhere) {
            ReplaceCell(cells_[line.firstCell + place], text);
        } else {
            Settle();
            OpenEdit(row);
        }
    }
    if (edit_.row == row) {
        if (edit_.places.size() <= column) edit_.places.resize(shapes_.ColumnCount());
        if (const std::uint32_t place = edit_.places[column]; place != 0) {
            ReplaceCell(edit_.cells[place - 1], text);
        } else {
            edit_.cells.push_back(MakeCell(text));
            edit_.columns.push_back(column);
            edit_.places[column] = static_cast<std::uint32_t>(edit_.cells.size());
        }
    }
    if (IsWasteful()) {
        Settle();
        Compact();
    }
}

void TableCells::OpenEdit(std::size_t row) {
    const Row line = rows_[row];
    const std::span<const Column> columns = shapes_.Columns(line.shape);
    edit_.places.resize(shapes_.ColumnCount());
    edit_.columns.assign(columns.begin(), columns.end());
    edit_.cells.assign(CellsAt(line.firstCell), CellsAt(line.firstCell) + columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i)
        edit_.places[columns[i]] = static_cast<std::uint32_t>(i + 1);
    edit_.row = row;
}

void TableCells::CloseEdit() {
    Row& line = rows_[edit_.row];
    const std::size_t before = shapes_.Columns(line.shape).size();
    const std::size_t width = edit_.cells.size();
    const Shape shape = shapes_.ShapeOf(edit_.columns);
    const bool last = line.firstCell + before == cells_.Size();
    const std::size_t more = last ? width - before : width == before ? 0 : width;
    CheckRoom(more);
    if (cells_.Free() < more) cells_.Grow(more, 0);
    if (!last && more > 0) {
        line.firstCell = static_cast<std::uint32_t>(cells_.Size());
        deadCells_ += before;
    }
    std::copy(edit_.cells.begin(), edit_.cells.end(), cells_.Data() + line.firstCell);
    cells_.Take(more);
    line.shape = shape;
    for (const Column column : edit_.columns) edit_.places[column] = 0;
    edit_.row = kNoRow;
}

/// More than half of what is held is no longer used.
bool TableCells::IsWasteful() const {
    constexpr std::size_t kAcceptable = std::size_t{1} << 16;
    const std::size_t dead = deadCells_ * sizeof(Cell) + deadTextBytes_;
    const std::size_t all = cells_.Size() * sizeof(Cell) + texts_.size();
    return dead > kAcceptable && dead > all / 2;
}

void TableCells::Compact() {
    CellBuffer cells;
    cells.Grow(cells_.Size() - deadCells_, 0);
    std::string texts;
    std::vector<Row> rows = rows_;
    for (Row& line : rows) {
        const std::size_t width = shapes_.Columns(line.shape).size();
        const Cell* from = CellsAt(line.firstCell);
        line.firstCell = static_cast<std::uint32_t>(cells.Size());
        for (std::size_t i = 0; i < width; ++i) {
            Cell cell = from[i];
            if (IsOwnText(cell)) {
                const std::size_t at = OwnTextAt(cell);
                cell = kTextTag | static_cast<Cell>(document_.size() + texts.size());
                texts.append(texts_, at, sizeof(TextLength) + OwnText(at).size());
            }
            cells.Append(cell);
        }
    }
    rows_ = std::move(rows);
    std::swap(cells_, cells);
    texts_ = std::move(texts);
    deadCells_ = 0;
    deadTextBytes_ = 0;
}

}  // namespace dlv
