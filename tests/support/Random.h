// Random numbers that are the same in every run: the seed is all that they depend on.
#pragma once

#include <cstdint>
#include <random>

namespace dlv::test {

class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    std::uint32_t Bits() { return static_cast<std::uint32_t>(engine_()); }
    /// From 0 to `count` - 1.
    std::uint32_t Below(std::uint32_t count) { return Bits() % count; }
    /// True once in so many times.
    bool OneIn(std::uint32_t times) { return Below(times) == 0; }

private:
    std::mt19937 engine_;
};

}  // namespace dlv::test
