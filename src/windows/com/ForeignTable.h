// A table of a message object that is not ours. Rows are asked for once, field by field, and kept.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>
#include <vector>

#include "webdata/RowTable.h"
#include "windows/com/LateBound.h"

namespace dlv {

class ForeignTable final : public RowTable {
public:
    ForeignTable(LateBound table, std::string name) : table_(std::move(table)), name_(std::move(name)) {}

    std::string Name() const override { return name_; }
    std::size_t RowCount() const override;
    Column FindColumn(std::string_view name) const override;
    void ReadTexts(std::size_t row, std::span<const Column> columns,
                   std::span<std::string_view> texts) const override;
    void ReadNumbers(std::size_t row, std::span<const Column> columns,
                     std::span<std::int32_t> numbers) const override;

private:
    /// A row's fields by column, as far as they were asked for.
    using Row = std::vector<std::optional<std::string>>;

    Row& Fetch(std::size_t row, std::span<const Column> columns) const;

    LateBound table_;
    std::string name_;
    mutable std::vector<std::string> columns_;
    mutable std::optional<std::size_t> count_;
    mutable std::vector<Row> rows_;
};

}  // namespace dlv
