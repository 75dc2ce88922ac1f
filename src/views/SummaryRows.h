// The rows of the summary while units are added up: one for each row key, in the order in which the
// keys are met. Sums are wide.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/BusinessUnits.h"

namespace dlv {

struct SummaryRow {
    /// Job-type code, "|", job-class code; the first part empty for a class over all types.
    std::string key;
    std::uint32_t type;
    std::uint32_t jobClass;
    std::array<std::int64_t, kCounterCount> counters{};
};

class SummaryRows {
public:
    /// Adds every job class of every job type of the unit.
    void AddClasses(const BusinessUnits& model, const BusinessUnit& unit);
    /// Adds the job classes of the unit's totals.
    void AddTotals(const BusinessUnits& model, const BusinessUnit& unit);

    const std::vector<SummaryRow>& All() const { return rows_; }

private:
    /// Pairs of codes below this are found in a flat table; codes count up from 0.
    static constexpr std::size_t kNearCodes = 64;

    SummaryRow& RowOf(const std::string& typeText, std::uint32_t type, const BusinessUnits& model,
                      std::uint32_t jobClass);
    std::uint32_t AddRow(const std::string& typeText, std::uint32_t type, const BusinessUnits& model,
                         std::uint32_t jobClass);

    std::vector<SummaryRow> rows_;
    std::vector<std::uint32_t> nearPlaces_ = std::vector<std::uint32_t>(kNearCodes * kNearCodes, kNoRecord);
    PairTable farPlaces_;
    TextTable rowsByKey_;
};

}  // namespace dlv
