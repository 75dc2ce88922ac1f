// What a process holds of the system, exactly enough to see one thing leaked.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace dlv::test {

struct Resources {
    /// How many more GDI objects the system will give; counted by taking them all.
    int freeGdiSlots = 0;
    /// Windows of this thread, hidden ones too.
    int windows = 0;
    /// Bytes of all heaps that are in use, and in how many blocks.
    std::size_t bytes = 0;
    std::size_t blocks = 0;

    static Resources Now();
    /// Adds to the bytes and blocks what the system itself is known to have left behind.
    Resources& Forgive(std::size_t systemBlocks, std::size_t systemBytes) {
        blocks += systemBlocks;
        bytes += systemBytes;
        return *this;
    }
    /// What `before` had and `this` has not any more, in words; empty when nothing leaked.
    std::string LeakedSince(const Resources& before) const;
};

/// The system's labels (class "Static" of the themed common controls) may each leave a block of memory behind
/// when they go. This counts the labels that come while it lives, and knows what one leaves, from labels of
/// the test's own.
class LabelResidue {
public:
    LabelResidue();
    ~LabelResidue();
    LabelResidue(const LabelResidue&) = delete;
    LabelResidue& operator=(const LabelResidue&) = delete;

    std::size_t Blocks() const { return made_ * blocksEach_; }
    std::size_t Bytes() const { return made_ * bytesEach_; }

private:
    static LRESULT CALLBACK Note(int code, WPARAM window, LPARAM data);

    static inline LabelResidue* current_ = nullptr;
    std::size_t blocksEach_ = 0;
    std::size_t bytesEach_ = 0;
    std::size_t made_ = 0;
    HHOOK hook_ = nullptr;
};

}  // namespace dlv::test
