// Sizes between containers, windows and the layout, at every resolution; texts and time formats between the
// system and the control.
#include <gtest/gtest.h>

#include "base/TimeFormat.h"
#include "windows/com/ControlPlatform.h"
#include "windows/com/Extent.h"
#include "windows/com/Strings.h"

namespace dlv {
namespace {

struct SizeCase {
    int dpi;
    LONG himetric;
    LONG pixels;
    friend void PrintTo(const SizeCase& test, std::ostream* out) {
        *out << test.himetric << " at " << test.dpi;
    }
};

class Sizes : public testing::TestWithParam<SizeCase> {};

TEST_P(Sizes, AreConvertedToTheNearestPixel) {
    const auto& [dpi, himetric, pixels] = GetParam();
    EXPECT_EQ(ToPixels({himetric, himetric}, dpi).cx, pixels);
    EXPECT_EQ(ToPixels({himetric, himetric}, dpi).cy, pixels);
}

TEST_P(Sizes, OfAWindowComeBackAsTheSamePixels) {
    const auto& [dpi, himetric, pixels] = GetParam();
    EXPECT_EQ(ToPixels(ToHimetric({pixels, pixels}, dpi), dpi).cx, pixels);
}

TEST_P(Sizes, ThatAContainerSetStayExactWhenTheWindowTakesThem) {
    const auto& [dpi, himetric, pixels] = GetParam();
    Extent extent;
    extent.SetHimetric({himetric, himetric});
    EXPECT_FALSE(extent.SetPixels({pixels, pixels}, dpi));
    EXPECT_EQ(extent.Himetric().cx, himetric);
    EXPECT_TRUE(extent.SetPixels({pixels + 1, pixels}, dpi));
    EXPECT_EQ(extent.Pixels(dpi).cx, pixels + 1);
    EXPECT_EQ(extent.Pixels(dpi).cy, pixels);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, Sizes,
                         testing::Values(SizeCase{96, 0, 0}, SizeCase{96, 13, 0}, SizeCase{96, 14, 1},
                                         SizeCase{96, 2540, 96}, SizeCase{96, 25400, 960},
                                         SizeCase{96, 16933, 640}, SizeCase{120, 2540, 120},
                                         SizeCase{120, 16933, 800}, SizeCase{144, 16933, 960},
                                         SizeCase{144, 9999, 567}, SizeCase{192, 2540, 192},
                                         SizeCase{192, 16933, 1280}, SizeCase{168, 12345, 817}));

TEST(Extents, AreNeverNegative) {
    Extent extent;
    EXPECT_TRUE(extent.SetHimetric({-5, 100}));
    EXPECT_EQ(extent.Himetric().cx, 0);
    EXPECT_FALSE(extent.SetHimetric({-7, 100}));
    EXPECT_EQ(extent.TwipsWide(), 0);
    extent.SetHimetric({2540, 1270});
    EXPECT_EQ(extent.TwipsWide(), 1440);
    EXPECT_EQ(extent.TwipsHigh(), 720);
}

struct FormatCase {
    const wchar_t* system;
    const char* shown;  // 14:05:09 in the control's format
    friend void PrintTo(const FormatCase& test, std::ostream* out) { *out << Narrow(test.system); }
};

class SystemTimeFormat : public testing::TestWithParam<FormatCase> {};

TEST_P(SystemTimeFormat, ShowsTimesAsTheSystemDoes) {
    constexpr TimeOfDay kTime = 14 * 3600 + 5 * 60 + 9;
    EXPECT_EQ(FormatTime(kTime, TimeFormatOf(GetParam().system), LocaleTime{}), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Formats, SystemTimeFormat,
                         testing::Values(FormatCase{L"HH:mm:ss", "14:05:09"},
                                         FormatCase{L"h:mm:ss tt", "2:05:09 PM"},
                                         FormatCase{L"H:m:s", "14:5:9"}, FormatCase{L"HH'h'mm", "14h05"},
                                         FormatCase{L"HH.mm.ss", "14.05.09"},
                                         FormatCase{L"hh:mm t", "02:05 P"},
                                         FormatCase{L"H 'o''clock'", "14 o'clock"}));

TEST(Texts, PassBothWaysWithLoneSurrogatesAndZeros) {
    const std::wstring odd = {L'a',           wchar_t{0}, wchar_t{0xD800}, wchar_t{0x4E2D}, wchar_t{0xD83D},
                              wchar_t{0xDE00}};
    EXPECT_EQ(Wide(Narrow(std::wstring_view(odd))), odd);
    const Bstr text{std::wstring_view(odd)};
    EXPECT_EQ(Narrow(text.Get()), Narrow(std::wstring_view(odd)));
    EXPECT_EQ(Narrow(BSTR{nullptr}), "");
}

}  // namespace
}  // namespace dlv
