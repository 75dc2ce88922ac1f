// The fourteen counters, and the job class and job type that hold them within one business unit.
#pragma once

#include <array>
#include <cstdint>

#include "base/RunTimeError.h"

namespace dlv {

inline constexpr int kStatusCount = 7;
inline constexpr int kCounterCount = 2 * kStatusCount;

/// Work orders of the statuses Open, Warning, Jeopardy, Late, Completed, Canceled and NotDone at 0 to
/// 6, their points at 7 to 13.
using Counters = std::array<std::int32_t, kCounterCount>;

inline constexpr int kWOOpen = 0;
inline constexpr int kWOCompleted = 4;
inline constexpr int kPtsOpen = 7;
inline constexpr int kPtsCompleted = 11;

/// Error 9 for an index outside 0 to 13.
inline std::int32_t CounterAt(const Counters& counters, int index) {
    if (index < 0 || index >= kCounterCount) RaiseSubscript();
    return counters[static_cast<std::size_t>(index)];
}

/// No record.
inline constexpr std::uint32_t kNoRecord = UINT32_MAX;

struct JobClass {
    std::uint32_t code;  // number in the model's job-class codes
    std::uint32_t type;  // the job type that it belongs to
    Counters counters{};

    std::int32_t GetJobDetails(int index) const { return CounterAt(counters, index); }
};

struct JobType {
    std::uint32_t code;  // number in the model's job-type codes
    std::uint32_t unit;  // the unit that it belongs to
    std::uint32_t firstClass = 0;
    std::uint32_t classCount = 0;
};

}  // namespace dlv
