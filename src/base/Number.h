// Number rules: how a host's text is read as a number, how numbers are rounded, and how they are
// written back. Values are rounded with halves to the even neighbour throughout.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dlv {

/// The number that a text starts with; 0 when it starts with none. Blanks, tabs and line feeds are
/// passed over wherever they stand; a sign, digits, one period and an exponent (E or D) are taken,
/// or "&H" and "&O" with their digits. Error 6 beyond the range of a double.
double LeadingNumber(std::string_view text);

/// A text that is a number as a whole, blanks around it aside; error 13 for any other.
double ToDouble(std::string_view text);

double RoundHalfEven(double value);

/// Rounded to a signed 32-bit integer; error 6 outside its range.
std::int32_t ToLong(double value);
std::int32_t ToLong(std::string_view text);

/// Checked 32-bit addition; error 6 when the sum leaves the range.
std::int32_t AddChecked(std::int32_t left, std::int32_t right);

/// A count per hour: 0 for 0 hours, else the quotient rounded to 2 decimals, in single precision.
float Rate(double count, double hours);

/// Plain whole number, without separators.
std::string WholeText(std::int64_t value);
void AppendWhole(std::string& text, std::int64_t value);

/// The fewest digits that give the single-precision value back, in plain notation with a point.
std::string SingleText(float value);

}  // namespace dlv
