#include "base/TimeFormat.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/ErrorOf.h"

namespace dlv {

namespace {

constexpr TimeOfDay At(int hour, int minute, int second) { return (hour * 60 + minute) * 60 + second; }

TEST(TimeFormat, ReplacesItsTokensAndKeepsTheRest) {
    const LocaleTime locale{".", "hh-nn"};
    const struct {
        TimeOfDay time;
        const char* format;
        const char* text;
    } rows[] = {{At(13, 5, 9), "hh:nn:ss", "13.05.09"},
                {At(13, 5, 9), "h:n:s", "13.5.9"},
                {At(3, 5, 9), "HH:NN:SS", "03.05.09"},
                {At(13, 5, 9), "h:nn AM/PM", "1.05 PM"},
                {At(0, 5, 9), "hh:nn am/pm", "12.05 am"},
                {At(12, 0, 0), "h A/P", "12 P"},
                {At(11, 59, 59), "h a/p", "11 a"},
                {At(13, 5, 9), "AM/PM h", "PM 1"},
                {At(13, 5, 9), "hh:mm", "13.05"},
                {At(13, 5, 9), "mm", "05"},
                {At(13, 5, 9), "m", "5"},
                {At(13, 5, 9), "hhh", "1313"},
                {At(13, 5, 9), "nnn", "055"},
                {At(13, 5, 9), "", "13-05"},
                {At(13, 5, 9), "h\\h", "13h"},
                {At(13, 5, 9), "h\" h:n \"n", "13 h:n 5"},
                {At(13, 5, 9), "\"open h", "open h"},
                {At(13, 5, 9), "h\\", "13"},
                {At(13, 5, 9), "h \"AM/PM\"", "13 AM/PM"},
                {At(13, 5, 9), "Am/Pm", "A5/P5"},
                {At(13, 5, 9), "h Uhr 😀\\é", "13 U13r 😀é"},
                {At(13, 5, 9), "h'n;s", "13'5;9"},
                {At(23, 59, 59), "hh:nn:ss A/P", "11.59.59 P"}};
    for (const auto& row : rows) EXPECT_EQ(FormatTime(row.time, row.format, locale), row.text) << row.format;
    EXPECT_EQ(FormatTime(At(1, 2, 3), "", {}), "01:02:03");
    EXPECT_EQ(ClockText(At(1, 2, 3)), "01:02:03");
}

TEST(Minutes, AddUpWithinTheDayRoundedToTheSecond) {
    const struct {
        TimeOfDay time;
        double minutes;
        TimeOfDay later;
    } rows[] = {{At(10, 50, 0), 15, At(11, 5, 0)},   {At(23, 59, 59), 1, At(0, 0, 59)},
                {At(23, 59, 59), 0.01, At(0, 0, 0)}, {At(0, 0, 0), -1, At(23, 59, 0)},
                {At(0, 0, 0), -0.005, At(0, 0, 0)},  {At(12, 0, 0), 1440, At(12, 0, 0)},
                {At(12, 0, 0), -2880, At(12, 0, 0)}, {At(0, 0, 0), 0.025, At(0, 0, 2)},
                {At(0, 0, 1), 0.025, At(0, 0, 2)},   {At(10, 50, 0), 99999999, At(21, 29, 0)},
                {At(0, 0, 1), 1e-300, At(0, 0, 1)}};
    for (const auto& row : rows)
        EXPECT_EQ(AddMinutes(row.time, row.minutes), row.later) << row.time << '+' << row.minutes;
    for (const double minutes : {1e15, -1e15, 1e300}) {
        const TimeOfDay later = AddMinutes(At(1, 0, 0), minutes);
        EXPECT_TRUE(later >= 0 && later < kSecondsPerDay) << minutes << " gives " << later;
    }
    EXPECT_EQ(test::ErrorOf([] { AddMinutes(0, 1e308); }), kErrorOverflow)
        << "the seconds leave a double's range";
}

}  // namespace

}  // namespace dlv
