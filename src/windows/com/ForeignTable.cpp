#include "windows/com/ForeignTable.h"

#include <algorithm>

#include "base/Number.h"
#include "base/RunTimeError.h"
#include "windows/com/Coercion.h"

namespace dlv {

std::size_t ForeignTable::RowCount() const {
    if (!count_) {
        const LONG count = LongOf(*table_.Get(L"RowCount"));
        count_ = count < 0 ? 0 : static_cast<std::size_t>(count);
    }
    return *count_;
}

RowTable::Column ForeignTable::FindColumn(std::string_view name) const {
    const auto found = std::find(columns_.begin(), columns_.end(), name);
    if (found != columns_.end()) return static_cast<Column>(found - columns_.begin());
    columns_.emplace_back(name);
    return static_cast<Column>(columns_.size() - 1);
}

void ForeignTable::ReadTexts(std::size_t row, std::span<const Column> columns,
                             std::span<std::string_view> texts) const {
    const Row& fields = Fetch(row, columns);
    for (std::size_t i = 0; i < columns.size(); ++i) texts[i] = *fields[columns[i]];
}

void ForeignTable::ReadNumbers(std::size_t row, std::span<const Column> columns,
                               std::span<std::int32_t> numbers) const {
    // One by one: the first field that fails decides the error.
    for (std::size_t i = 0; i < columns.size(); ++i)
        numbers[i] = ToLong(*Fetch(row, columns.subspan(i, 1))[columns[i]]);
}

ForeignTable::Row& ForeignTable::Fetch(std::size_t row, std::span<const Column> columns) const {
    if (row < 1 || row > RowCount()) RaiseSubscript();
    if (rows_.size() < row) rows_.resize(row);
    Row& fields = rows_[row - 1];
    if (fields.size() < columns_.size()) fields.resize(columns_.size());
    std::optional<LateBound> object;
    for (const Column column : columns) {
        if (fields[column]) continue;
        if (!object) object = table_.Object(L"Row", Variant(static_cast<LONG>(row)));
        fields[column] = object->Text(L"Field", Variant(columns_[column]));
    }
    return fields;
}

}  // namespace dlv
