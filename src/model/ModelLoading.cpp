#include "model/ModelLoading.h"

#include <array>

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

/// The fields of one detail row, each read when the model asks for it.
class DetailReader {
public:
    explicit DetailReader(const RowTable& table)
        : table_(table),
          id_(table.FindColumn("BUID")),
          type_(table.FindColumn("JobType")),
          class_(table.FindColumn("JobClass")),
          counters_(FindColumns(table, kCounterColumns)) {}

    void GoTo(std::size_t row) { row_ = row; }
    std::string_view BUID() const { return ReadText(table_, row_, id_); }
    std::string_view JobType() const { return ReadText(table_, row_, type_); }
    std::string_view JobClass() const { return ReadText(table_, row_, class_); }
    void Counters(dlv::Counters& counters) const { table_.ReadNumbers(row_, counters_, counters); }

private:
    const RowTable& table_;
    std::size_t row_ = 0;
    RowTable::Column id_;
    RowTable::Column type_;
    RowTable::Column class_;
    std::array<RowTable::Column, kCounterCount> counters_;
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
    DetailReader reader(details);
    const std::size_t rows = details.RowCount();
    for (std::size_t row = 1; row <= rows; ++row) {
        reader.GoTo(row);
        model.AddDetail(reader.BUID(), reader);
    }
}

}  // namespace dlv
