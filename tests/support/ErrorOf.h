// What an action fails with, for tests that provoke errors.
#pragma once

#include <cstdint>

#include "base/Trap.h"

namespace dlv::test {

/// The number of the run-time error that the action raises; 0 when it raises none.
template <class Action>
std::int32_t ErrorOf(Action&& action) {
    std::int32_t number = 0;
    const Trap trap([&](const RunTimeError& error, std::string_view) { number = error.Number(); });
    trap.Run("test", action);
    return number;
}

}  // namespace dlv::test
