#include "base/Text.h"

#include <gtest/gtest.h>
#include <locale.h>
#include <wctype.h>

#include "base/LowerCase.h"
#include "tests/support/Random.h"

namespace dlv {

namespace {

std::u16string RandomUnits(test::Random& random) {
    constexpr char16_t kStarts[] = {0,      0x20,   0x7F,   0x80,   0x7FF,  0x800, 0xD7FF,
                                    0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFFFF};
    std::u16string text(random.Below(8), u' ');
    for (char16_t& unit : text)
        unit = static_cast<char16_t>(kStarts[random.Below(std::size(kStarts))] + random.Below(2));
    return text;
}

TEST(Utf16, ComesBackAsItWasWithLoneSurrogatesToo) {
    test::Random random(1);
    for (int i = 0; i < 20000; ++i) {
        const std::u16string text = RandomUnits(random);
        EXPECT_EQ(ToUtf16(FromUtf16(text)), text);
    }
    EXPECT_EQ(FromUtf16(u"\xD83D\xDE00"), "\U0001F600");
    EXPECT_EQ(FromUtf16(u"\xDE00\xD83D"), "\xED\xB8\x80\xED\xA0\xBD");
}

TEST(Text, InItsBytesHasTheOrderOfItsCodePoints) {
    test::Random random(2);
    const auto points = [](std::string_view text) {
        std::u32string out;
        for (std::size_t at = 0; at < text.size();) out += NextCharacter(text, at);
        return out;
    };
    for (int i = 0; i < 20000; ++i) {
        const std::string left = FromUtf16(RandomUnits(random));
        const std::string right = FromUtf16(RandomUnits(random));
        EXPECT_EQ(left < right, points(left) < points(right)) << left << " and " << right;
    }
}

TEST(LowerCase, IsTheOneOfUnicodeForEveryLetter) {
    // What newer letters of the library's table there may be, these are the letters of all present ones.
    const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    ASSERT_NE(unicode, nullptr);
    for (char32_t c = 0; c < 0x110000; ++c)
        if (const auto lower = static_cast<char32_t>(towlower_l(static_cast<wint_t>(c), unicode));
            lower != LowerCase(c))
            ADD_FAILURE() << std::hex << static_cast<std::uint32_t>(c) << " is "
                          << static_cast<std::uint32_t>(LowerCase(c)) << ", expected "
                          << static_cast<std::uint32_t>(lower);
    freelocale(unicode);
}

TEST(FoldCase, MapsOneLetterToOneLetter) {
    const struct {
        std::string left;
        std::string right;
        bool equal;
    } rows[] = {{"abc", "ABC", true},
                {"", "", true},
                {"a", "ab", false},
                {"straße", "STRASSE", false},
                {"STRAẞE", "straße", true},
                {"Éclair", "éCLAIR", true},
                {"e", "é", false},
                {"Σ", "ς", false},
                {"Σ", "σ", true},
                {"İ", "i", true},
                {"ı", "I", false},
                {"K", "k", true},
                {"ÅÄÖ", "åäö", true},
                {"ДЖ", "дж", true},
                {"𐐀", "𐐨", true},
                {"A\xED\xA0\xBD", "a\xED\xA0\xBD", true},
                {"\xED\xA0\xBD", "\xED\xA0\xBE", false},
                {"[", "{", false},
                {"@", "`", false}};
    for (const auto& row : rows)
        EXPECT_EQ(EqualFolded(row.left, row.right), row.equal) << row.left << ' ' << row.right;
}

TEST(Trim, TakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\t a\n"), "\t a\n");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(OneLine, ShowsWhatALineCannotHoldAndShortensInTheMiddle) {
    EXPECT_EQ(OneLine("a\tb\r\nc\nd\x01", 80), "a\u2192b\u00B6c\u00B6d\uFFFD");
    EXPECT_EQ(OneLine("R&D \u05D0", 80), "R&D \u05D0");
    EXPECT_EQ(OneLine("123456789", 9), "123456789");
    EXPECT_EQ(OneLine("\u00E1234567890", 9), "\u00E12345\u2026890");
}

TEST(SkipCharacters, CountsCodePoints) {
    EXPECT_EQ(SkipCharacters("_é😀x", 1), "é😀x");
    EXPECT_EQ(SkipCharacters("_é😀x", 3), "x");
    EXPECT_EQ(SkipCharacters("_é😀x", 9), "");
    EXPECT_EQ(SkipCharacters("\xED\xA0\xBD"
                             "x",
                             1),
              "x");
    EXPECT_EQ(SkipCharacters("", 1), "");
}

TEST(Split, GivesOneMorePieceThanThereAreSeparators) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(Split("a|b", '|'), (Pieces{"a", "b"}));
    EXPECT_EQ(Split("|a||", '|'), (Pieces{"", "a", "", ""}));
    EXPECT_EQ(Split("", '|'), (Pieces{""}));
    EXPECT_EQ(Join(Pieces{"", ""}, '|'), "|") << "each followed by the separator, the last one dropped";
    EXPECT_EQ(Join(Pieces{}, '|'), "");
}

}  // namespace

}  // namespace dlv
