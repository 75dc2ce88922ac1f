#include "webdata/QZWebTable.h"

#include <algorithm>
#include <charconv>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "webdata/Documents.h"
#include "webdata/RowScanner.h"
#include "webdata/XmlReader.h"
#include "webdata/XmlWriter.h"

namespace dlv {

namespace {

constexpr std::size_t kNumberSize = TableCells::kLongestNumber;

std::string_view WriteNumber(Cell number, char* out) {
    const auto result = std::to_chars(out, out + kNumberSize, number);
    return {out, static_cast<std::size_t>(result.ptr - out)};
}

void ReadRow(const XmlReader& reader, TableCells& cells, std::vector<TableCells::Column>& columns,
             std::vector<Cell>& values) {
    columns.clear();
    values.clear();
    for (const XmlReader::Attribute& attribute : reader.Attributes()) {
        columns.push_back(cells.Shapes().ColumnOf(attribute.name));
        values.push_back(attribute.plain ? TableCells::MakeSourceCell(attribute.raw, attribute.quote)
                                         : cells.MakeCell(reader.Value(attribute)));
    }
    cells.AddRow(columns, values);
}

/// Reads rows up to the end of the table.
void ReadRows(XmlReader& reader, std::string_view text, TableCells& cells) {
    RowScanner scanner(text, cells);
    std::vector<TableCells::Column> columns;
    std::vector<Cell> values;
    std::vector<XmlReader::Attribute> attributes;
    for (;;) {
        const XmlReader::Event event = reader.Next();
        if (event == XmlReader::Event::EndElement) break;
        if (event != XmlReader::Event::StartElement) continue;
        if (reader.Name() != kRowElement) {
            reader.SkipElement();
            continue;
        }
        const std::size_t start = reader.Start();
        ReadRow(reader, cells, columns, values);
        attributes.assign(reader.Attributes().begin(), reader.Attributes().end());
        reader.SkipElement();
        scanner.Learn(start, reader.Position(), attributes, cells.RowAt(cells.RowCount() - 1).shape);
        reader.ContinueAt(scanner.Scan(reader.Position()));
    }
    cells.Trim();
}

}  // namespace

std::vector<std::string> QZWebTable::Columns() const {
    cells_.Settle();
    const TableShapes& shapes = cells_.Shapes();
    std::vector<std::string> names;
    for (Column column = 0; column < shapes.ColumnCount(); ++column) {
        if (shapes.IsUsed(column)) names.emplace_back(shapes.ColumnName(column));
    }
    return names;
}

RowTable::Column QZWebTable::FindColumn(std::string_view name) const {
    return cells_.Shapes().ColumnOf(name);
}

TableCells::Row QZWebTable::SettledRow(std::size_t row) const {
    if (row < 1 || row > cells_.RowCount()) RaiseSubscript();
    cells_.Settle();
    return cells_.RowAt(row - 1);
}

const QZWebTable::Plan& QZWebTable::PlanFor(Plan& plan, TableCells::Shape shape,
                                            std::span<const Column> columns) const {
    if (plan.shape == shape && std::ranges::equal(plan.columns, columns)) return plan;
    plan.shape = TableShapes::kNowhere;
    plan.columns.assign(columns.begin(), columns.end());
    plan.places.clear();
    for (const Column column : columns) plan.places.push_back(cells_.Shapes().Place(shape, column));
    plan.consecutive = !plan.places.empty() && plan.places[0] != TableShapes::kNowhere;
    for (std::size_t i = 1; i < plan.places.size(); ++i) {
        if (plan.places[i] != plan.places[0] + i) plan.consecutive = false;
    }
    plan.shape = shape;
    return plan;
}

void QZWebTable::RequireColumn(Column column) const {
    const TableShapes& shapes = cells_.Shapes();
    if (column >= shapes.ColumnCount()) RaiseSubscript();
    if (!shapes.IsUsed(column)) RaiseColumnMissing(shapes.ColumnName(column), name_);
}

void QZWebTable::ReadTexts(std::size_t row, std::span<const Column> columns,
                           std::span<std::string_view> texts) const {
    const TableCells::Row line = SettledRow(row);
    const Plan& plan = PlanFor(textPlan_, line.shape, columns);
    if (numberTexts_.size() < columns.size() * kNumberSize) numberTexts_.resize(columns.size() * kNumberSize);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (plan.places[i] == TableShapes::kNowhere) {
            RequireColumn(columns[i]);
            texts[i] = {};
            continue;
        }
        const Cell cell = cells_.CellAt(line.firstCell + plan.places[i]);
        texts[i] =
            (cell & kTextTag) ? cells_.StoredText(cell) : WriteNumber(cell, &numberTexts_[i * kNumberSize]);
    }
}

// A cell is a number or the place of a text: the same cell is the same text.
void QZWebTable::ReadKeys(std::size_t row, std::span<const Column> columns,
                          std::span<std::uint32_t> keys) const {
    const TableCells::Row line = SettledRow(row);
    const Plan& plan = PlanFor(keyPlan_, line.shape, columns);
    for (std::size_t i = 0; i < columns.size(); ++i)
        keys[i] =
            plan.places[i] == TableShapes::kNowhere ? kNoKey : cells_.CellAt(line.firstCell + plan.places[i]);
}

void QZWebTable::ReadNumbers(std::size_t row, std::span<const Column> columns,
                             std::span<std::int32_t> numbers) const {
    const TableCells::Row line = SettledRow(row);
    const Plan& plan = PlanFor(numberPlan_, line.shape, columns);
    if (plan.consecutive) {
        const Cell* cells = cells_.CellsAt(line.firstCell + plan.places[0]);
        Cell tags = 0;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            tags |= cells[i];
            numbers[i] = static_cast<std::int32_t>(cells[i]);
        }
        if (!(tags & kTextTag)) return;
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (plan.places[i] == TableShapes::kNowhere) {
            RequireColumn(columns[i]);
            numbers[i] = 0;
            continue;
        }
        const Cell cell = cells_.CellAt(line.firstCell + plan.places[i]);
        numbers[i] = (cell & kTextTag) ? ToLong(cells_.StoredText(cell)) : static_cast<std::int32_t>(cell);
    }
}

std::size_t QZWebTable::AddRow() {
    cells_.AddRow();
    return cells_.RowCount();
}

void QZWebTable::SetField(std::size_t row, std::string_view name, std::string_view value) {
    if (row < 1 || row > cells_.RowCount()) RaiseSubscript();
    cells_.SetField(row - 1, cells_.Shapes().ColumnOf(name), value);
}

void QZWebTable::Fill(std::span<const std::string> columns, std::span<const std::string> values) {
    if (columns.empty() && !values.empty()) RaiseInvalidCall();
    TableFill fill(columns);
    for (const std::string& value : values) fill.Add(value);
    Fill(std::move(fill));
}

void QZWebTable::Fill(TableFill fill) {
    cells_ = fill.Take();
    textPlan_ = {};
    numberPlan_ = {};
    keyPlan_ = {};
}

void QZWebTable::LoadText(std::string text) {
    const auto source = std::make_shared<const std::string>(std::move(text));
    XmlReader reader(*source);
    QZWebTable loaded;
    StartDocument(reader, kTableElement);
    loaded.Read(reader, source);
    EndDocument(reader);
    *this = std::move(loaded);
}

void QZWebTable::Read(XmlReader& reader, const std::shared_ptr<const std::string>& source) {
    name_ = reader.Value(kNameAttribute);
    cells_ = TableCells(source);
    textPlan_ = {};
    numberPlan_ = {};
    keyPlan_ = {};
    ReadRows(reader, *source, cells_);
}

std::string QZWebTable::Text() const {
    XmlWriter writer;
    Write(writer);
    return writer.Take();
}

void QZWebTable::Write(XmlWriter& writer) const {
    cells_.Settle();
    writer.StartElement(kTableElement);
    writer.Attribute(kNameAttribute, name_);
    char number[kNumberSize];
    for (std::size_t row = 0; row < cells_.RowCount(); ++row) {
        const TableCells::Row line = cells_.RowAt(row);
        const Cell* cell = cells_.CellsAt(line.firstCell);
        writer.StartElement(kRowElement);
        for (const Column column : cells_.Shapes().Columns(line.shape)) {
            writer.Attribute(cells_.Shapes().ColumnName(column),
                             (*cell & kTextTag) ? cells_.StoredText(*cell) : WriteNumber(*cell, number));
            ++cell;
        }
        writer.EndElement();
    }
    writer.EndElement();
}

}  // namespace dlv
