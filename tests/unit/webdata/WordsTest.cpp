#include "webdata/Words.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "webdata/QuoteFinder.h"
#include "webdata/QuoteMask.h"
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

TEST(Words, TellDigitsAndTheirNumber) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        for (std::size_t place = 0; place < 8; ++place) {
            std::string text = "99999999";
            text[place] = static_cast<char>(byte);
            for (unsigned count = 1; count <= 8; ++count) {
                const bool digits = place >= count || (byte >= '0' && byte <= '9');
                EXPECT_EQ(NotDigits(LoadWord(text.data()), count) == 0, digits);
            }
        }
    }
    std::mt19937 random(1);
    for (unsigned count = 1; count <= 8; ++count) {
        for (int i = 0; i < 1000; ++i) {
            std::string text;
            for (unsigned k = 0; k < count; ++k) text += static_cast<char>('0' + random() % 10);
            EXPECT_EQ(DecimalValue(WordOf(text + "\"/>"), count), std::stoul(text)) << text;
        }
    }
}

TEST(Words, CountBits) {
    EXPECT_EQ(CountBits(0), 0u);
    EXPECT_EQ(CountBits(~std::uint64_t{0}), 64u);
    for (unsigned i = 0; i < 64; ++i) EXPECT_EQ(CountBits(std::uint64_t{1} << i), 1u);
}

TEST(QuoteMask, IsTheSameInBothForms) {
    std::mt19937 random(2);
    for (int i = 0; i < 10000; ++i) {
        std::array<char, kQuoteBlock> text;
        std::uint64_t expected = 0;
        for (std::size_t k = 0; k < text.size(); ++k) {
            const unsigned choice = random() % 4;
            text[k] = choice == 0 ? '"' : choice == 1 ? static_cast<char>('"' + 0x80) : choice == 2 ? '#' : '!';
            if (choice == 0) expected |= std::uint64_t{1} << k;
        }
        ASSERT_EQ(PortableQuoteMask(text.data()), expected);
        ASSERT_EQ(QuoteMask(text.data()), expected);
    }
}

TEST(QuoteFinder, GivesEveryQuoteOfWholeBlocksInOrder) {
    std::mt19937 random(3);
    for (const unsigned spacing : {1u, 2u, 7u, 100u}) {
        std::string text;
        for (int i = 0; i < 20000; ++i) text += random() % spacing == 0 ? '"' : 'x';
        for (const std::size_t start : {std::size_t{0}, std::size_t{1}, std::size_t{777}}) {
            QuoteFinder finder(text);
            finder.Restart(start);
            std::size_t at = start;
            for (std::size_t count = 1; const std::uint32_t* quotes = finder.Next(count); count = 1 + random() % 60) {
                for (std::size_t i = 0; i < count; ++i) {
                    at = text.find('"', at);
                    ASSERT_EQ(quotes[i], at++);
                }
            }
            // What is left does not fill the last count asked for and the last block.
            EXPECT_LT(text.size() - at, (60 + 2 * kQuoteBlock) * spacing * 2 + kQuoteBlock);
        }
    }
}

}  // namespace
}  // namespace dlv::test
