// The figures of a row in a hierarchy grid: sums over a unit and all its descendants. Sums are wide;
// they do not overflow.
#pragma once

#include <array>
#include <cstdint>

#include "model/BusinessUnits.h"

namespace dlv {

struct UnitFigures {
    std::int64_t techCount = 0;
    std::int64_t hoursRemaining = 0;
    std::int64_t hoursWorked = 0;
    std::array<std::int64_t, kCounterCount> counters{};
    /// How many units of the model went in; with none the row stays empty.
    std::int64_t units = 0;

    UnitFigures& operator+=(const UnitFigures& other) {
        techCount += other.techCount;
        hoursRemaining += other.hoursRemaining;
        hoursWorked += other.hoursWorked;
        for (std::size_t s = 0; s < kCounterCount; ++s) counters[s] += other.counters[s];
        units += other.units;
        return *this;
    }

    UnitFigures& operator+=(const BusinessUnit& unit) {
        techCount += unit.TechCount;
        hoursRemaining += unit.HoursRemaining;
        hoursWorked += unit.HoursWorked;
        for (std::size_t s = 0; s < kCounterCount; ++s) counters[s] += unit.GrandTotals[s];
        ++units;
        return *this;
    }
};

}  // namespace dlv
