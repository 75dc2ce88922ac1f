#include "webdata/QuoteFinder.h"

#include <algorithm>
#include <bit>

#include "webdata/QuoteMask.h"

namespace dlv {

namespace {

/// Writes the offsets of a block's quotes. A block seldom has more than twelve; writing as many each
/// time costs less than guessing their number.
std::size_t WriteOffsets(std::uint64_t mask, std::uint32_t base, std::uint32_t* out) {
    constexpr unsigned kUsual = 12;
    constexpr std::uint64_t kLast = std::uint64_t{1} << 63;
    const unsigned count = CountBits(mask);
    const auto write = [&](unsigned from, unsigned to) {
        for (unsigned i = from; i < to; ++i) {
            out[i] = base + static_cast<std::uint32_t>(std::countr_zero(mask | kLast));
            mask &= mask - 1;
        }
    };
    write(0, kUsual);
    if (count > kUsual) write(kUsual, count);
    return count;
}

}  // namespace

void QuoteFinder::Restart(std::size_t position) {
    next_ = 0;
    found_ = 0;
    scanned_ = position;
    ahead_ = 0;
}

bool QuoteFinder::FindMore(std::size_t count) {
    constexpr std::size_t kMostAhead = 2048;
    std::copy(offsets_.begin() + static_cast<std::ptrdiff_t>(next_),
              offsets_.begin() + static_cast<std::ptrdiff_t>(found_), offsets_.begin());
    found_ -= next_;
    next_ = 0;
    // Little at first: rows that differ each time are not searched far ahead in vain.
    ahead_ = std::max(count, std::min(2 * ahead_, kMostAhead));
    if (offsets_.size() < ahead_ + kQuoteBlock) offsets_.resize(ahead_ + kQuoteBlock);
    while (found_ < ahead_ && scanned_ + kQuoteBlock <= text_.size()) {
        found_ += WriteOffsets(QuoteMask(text_.data() + scanned_), static_cast<std::uint32_t>(scanned_),
                               offsets_.data() + found_);
        scanned_ += kQuoteBlock;
    }
    return found_ >= count;
}

}  // namespace dlv
