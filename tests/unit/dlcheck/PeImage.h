// Made-up Windows binaries: headers and one section with what the tests look for, no code.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace dlv::test {

struct PeImage {
    std::uint32_t machine = 0x8664;
    bool isLibrary = true;
    std::vector<std::string> imports;
    std::string manifest;
    /// Of a managed program; 0 for a native one.
    std::uint32_t managedFlags = 0;

    std::string Bytes() const;
};

inline constexpr std::uint32_t kX86 = 0x14C, kX64 = 0x8664, kArm64 = 0xAA64;

}  // namespace dlv::test
