// Remembers where short texts of a document stood, so that cells of equal text share one place. What
// is read over and over (ids, codes) then lies close together in memory instead of all over the
// document. A text that is forgotten for another only loses that advantage.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "webdata/CellBuffer.h"

namespace dlv {

class TextPool {
public:
    /// Texts are remembered when they are shorter than this, in bytes.
    static constexpr std::size_t kLimit = 16;

    TextPool() : entries_(std::size_t{1} << kLeastBits) {}

    /// Gives the cell of a text, if it is remembered. The text comes as two words padded with zero bytes.
    bool Find(std::uint64_t first, std::uint64_t second, Cell& cell) const {
        const Entry& entry = entries_[Place(first, second)];
        cell = entry.cell;
        return ((entry.first ^ first) | (entry.second ^ second)) == 0 && entry.cell != 0;
    }
    /// Remembers a text that was not found.
    void Add(std::uint64_t first, std::uint64_t second, Cell cell) {
        if (++added_ > entries_.size() / 2 && shift_ > 64 - kMostBits) Grow();
        entries_[Place(first, second)] = {first, second, cell};
    }

private:
    static constexpr unsigned kLeastBits = 8;
    static constexpr unsigned kMostBits = 15;

    struct Entry {
        std::uint64_t first = 0;
        std::uint64_t second = 0;
        Cell cell = 0;
    };

    std::size_t Place(std::uint64_t first, std::uint64_t second) const {
        return static_cast<std::size_t>(((first ^ (second << 5 | second >> 59)) * 0x9E3779B97F4A7C15ull) >>
                                        shift_);
    }
    void Grow() {
        --shift_;
        added_ = 0;
        std::vector<Entry> before(2 * entries_.size());
        before.swap(entries_);
        for (const Entry& entry : before) {
            if (entry.cell != 0) entries_[Place(entry.first, entry.second)] = entry;
        }
    }

    std::vector<Entry> entries_;
    unsigned shift_ = 64 - kLeastBits;
    std::size_t added_ = 0;
};

}  // namespace dlv
