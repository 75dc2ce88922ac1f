// Finds a byte in 64 bytes of text at a time: one bit for each place where it occurs. The portable
// form works with plain words; where the processor compares 16 bytes at once, that form is used.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "webdata/Words.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace dlv {

inline constexpr std::size_t kBlock = 64;

/// Reads kBlock bytes.
inline std::uint64_t PortableBlockMask(const char* text, char byte) {
    std::uint64_t mask = 0;
    for (unsigned i = 0; i < kBlock / 8; ++i) {
        const std::uint64_t found =
            BytesEqual(LoadWord(text + std::size_t{8} * i), static_cast<unsigned char>(byte)) >> 7;
        // The product brings the eight marks together in the top byte.
        mask |= ((found * 0x0102040810204080ull) >> 56) << (8 * i);
    }
    return mask;
}

#if defined(__SSE2__)
inline std::uint64_t BlockMask(const char* text, char byte) {
    const __m128i wanted = _mm_set1_epi8(byte);
    const auto part = [&](unsigned i) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + std::size_t{16} * i));
        const auto bits = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, wanted)));
        return static_cast<std::uint64_t>(bits) << (16 * i);
    };
    return part(0) | part(1) | part(2) | part(3);
}
#else
inline std::uint64_t BlockMask(const char* text, char byte) { return PortableBlockMask(text, byte); }
#endif

/// The first place of a byte from `from` on. Only whole blocks are searched: when fewer bytes than a
/// block are left, the result is npos.
inline std::size_t FindInBlocks(std::string_view text, std::size_t from, char byte) {
    for (; from + kBlock <= text.size(); from += kBlock) {
        if (const std::uint64_t mask = BlockMask(text.data() + from, byte); mask != 0) {
            return from + static_cast<std::size_t>(std::countr_zero(mask));
        }
    }
    return std::string_view::npos;
}

}  // namespace dlv
