// Times of day and their format strings: "h:nn AM/PM" and its like.
#pragma once

#include <string>
#include <string_view>

namespace dlv {

inline constexpr int kSecondsPerDay = 24 * 60 * 60;

/// Seconds since midnight, 0 to 86399.
using TimeOfDay = int;

/// The time of day so many minutes later (fractions allowed, also negative), rounded to the second. Error 6
/// when the seconds leave the range of a double.
TimeOfDay AddMinutes(TimeOfDay time, double minutes);

/// How the user's system writes times.
struct LocaleTime {
    std::string separator = ":";
    /// Used where a format string is empty.
    std::string format = "hh:nn:ss";
};

/// The tokens h hh (H alike), n nn, m mm (minutes), s ss, AM/PM am/pm A/P a/p (and then the 12-hour
/// clock), ":" as the locale's separator, \x and "..." literal; any other character stands as it is.
std::string FormatTime(TimeOfDay time, std::string_view format, const LocaleTime& locale);

/// "HH:MM:SS", whatever the locale.
std::string ClockText(TimeOfDay time);

}  // namespace dlv
