// Where the double quotes are in 64 bytes of text, as one bit a byte. The portable form works with
// plain words; where the processor compares 16 bytes at once, that form is used.
#pragma once

#include <cstddef>
#include <cstdint>

#include "webdata/Words.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace dlv {

inline constexpr std::size_t kQuoteBlock = 64;

/// Reads kQuoteBlock bytes.
inline std::uint64_t PortableQuoteMask(const char* text) {
    std::uint64_t mask = 0;
    for (unsigned i = 0; i < kQuoteBlock / 8; ++i) {
        const std::uint64_t quotes = BytesEqual(LoadWord(text + std::size_t{8} * i), '"') >> 7;
        // The product brings the eight marks together in the top byte.
        mask |= ((quotes * 0x0102040810204080ull) >> 56) << (8 * i);
    }
    return mask;
}

#if defined(__SSE2__)
inline std::uint64_t QuoteMask(const char* text) {
    const __m128i quote = _mm_set1_epi8('"');
    std::uint64_t mask = 0;
    for (unsigned i = 0; i < kQuoteBlock / 16; ++i) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + std::size_t{16} * i));
        const auto bits = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, quote)));
        mask |= static_cast<std::uint64_t>(bits) << (16 * i);
    }
    return mask;
}
#else
inline std::uint64_t QuoteMask(const char* text) { return PortableQuoteMask(text); }
#endif

}  // namespace dlv
