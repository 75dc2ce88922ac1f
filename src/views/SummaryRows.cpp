#include "views/SummaryRows.h"

namespace dlv {

namespace {

void AddUp(SummaryRow& row, const Counters& counters) {
    for (std::size_t s = 0; s < kCounterCount; ++s) row.counters[s] += counters[s];
}

}  // namespace

std::uint32_t SummaryRows::AddRow(const std::string& typeText, std::uint32_t type, const BusinessUnits& model,
                                  std::uint32_t jobClass) {
    // Two pairs of codes make one key where a code holds a bar itself.
    std::string key = typeText + '|' + model.JobClassText(jobClass);
    const auto next = static_cast<std::uint32_t>(rows_.size());
    const std::uint32_t row = rowsByKey_.Insert(key, next);
    if (row == next) rows_.push_back({std::move(key), type, jobClass});
    return row;
}

SummaryRow& SummaryRows::RowOf(const std::string& typeText, std::uint32_t type, const BusinessUnits& model,
                               std::uint32_t jobClass) {
    if (type < kNearCodes && jobClass < kNearCodes) {
        std::uint32_t& place = nearPlaces_[type * kNearCodes + jobClass];
        if (place == kNoRecord) place = AddRow(typeText, type, model, jobClass);
        return rows_[place];
    }
    std::uint32_t place = farPlaces_.Find(type, jobClass);
    if (place == PairTable::kNone)
        place = farPlaces_.Insert(type, jobClass, AddRow(typeText, type, model, jobClass));
    return rows_[place];
}

void SummaryRows::AddClasses(const BusinessUnits& model, const BusinessUnit& unit) {
    for (const JobType& type : model.Types(unit))
        for (const JobClass& jobClass : model.Classes(type))
            AddUp(RowOf(model.JobTypeText(type.code), type.code, model, jobClass.code), jobClass.counters);
}

void SummaryRows::AddTotals(const BusinessUnits& model, const BusinessUnit& unit) {
    static const std::string kNoType;
    for (const JobClass& total : model.TotalClasses(unit))
        AddUp(RowOf(kNoType, 0, model, total.code), total.counters);
}

}  // namespace dlv
