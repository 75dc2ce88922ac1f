#include "webdata/Words.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <random>
#include <string>

#include "webdata/BlockMask.h"
#include "webdata/TextPool.h"
#include "webdata/XmlChars.h"

namespace dlv::test {
namespace {

std::uint64_t WordOf(std::string text) {
    text.resize(8, ' ');
    return LoadWord(text.data());
}

TEST(Words, TellPlainBytesInEveryPlace) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        const bool plain = byte >= 0x20 && byte < 0x80 && byte != '<' && byte != '&';
        for (std::size_t place = 0; place < 8; ++place) {
            for (const char other : {' ', 'x', '!', '\x7F', '=', '\''}) {
                std::string text(8, other);
                text[place] = static_cast<char>(byte);
                EXPECT_EQ(BytesNotPlain(LoadWord(text.data())) == 0, plain) << byte << " at " << place;
            }
        }
    }
}

TEST(Words, FindTheFirstByteThatIsNoDigit) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        if (byte >= '0' && byte <= '9') continue;
        for (unsigned place = 0; place < 8; ++place) {
            for (const char behind : {'0', '"', 'x', '\xFF'}) {
                std::string text =
                    std::string(place, '9') + static_cast<char>(byte) + std::string(7 - place, behind);
                EXPECT_EQ(static_cast<unsigned>(std::countr_zero(NotDigits(LoadWord(text.data())))),
                          8 * place + 7);
            }
        }
    }
    EXPECT_EQ(NotDigits(LoadWord("01234567")), 0u);
}

TEST(Words, GiveTheNumberBelowAMark) {
    std::mt19937 random(1);
    for (unsigned count = 1; count <= 7; ++count) {
        for (int i = 0; i < 1000; ++i) {
            std::string text;
            for (unsigned k = 0; k < count; ++k) text += static_cast<char>('0' + random() % 10);
            EXPECT_EQ(DecimalValue(WordOf(text + "\"/>"), 8 * count + 7), std::stoul(text)) << text;
        }
    }
}

TEST(Words, FindTheFirstZeroByteAndWhatStandsBelowIt) {
    std::mt19937 random(2);
    for (int i = 0; i < 10000; ++i) {
        std::string text;
        for (int k = 0; k < 8; ++k) text += static_cast<char>(random() % 3 * (random() % 256));
        const std::size_t place = text.find('\0');
        const std::uint64_t marks = BytesZero(LoadWord(text.data()));
        ASSERT_EQ(marks != 0, place != std::string::npos);
        if (marks == 0) continue;
        ASSERT_EQ(static_cast<std::size_t>(std::countr_zero(marks)), 8 * place + 7);
        ASSERT_EQ(BytesBelow(marks), place == 0 ? 0 : ~std::uint64_t{0} >> (64 - 8 * place));
    }
}

TEST(BlockMask, IsTheSameInBothForms) {
    std::mt19937 random(3);
    for (int i = 0; i < 10000; ++i) {
        std::array<char, kBlock> text;
        std::uint64_t expected = 0;
        for (std::size_t k = 0; k < text.size(); ++k) {
            const unsigned choice = random() % 4;
            text[k] = choice == 0   ? '<'
                      : choice == 1 ? static_cast<char>('<' + 0x80)
                      : choice == 2 ? '='
                                    : ';';
            if (choice == 0) expected |= std::uint64_t{1} << k;
        }
        ASSERT_EQ(PortableBlockMask(text.data(), '<'), expected);
        ASSERT_EQ(BlockMask(text.data(), '<'), expected);
    }
}

TEST(BlockMask, FindsAByteInWholeBlocksOnly) {
    for (std::size_t size = 0; size < 300; size += 7) {
        for (std::size_t place = 0; place < size; ++place) {
            std::string text(size, 'x');
            text[place] = '<';
            for (const std::size_t from : {std::size_t{0}, std::size_t{5}, place, size}) {
                const bool inBlock = place >= from && from + ((place - from) / kBlock + 1) * kBlock <= size;
                ASSERT_EQ(FindInBlocks(text, from, '<'), inBlock ? place : std::string::npos)
                    << size << ' ' << place;
            }
        }
    }
}

TEST(TextPool, GivesTheFirstCellOfATextAndNeverThatOfAnother) {
    TextPool pool;
    Cell cell = 0;
    EXPECT_FALSE(pool.Find(0, 0, cell));
    unsigned found = 0;
    for (int round = 0; round < 2; ++round) {
        for (std::uint64_t i = 0; i < 100000; ++i) {
            const std::uint64_t first = i * 0x0101;
            const auto own = static_cast<Cell>(i + 1);
            if (pool.Find(first, i / 7, cell)) {
                ASSERT_EQ(cell, own);
                ++found;
            } else {
                pool.Add(first, i / 7, own);
            }
        }
    }
    // It forgets, but not everything.
    EXPECT_LT(found, 100000u);
    EXPECT_GT(found, 100u);
}

}  // namespace
}  // namespace dlv::test
