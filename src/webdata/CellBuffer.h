// The growing array of a table's cells. Its memory is not cleared, and a large block that is given
// back is kept for the next large table: a refresh then writes into pages that are there already,
// which costs a fraction of fresh ones. One spare block at most is kept in the whole process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace dlv {

/// A cell: a number, or with kTextTag set the place of a text.
using Cell = std::uint32_t;
inline constexpr Cell kTextTag = 0x80000000u;

class CellBuffer {
public:
    CellBuffer() = default;
    ~CellBuffer() { Release(); }
    CellBuffer(CellBuffer&& other) noexcept { Swap(other); }
    CellBuffer& operator=(CellBuffer&& other) noexcept {
        Swap(other);
        return *this;
    }

    std::size_t Size() const { return size_; }
    Cell* Data() { return block_.cells.get(); }
    const Cell* Data() const { return block_.cells.get(); }
    Cell& operator[](std::size_t index) { return block_.cells[index]; }
    Cell operator[](std::size_t index) const { return block_.cells[index]; }

    std::size_t Free() const { return block_.capacity - size_; }
    Cell* End() { return block_.cells.get() + size_; }
    /// Takes `count` cells that were written at the end into the array; they must be free.
    void Take(std::size_t count) { size_ += count; }
    void Append(Cell cell) {
        if (Free() == 0) Grow(1, 0);
        block_.cells[size_++] = cell;
    }

    /// Makes room for at least `count` more cells; `expected` says how many are likely to come.
    void Grow(std::size_t count, std::size_t expected);
    /// Gives back room that is much larger than what it holds.
    void Trim();

private:
    struct Block {
        std::unique_ptr<Cell[]> cells;
        std::size_t capacity = 0;
    };
    struct Spare;

    static Spare& TheSpare();
    static Block Obtain(std::size_t least, std::size_t wanted);
    static void GiveBack(Block block);

    void MoveTo(Block block);
    void Release();
    void Swap(CellBuffer& other) noexcept {
        std::swap(block_, other.block_);
        std::swap(size_, other.size_);
    }

    Block block_;
    std::size_t size_ = 0;
};

}  // namespace dlv
