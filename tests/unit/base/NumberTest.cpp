#include "base/Number.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstring>
#include <limits>

#include "tests/support/ErrorOf.h"
#include "tests/support/Random.h"

namespace dlv {

namespace {

using test::ErrorOf;

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

TEST(LeadingNumber, IsReadFromTheStartOfAText) {
    const struct {
        std::string text;
        double value;
    } rows[] = {{"", 0},
                {"12", 12},
                {"-12", -12},
                {"+12", 12},
                {"1 2", 12},
                {" \t\n- \n5\t.\n2 5", -5.25},
                {"12abc", 12},
                {"abc12", 0},
                {"1,000", 1},
                {"1.2.3", 1.2},
                {".5", .5},
                {"5.", 5},
                {".", 0},
                {"-", 0},
                {"+-5", 0},
                {"--5", 0},
                {"1e3", 1000},
                {"1E+3", 1000},
                {"1d-3", .001},
                {"1D2", 100},
                {"1 e 2", 100},
                {"1e", 1},
                {"1e+", 1},
                {"1e-x", 1},
                {"e5", 0},
                {".e5", 0},
                {"1e5.5", 1e5},
                {"1e2e3", 100},
                {"1e00000000000000000000002", 100},
                {"0e999999", 0},
                {"&HFF", 255},
                {"&hfF", 255},
                {"& H 1 0", 16},
                {"&O17", 15},
                {"&o18", 1},
                {"&H", 0},
                {"&", 0},
                {"&X1", 0},
                {"&HFFFFFFFF", 4294967295.0},
                {"-&H1", 0},
                {"+&H1", 0},
                {"1&H1", 1},
                {"&H-1", 0},
                {"&H1.5", 1},
                {"&&H1", 0},
                {"\r5", 0},
                {"5\r6", 5},
                {"\v5", 0},
                {"\xC2\xA0"
                 "5",
                 0},
                {"(5)", 0},
                {"$5", 0},
                {"inf", 0},
                {"nan", 0},
                {"0x10", 0},
                {"1_000", 1},
                {"1e-400", 0},
                {"-1e-400", 0},
                {"5e-324", 5e-324},
                {"1e308", 1e308},
                {std::string("5\0"
                             "6",
                             3),
                 5},
                {"0." + std::string(400, '0') + "1e401", 1},
                {"1" + std::string(400, '0') + "e-400", 1},
                {"-0", 0},
                {"1e-99999999999999999999", 0}};
    for (const auto& row : rows) EXPECT_EQ(LeadingNumber(row.text), row.value) << '"' << row.text << '"';
    EXPECT_FALSE(std::signbit(LeadingNumber("-0"))) << "no text gives a negative zero";
}

TEST(LeadingNumber, OverflowsBeyondADouble) {
    for (const std::string text : {"1e309", "-1e309", "1e99999999999999999999", "9d999"})
        EXPECT_EQ(ErrorOf([&] { LeadingNumber(text); }), kErrorOverflow) << text;
    EXPECT_EQ(ErrorOf([] { LeadingNumber("&H" + std::string(300, 'F')); }), kErrorOverflow);
    EXPECT_EQ(ErrorOf([] { LeadingNumber("1" + std::string(400, '0')); }), kErrorOverflow);
}

TEST(Long, RoundsHalvesToTheEvenNeighbour) {
    const struct {
        const char* text;
        std::int32_t value;
    } rows[] = {{"0.5", 0},
                {"1.5", 2},
                {"2.5", 2},
                {"3.5", 4},
                {"-0.5", 0},
                {"-1.5", -2},
                {"-2.5", -2},
                {"2.4999999", 2},
                {"2.5000001", 3},
                {"12.5", 12},
                {"13.5", 14},
                {"abc", 0},
                {"999999999", 999999999},
                {"0000000012", 12},
                {"2147483647", kMost},
                {"2147483647.49", kMost},
                {"-2147483648", kLeast},
                {"-2147483648.5", kLeast},
                {"&H7FFFFFFF", kMost}};
    for (const auto& row : rows) EXPECT_EQ(ToLong(row.text), row.value) << row.text;
    for (const char* text :
         {"2147483648", "2147483647.5", "-2147483648.6", "-2147483649", "&H80000000", "1e10", "9999999999"})
        EXPECT_EQ(ErrorOf([&] { ToLong(text); }), kErrorOverflow) << text;
}

TEST(RoundHalfEven, IsTheRoundingOfTheMachine) {
    std::fesetround(FE_TONEAREST);
    test::Random random(1);
    for (int i = 0; i < 20000; ++i) {
        const double value = static_cast<std::int32_t>(random.Bits()) / (i % 2 ? 1e4 : 4.0);
        EXPECT_EQ(RoundHalfEven(value), std::nearbyint(value)) << value;
    }
    for (const double value :
         {0.49999999999999994, 4503599627370495.5, 4503599627370497.0, 1e300, -4503599627370495.5})
        EXPECT_EQ(RoundHalfEven(value), std::nearbyint(value)) << value;
}

TEST(WholeNumber, IsATextThatIsANumberAsAWhole) {
    const struct {
        const char* text;
        double value;
    } rows[] = {{"7", 7}, {" -7.5 ", -7.5}, {"+.5", .5}, {"1e3", 1000}, {"-0", 0}, {"5.", 5}};
    for (const auto& row : rows) EXPECT_EQ(ToDouble(row.text), row.value) << row.text;
    for (const char* text :
         {"", " ", "x", "7x", "1 2", "--1", "+-1", "inf", "nan", "-inf", ".", "-.", "&H1", "True", "\t7"})
        EXPECT_EQ(ErrorOf([&] { ToDouble(text); }), kErrorTypeMismatch) << '"' << text << '"';
    EXPECT_EQ(ErrorOf([] { ToDouble("1e999"); }), kErrorOverflow);
}

TEST(CheckedSum, OverflowsAtTheEndsOfTheRange) {
    EXPECT_EQ(AddChecked(kMost - 1, 1), kMost);
    EXPECT_EQ(AddChecked(kLeast, kMost), -1);
    EXPECT_EQ(ErrorOf([] { AddChecked(kMost, 1); }), kErrorOverflow);
    EXPECT_EQ(ErrorOf([] { AddChecked(kLeast, -1); }), kErrorOverflow);
}

TEST(Rate, HasTwoDecimalsInSinglePrecision) {
    const struct {
        double count;
        double hours;
        const char* text;
    } rows[] = {{7, 3, "2.33"},
                {1, 8, "0.12"},
                {3, 8, "0.38"},
                {107, 40, "2.68"},
                {203, 200, "1.01"},
                {5, 0, "0"},
                {0, 5, "0"},
                {-1, 300, "0"},
                {1, -300, "0"},
                {-2, 7, "-0.29"},
                {16777217, 1, "16777216"},
                {2147483647, 1, "2147483600"},
                {20000329, 247, "80972.99"},
                {1, 100, "0.01"},
                {20000000, 1, "20000000"}};
    for (const auto& row : rows)
        EXPECT_EQ(SingleText(Rate(row.count, row.hours)), row.text) << row.count << '/' << row.hours;
}

TEST(SingleText, IsPlainAndHasTheFewestDigitsThatGiveTheValueBack) {
    test::Random random(2);
    for (int i = 0; i < 5000; ++i) {
        float value = 0;
        const std::uint32_t bits = random.Bits();
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value) || value == 0) continue;
        const std::string text = SingleText(value);
        EXPECT_EQ(text.find_first_not_of("-.0123456789"), std::string::npos) << text;
        EXPECT_EQ(std::strtof(text.c_str(), nullptr), value) << text;
        std::string digits = text;
        std::erase_if(digits, [](char c) { return c == '-' || c == '.'; });
        digits.erase(0, digits.find_first_not_of('0'));
        if (text.find('.') == std::string::npos) digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.size() < 2) continue;
        char shorter[64];
        std::snprintf(shorter, sizeof shorter, "%.*e", static_cast<int>(digits.size()) - 2,
                      static_cast<double>(value));
        EXPECT_NE(std::strtof(shorter, nullptr), value) << text << " could be " << shorter;
    }
}

}  // namespace

}  // namespace dlv
