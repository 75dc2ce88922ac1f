// The computer that the diagnosis runs on.
#pragma once

#include <string>

#include "dlcheck/Computer.h"

namespace dlv::dlcheck {

inline constexpr Bitness kOwnBitness = sizeof(void*) == 8 ? Bitness::Bits64 : Bitness::Bits32;

class ThisComputer final : public Computer {
public:
    explicit ThisComputer(std::wstring classId) : classId_(std::move(classId)) {}

    bool HasBits64() const override;
    FileContent Read(const std::string& path) const override;
    std::optional<Registered> Find(Bitness bitness) const override;
    bool HasLibrary(const std::string& name, const std::string& folder, Bitness bitness) const override;
    std::optional<std::string> LoadingProblem(const std::string& path, Bitness bitness) const override;

private:
    const std::wstring classId_;
};

std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

}  // namespace dlv::dlcheck
