// A named table of rows, each row with its own fields; the table's columns are all names that occur
// in its rows. Loaded from text it keeps the text and serves rows straight from it; rows can be
// added and fields set at any time, in linear time over all.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "webdata/RowTable.h"
#include "webdata/TableCells.h"
#include "webdata/TableFill.h"

namespace dlv {

class XmlReader;
class XmlWriter;

class QZWebTable : public RowTable {
public:
    explicit QZWebTable(std::string name = {}) : name_(std::move(name)) {}

    std::string Name() const override { return name_; }
    void SetName(std::string name) { name_ = std::move(name); }

    std::size_t RowCount() const override { return cells_.RowCount(); }
    /// The names that occur in rows.
    std::vector<std::string> Columns() const;

    Column FindColumn(std::string_view name) const override;
    void ReadTexts(std::size_t row, std::span<const Column> columns,
                   std::span<std::string_view> texts) const override;
    void ReadNumbers(std::size_t row, std::span<const Column> columns,
                     std::span<std::int32_t> numbers) const override;
    void ReadKeys(std::size_t row, std::span<const Column> columns,
                  std::span<std::uint32_t> keys) const override;

    /// Adds a row without fields and returns its number.
    std::size_t AddRow();
    /// Sets a field of a row (1-based; outside: error 9), which gets the column if it lacks it.
    void SetField(std::size_t row, std::string_view name, std::string_view value);
    /// Replaces all rows. `values` holds row after row, one value for each column (error 5 when it
    /// does not come out even); a column named twice is error 457.
    void Fill(std::span<const std::string> columns, std::span<const std::string> values);
    /// The same from rows that were written one by one.
    void Fill(TableFill fill);

    /// Replaces name and rows by those of a <WebTable> document. Error 1003 changes nothing.
    void LoadText(std::string text);
    /// The table as a document; error 1003 when it holds what XML cannot.
    std::string Text() const;

    /// Reads the <WebTable> element that the reader has just started. `source` is the reader's text.
    void Read(XmlReader& reader, const std::shared_ptr<const std::string>& source);
    void Write(XmlWriter& writer) const;

private:
    /// Where the columns of a read stand in rows of one shape.
    struct Plan {
        TableCells::Shape shape = TableShapes::kNowhere;
        std::vector<Column> columns;
        std::vector<std::uint32_t> places;
        /// The places follow one another.
        bool consecutive = false;
    };

    TableCells::Row SettledRow(std::size_t row) const;
    const Plan& PlanFor(Plan& plan, TableCells::Shape shape, std::span<const Column> columns) const;
    void RequireColumn(Column column) const;

    std::string name_;
    // Reading settles a row under edit, gives numbers to unknown names, and remembers where columns stand.
    mutable TableCells cells_;
    mutable Plan textPlan_;
    mutable Plan numberPlan_;
    mutable Plan keyPlan_;
    mutable std::vector<char> numberTexts_;
};

}  // namespace dlv
