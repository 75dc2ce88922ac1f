// What the headers of a Windows program or library say of it. Nothing of the file is trusted: what points out
// of it makes it damaged.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dlv::dlcheck {

enum class Processor { X86, X64, Other };

struct PeFile {
    Processor processor = Processor::Other;
    bool isLibrary = false;
    /// A managed program that runs with 64 bits where Windows has them, whatever `processor` says.
    bool followsWindows = false;
    /// The libraries that it cannot be loaded without.
    std::vector<std::string> imports;
    /// The manifest inside; empty when there is none.
    std::string manifest;
};

/// Nothing when the bytes are no such file, or not all of one.
std::optional<PeFile> ReadPeFile(std::string_view bytes);

}  // namespace dlv::dlcheck
