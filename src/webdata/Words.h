// Eight bytes of text at a time, in plain 64-bit arithmetic. The first byte of the text is the
// lowest of the word.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace dlv {

static_assert(std::endian::native == std::endian::little, "words are read lowest byte first");

inline std::uint64_t LoadWord(const char* text) {
    std::uint64_t word;
    std::memcpy(&word, text, sizeof word);
    return word;
}

constexpr std::uint64_t EveryByte(unsigned char byte) { return 0x0101010101010101ull * byte; }

/// 0x80 in every byte of the word that is `byte`, 0 in every other.
constexpr std::uint64_t BytesEqual(std::uint64_t word, unsigned char byte) {
    const std::uint64_t different = word ^ EveryByte(byte);
    return ~(((different & EveryByte(0x7F)) + EveryByte(0x7F)) | different | EveryByte(0x7F));
}

/// Marks zero bytes with 0x80; only the lowest mark means something.
constexpr std::uint64_t BytesZero(std::uint64_t word) {
    return (word - EveryByte(1)) & ~word & EveryByte(0x80);
}

/// Not 0 when a byte of the word is one that a value in quotes cannot hold as it stands: a control
/// character, '<', '&', or anything beyond ASCII (which takes a closer look).
constexpr std::uint64_t BytesNotPlain(std::uint64_t word) {
    const std::uint64_t control = (word - EveryByte(0x20)) & ~word;
    const std::uint64_t less = word ^ EveryByte('<');
    const std::uint64_t ampersand = word ^ EveryByte('&');
    return (control | BytesZero(less) | BytesZero(ampersand) | word) & EveryByte(0x80);
}

/// Marks bytes that are no decimal digits with 0x80; only the lowest mark means something.
constexpr std::uint64_t NotDigits(std::uint64_t word) {
    const std::uint64_t digits = word ^ EveryByte('0');
    return ((digits + EveryByte(0x76)) | digits) & EveryByte(0x80);
}

/// All bits of the bytes below the lowest mark; there is one.
constexpr std::uint64_t BytesBelow(std::uint64_t marks) { return ((marks & (0 - marks)) - 1) >> 7; }

/// The number that the digits below a mark write in decimal. The mark is given by its bit: 15, 23,
/// ... 63; for others the result means nothing.
constexpr std::uint32_t DecimalValue(std::uint64_t word, unsigned mark) {
    std::uint64_t digits = (word ^ EveryByte('0')) << ((7 - mark) & 63);
    digits = digits * 10 + (digits >> 8);
    constexpr std::uint64_t kPairs = 0x000000FF000000FFull;
    return static_cast<std::uint32_t>(((digits & kPairs) * (100 + (1000000ull << 32)) +
                                       ((digits >> 16) & kPairs) * (1 + (10000ull << 32))) >>
                                      32);
}

}  // namespace dlv
