// Finds the double quotes of a text, in order, a block at a time and well ahead of their use. That
// takes the finding of one value's end out of the way to the next value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace dlv {

class QuoteFinder {
public:
    /// Up to 4 GB of text.
    explicit QuoteFinder(std::string_view text) : text_(text) {}

    void Restart(std::size_t position);

    /// The offsets of the next `count` quotes; null when fewer lie in the whole blocks that are left.
    /// Holds until the next call.
    const std::uint32_t* Next(std::size_t count) {
        if (found_ - next_ < count && !FindMore(count)) return nullptr;
        const std::uint32_t* quotes = offsets_.data() + next_;
        next_ += count;
        return quotes;
    }

private:
    bool FindMore(std::size_t count);

    std::string_view text_;
    std::vector<std::uint32_t> offsets_;
    std::size_t next_ = 0;
    std::size_t found_ = 0;
    std::size_t scanned_ = 0;
    std::size_t ahead_ = 0;
};

}  // namespace dlv
