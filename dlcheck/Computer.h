// What the diagnosis asks of the computer: its files, its registry, and in the end whether a library loads.
#pragma once

#include <optional>
#include <string>

namespace dlv::dlcheck {

enum class Bitness { Bits32, Bits64 };

enum class Access { Given, Missing, Denied };

struct FileContent {
    Access access = Access::Missing;
    std::string bytes;
};

struct Registered {
    std::string path;
    bool forUser = false;
};

/// Paths are Windows' own and full.
class Computer {
public:
    virtual ~Computer() = default;

    virtual bool HasBits64() const = 0;
    virtual FileContent Read(const std::string& path) const = 0;
    /// Where programs of that kind find the control by the registry.
    virtual std::optional<Registered> Find(Bitness bitness) const = 0;
    /// Whether a library lies in that folder or among Windows' own.
    virtual bool HasLibrary(const std::string& name, const std::string& folder, Bitness bitness) const = 0;
    /// Loads the library and asks it for the control; what went wrong in Windows' words. Nothing when all
    /// went well, or when this program cannot load libraries of that kind.
    virtual std::optional<std::string> LoadingProblem(const std::string& path, Bitness bitness) const = 0;
};

}  // namespace dlv::dlcheck
