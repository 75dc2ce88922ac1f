#include "views/SummaryRows.h"

namespace dlv {

void SummaryRows::Add(const std::string& typeText, std::uint32_t type, const BusinessUnits& model,
                      const JobClass& jobClass) {
    std::uint32_t row = rowsByCodes_.Find(type, jobClass.code);
    if (row == PairTable::kNone) {
        // Two pairs of codes make one key where a code holds a bar itself.
        std::string key = typeText + '|' + model.JobClassText(jobClass.code);
        const auto next = static_cast<std::uint32_t>(rows_.size());
        row = rowsByKey_.Insert(key, next);
        if (row == next) rows_.push_back({std::move(key), type, jobClass.code});
        rowsByCodes_.Insert(type, jobClass.code, row);
    }
    auto& sums = rows_[row].counters;
    for (std::size_t s = 0; s < kCounterCount; ++s) sums[s] += jobClass.counters[s];
}

void SummaryRows::AddClasses(const BusinessUnits& model, const BusinessUnit& unit) {
    model.ForEachClass(unit, [&](const JobType& type, const JobClass& jobClass) {
        Add(model.JobTypeText(type.code), type.code, model, jobClass);
    });
}

void SummaryRows::AddTotals(const BusinessUnits& model, const BusinessUnit& unit) {
    static const std::string kNoType;
    for (const JobClass& total : model.TotalClasses(unit)) Add(kNoType, 0, model, total);
}

}  // namespace dlv
