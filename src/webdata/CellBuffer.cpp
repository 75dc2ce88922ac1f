#include "webdata/CellBuffer.h"

#include <algorithm>
#include <cstring>
#include <mutex>

namespace dlv {

namespace {

/// Blocks from this many cells (1 MB) are worth keeping.
constexpr std::size_t kLarge = std::size_t{1} << 18;

}  // namespace

struct CellBuffer::Spare {
    std::mutex mutex;
    Block block;
};

CellBuffer::Spare& CellBuffer::TheSpare() {
    static Spare spare;
    return spare;
}

CellBuffer::Block CellBuffer::Obtain(std::size_t least, std::size_t wanted) {
    if (wanted >= kLarge) {
        const std::scoped_lock lock(TheSpare().mutex);
        if (TheSpare().block.capacity >= least) return std::exchange(TheSpare().block, {});
    }
    return {std::make_unique_for_overwrite<Cell[]>(wanted), wanted};
}

void CellBuffer::GiveBack(Block block) {
    if (block.capacity < kLarge) return;
    const std::scoped_lock lock(TheSpare().mutex);
    if (block.capacity > TheSpare().block.capacity) std::swap(block, TheSpare().block);
}

void CellBuffer::MoveTo(Block block) {
    if (size_ > 0) std::memcpy(block.cells.get(), block_.cells.get(), size_ * sizeof(Cell));
    std::swap(block_, block);
    GiveBack(std::move(block));
}

void CellBuffer::Grow(std::size_t count, std::size_t expected) {
    const std::size_t least = std::max(size_ + std::max(count, expected), 2 * size_);
    MoveTo(Obtain(least, std::max(least + expected / 16, std::size_t{64})));
}

void CellBuffer::Trim() {
    if (block_.capacity < 64 || size_ >= block_.capacity - block_.capacity / 4) return;
    MoveTo({std::make_unique_for_overwrite<Cell[]>(size_), size_});
}

void CellBuffer::Release() {
    GiveBack(std::exchange(block_, {}));
    size_ = 0;
}

}  // namespace dlv
