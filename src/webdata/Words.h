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

/// Like BytesEqual, but only the lowest mark means something.
constexpr std::uint64_t FirstByteEqual(std::uint64_t word, unsigned char byte) {
    const std::uint64_t different = word ^ EveryByte(byte);
    return (different - EveryByte(1)) & ~different & EveryByte(0x80);
}

/// Not 0 when a byte of the word is one that a value in quotes cannot hold as it stands: a control
/// character, '<', '&', or anything beyond ASCII (which takes a closer look).
constexpr std::uint64_t BytesNotPlain(std::uint64_t word) {
    const std::uint64_t control = (word - EveryByte(0x20)) & ~word;
    const std::uint64_t less = word ^ EveryByte('<');
    const std::uint64_t ampersand = word ^ EveryByte('&');
    return (control | ((less - EveryByte(1)) & ~less) | ((ampersand - EveryByte(1)) & ~ampersand) | word) &
           EveryByte(0x80);
}

/// 0 when the low `count` (1 to 8) bytes of the word are decimal digits.
constexpr std::uint64_t NotDigits(std::uint64_t word, unsigned count) {
    const std::uint64_t digits = (word ^ EveryByte('0')) << (64 - 8 * count);
    return ((digits + EveryByte(0x76)) | digits) & EveryByte(0x80);
}

/// The number that the low `count` (1 to 8) bytes of the word, all digits, write in decimal.
constexpr std::uint32_t DecimalValue(std::uint64_t word, unsigned count) {
    std::uint64_t digits = (word ^ EveryByte('0')) << (64 - 8 * count);
    digits = digits * 10 + (digits >> 8);
    constexpr std::uint64_t kPairs = 0x000000FF000000FFull;
    return static_cast<std::uint32_t>(((digits & kPairs) * (100 + (1000000ull << 32)) +
                                       ((digits >> 16) & kPairs) * (1 + (10000ull << 32))) >>
                                      32);
}

/// The number of 1 bits, without the instruction that not every processor has.
constexpr unsigned CountBits(std::uint64_t word) {
    word -= (word >> 1) & EveryByte(0x55);
    word = (word & EveryByte(0x33)) + ((word >> 2) & EveryByte(0x33));
    return static_cast<unsigned>((((word + (word >> 4)) & EveryByte(0x0F)) * EveryByte(1)) >> 56);
}

}  // namespace dlv
