// The one interface through which loading reads a table's rows: a column is resolved once by name
// and then used by number. Our own tables serve it straight from a message's text; tables of a
// foreign host object are served by an adapter in the Windows layer.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace dlv {

class RowTable {
public:
    /// A column number of one table; only meaningful to the table that gave it.
    using Column = std::uint32_t;

    virtual ~RowTable() = default;

    virtual std::string Name() const = 0;
    virtual std::size_t RowCount() const = 0;

    /// Resolves a column by its exact name. Never fails: for a name that no row has it gives a
    /// column whose every read is error 1002, so that the error arises where the field is used.
    virtual Column FindColumn(std::string_view name) const = 0;

    /// Reads fields of row `row` (1-based; outside: error 9) as text, in the order of `columns`.
    /// A field that the row lacks is empty. The views hold until the next read from this table.
    virtual void ReadTexts(std::size_t row, std::span<const Column> columns,
                           std::span<std::string_view> texts) const = 0;

    /// Reads fields of row `row` as numbers: each the leading number of its text, rounded to a
    /// signed 32-bit integer. Fields are taken in order: the first that fails decides the error
    /// (1002 for a column that no row has, 6 for a number out of range).
    virtual void ReadNumbers(std::size_t row, std::span<const Column> columns,
                             std::span<std::int32_t> numbers) const = 0;

    /// A key that stands for no text.
    static constexpr std::uint32_t kNoKey = UINT32_MAX;

    /// Reads keys of fields instead of their texts. As long as the table does not change, equal keys
    /// stand for equal texts, so that what a text led to need not be looked up again; different keys
    /// mean nothing. `kNoKey` where the table has none to give.
    virtual void ReadKeys(std::size_t /*row*/, std::span<const Column> /*columns*/,
                          std::span<std::uint32_t> keys) const {
        std::ranges::fill(keys, kNoKey);
    }

    /// One field by name, for callers that read a single row.
    std::string Field(std::size_t row, std::string_view name) const {
        const Column column = FindColumn(name);
        std::string_view text;
        ReadTexts(row, {&column, 1}, {&text, 1});
        return std::string(text);
    }
};

}  // namespace dlv
