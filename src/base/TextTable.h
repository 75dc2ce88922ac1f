// A fast look-up from exact text to a number, for the many texts of a refresh. Open addressing over
// flat arrays that keep their memory when the table is cleared.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace dlv {

class TextTable {
public:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    std::size_t Count() const { return count_; }
    /// The value of a text; `kNone` when it is not in the table.
    std::uint32_t Find(std::string_view text) const;
    /// The value that stands for the text afterwards: the given one when the text was new.
    std::uint32_t Insert(std::string_view text, std::uint32_t value);
    void Clear();

private:
    struct Slot {
        std::uint64_t start = 0;  // the first eight bytes
        std::uint32_t length = 0;
        std::uint32_t value = kNone;
        std::size_t tail = 0;  // where the bytes behind the first eight stand
    };

    std::size_t Place(std::uint64_t start, std::string_view text) const;
    bool Equals(const Slot& slot, std::uint64_t start, std::string_view text) const;
    void Grow();

    std::vector<Slot> slots_;
    std::vector<char> tails_;
    std::size_t count_ = 0;
};

/// The same for pairs of numbers.
class PairTable {
public:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    std::uint32_t Find(std::uint32_t first, std::uint32_t second) const;
    /// The value that stands for the pair afterwards: the given one when the pair was new.
    std::uint32_t Insert(std::uint32_t first, std::uint32_t second, std::uint32_t value);
    void Clear();

private:
    struct Slot {
        std::uint64_t key = 0;
        std::uint32_t value = kNone;
    };

    std::size_t Place(std::uint64_t key) const;
    void Grow();

    std::vector<Slot> slots_;
    std::size_t count_ = 0;
};

}  // namespace dlv
