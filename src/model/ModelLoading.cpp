#include "model/ModelLoading.h"

#include <array>
#include <vector>

namespace dlv {

namespace {

constexpr std::array<std::string_view, kCounterCount> kCounterColumns = {
    "WOOpen",  "WOWarning",  "WOJeopardy",  "WOLate",  "WOCompleted",  "WOCanceled",  "WONotDone",
    "PtsOpen", "PtsWarning", "PtsJeopardy", "PtsLate", "PtsCompleted", "PtsCanceled", "PtsNotDone"};

template <std::size_t count>
std::array<RowTable::Column, count> FindColumns(const RowTable& table,
                                                const std::array<std::string_view, count>& names) {
    std::array<RowTable::Column, count> columns;
    for (std::size_t i = 0; i < count; ++i) columns[i] = table.FindColumn(names[i]);
    return columns;
}

std::string_view ReadText(const RowTable& table, std::size_t row, const RowTable::Column& column) {
    std::string_view text;
    table.ReadTexts(row, {&column, 1}, {&text, 1});
    return text;
}

/// Remembers what texts led to by their keys: a few at a time, newer ones in the place of older.
class KeyCache {
public:
    explicit KeyCache(unsigned bits) : shift_(32 - bits), entries_(std::size_t{1} << bits) {}

    template <class LookUp>
    std::uint32_t Get(std::uint32_t key, LookUp&& lookUp) {
        Entry& entry = entries_[(key * 0x9E3779B1u) >> shift_];
        if (entry.key == key && key != RowTable::kNoKey) return entry.value;
        const std::uint32_t value = lookUp();
        entry = {key, value};
        return value;
    }

private:
    struct Entry {
        std::uint32_t key = RowTable::kNoKey;
        std::uint32_t value = kNoRecord;
    };

    unsigned shift_;
    std::vector<Entry> entries_;
};

/// Takes detail rows into the model, each field being read when it is needed.
class DetailLoader {
public:
    DetailLoader(const RowTable& table, BusinessUnits& model)
        : table_(table),
          model_(model),
          codes_(FindColumns<3>(table, {"BUID", "JobType", "JobClass"})),
          counters_(FindColumns(table, kCounterColumns)) {}

    /// A row of an unknown unit is passed over; of two rows of one class the first counts.
    void Load(std::size_t row) {
        table_.ReadKeys(row, codes_, keys_);
        const std::uint32_t unit = units_.Get(keys_[0], [&] { return model_.UnitNumber(Text(row, 0)); });
        if (unit == kNoRecord) return;
        const std::uint32_t typeCode = types_.Get(keys_[1], [&] { return model_.JobTypeCode(Text(row, 1)); });
        const std::uint32_t type = model_.AddJobType(unit, typeCode);
        const std::uint32_t code = classes_.Get(keys_[2], [&] { return model_.JobClassCode(Text(row, 2)); });
        if (model_.HasJobClass(type, code)) return;
        Counters counters;
        table_.ReadNumbers(row, counters_, counters);
        model_.AddJobClass(type, code, counters);
    }

private:
    std::string_view Text(std::size_t row, std::size_t field) const {
        return ReadText(table_, row, codes_[field]);
    }

    const RowTable& table_;
    BusinessUnits& model_;
    std::array<RowTable::Column, 3> codes_;
    std::array<RowTable::Column, kCounterCount> counters_;
    std::array<std::uint32_t, 3> keys_{};
    KeyCache units_{15};
    KeyCache types_{8};
    KeyCache classes_{8};
};

}  // namespace

void LoadLookup(const RowTable& table, std::string_view keyColumn, std::string_view itemColumn,
                Dictionary& lookup) {
    lookup.RemoveAll();
    const auto columns = FindColumns<2>(table, {keyColumn, itemColumn});
    const std::size_t rows = table.RowCount();
    for (std::size_t row = 1; row <= rows; ++row) {
        std::array<std::string_view, 2> texts;
        table.ReadTexts(row, columns, texts);
        lookup.Add(texts[0], texts[1]);
    }
}

void LoadUnits(const RowTable& general, BusinessUnits& model) {
    const RowTable::Column id = general.FindColumn("BUID");
    const RowTable::Column description = general.FindColumn("BUDesc");
    const auto figures = FindColumns<3>(general, {"TechCount", "HoursWorked", "HoursRemaining"});
    const std::size_t rows = general.RowCount();
    for (std::size_t row = 1; row <= rows; ++row) {
        BusinessUnit unit;
        unit.BUID = ReadText(general, row, id);
        if (model.Item(unit.BUID)) continue;
        unit.BUDesc = ReadText(general, row, description);
        std::array<std::int32_t, 3> numbers{};
        general.ReadNumbers(row, figures, numbers);
        unit.TechCount = numbers[0];
        unit.HoursWorked = numbers[1];
        unit.HoursRemaining = numbers[2];
        unit.BUIndex = static_cast<std::int32_t>(row);
        model.Add(std::move(unit));
    }
}

void LoadDetails(const RowTable& details, BusinessUnits& model) {
    DetailLoader loader(details, model);
    const std::size_t rows = details.RowCount();
    for (std::size_t row = 1; row <= rows; ++row) loader.Load(row);
}

}  // namespace dlv
