// A file that several programs read and replace as a whole. Who replaces it writes beside it and moves that
// into place: at any moment the file is the old one or the new one, whatever ends the program. What cannot be
// done is an error kErrorFile whose text says why, to be read behind "because".
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace dlv::demo {

inline constexpr std::int32_t kErrorFile = 2001;

/// Paths from and to UTF-8.
std::filesystem::path PathOf(std::string_view text);
std::string TextOf(const std::filesystem::path& path);

class SharedFile {
public:
    explicit SharedFile(std::filesystem::path path) : path_(std::move(path)) {}
    const std::filesystem::path& Path() const { return path_; }

    /// While it lives, no other program has one of the same file.
    class Lock {
    public:
        explicit Lock(int descriptor) : descriptor_(descriptor) {}
        Lock(Lock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
        Lock& operator=(Lock&&) = delete;
        ~Lock();

    private:
        int descriptor_;
    };
    /// Makes the folder if need be. Another program is waited for, a few seconds at most.
    Lock Acquire() const;

    /// Nothing when there is no such file. An empty one is an error.
    std::optional<std::string> Read() const;
    void Replace(std::string_view text) const;
    /// Gives whatever stands in the file's place a name that is free, and returns that.
    std::filesystem::path SetAside() const;

private:
    std::filesystem::path path_;
};

}  // namespace dlv::demo
