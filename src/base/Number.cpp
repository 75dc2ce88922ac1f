#include "base/Number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace dlv {

namespace {

constexpr bool IsSkipped(char c) { return c == ' ' || c == '\t' || c == '\n'; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexDigit(char c) {
    if (IsDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return 16;
}

/// Gives one significant character after another.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    char Peek() {
        while (at_ < text_.size() && IsSkipped(text_[at_])) ++at_;
        return at_ < text_.size() ? text_[at_] : '\0';
    }
    void Take() { ++at_; }

private:
    std::string_view text_;
    std::size_t at_ = 0;
};

double RadixNumber(Scanner& scan) {
    const char kind = scan.Peek();
    const int radix = kind == 'H' || kind == 'h' ? 16 : kind == 'O' || kind == 'o' ? 8 : 0;
    if (radix == 0) return 0;
    scan.Take();
    double value = 0;
    for (int digit = HexDigit(scan.Peek()); digit < radix; digit = HexDigit(scan.Peek())) {
        value = value * radix + digit;
        scan.Take();
    }
    if (std::isinf(value)) RaiseOverflow();
    return value;
}

/// The decimal number's characters as taken, and its exponent.
struct Decimal {
    std::string mantissa;
    std::string exponent;
};

void TakeExponent(Scanner& scan, Decimal& number) {
    scan.Take();
    std::string sign;
    if (scan.Peek() == '-' || scan.Peek() == '+') {
        if (scan.Peek() == '-') sign = "-";
        scan.Take();
    }
    std::string digits;
    for (; IsDigit(scan.Peek()); scan.Take()) digits += scan.Peek();
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    if (!digits.empty()) number.exponent = sign + digits;
}

Decimal TakeDecimal(Scanner& scan) {
    Decimal number;
    bool digits = false;
    bool point = false;
    for (char c = scan.Peek(); c != '\0'; c = scan.Peek()) {
        if (IsDigit(c)) {
            digits = true;
        } else if (c == '.' && !point) {
            point = true;
        } else {
            if (digits && (c == 'e' || c == 'E' || c == 'd' || c == 'D')) TakeExponent(scan, number);
            break;
        }
        number.mantissa += c;
        scan.Take();
    }
    if (!digits) number.mantissa.clear();
    return number;
}

/// Where the first digit that counts stands, as a power of ten.
double Magnitude(const Decimal& number) {
    const std::size_t point = std::min(number.mantissa.find('.'), number.mantissa.size());
    const std::size_t first = number.mantissa.find_first_not_of("0.");
    if (first == std::string::npos) return -1;
    double exponent = 0;
    if (!number.exponent.empty()) {
        const char* begin = number.exponent.data();
        const char* end = begin + number.exponent.size();
        if (std::from_chars(begin, end, exponent).ec != std::errc{})
            exponent = *begin == '-' ? -1e300 : 1e300;
    }
    return static_cast<double>(point) - static_cast<double>(first) + exponent;
}

double Value(const Decimal& number) {
    if (number.mantissa.find_first_not_of("0.") == std::string::npos) return 0;
    const std::string text = number.mantissa + (number.exponent.empty() ? "" : "e" + number.exponent);
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (Magnitude(number) > 0) RaiseOverflow();
        return 0;
    }
    return value;
}

}  // namespace

double LeadingNumber(std::string_view text) {
    Scanner scan(text);
    char c = scan.Peek();
    if (c == '&') {
        scan.Take();
        return RadixNumber(scan);
    }
    const bool negative = c == '-';
    if (c == '-' || c == '+') scan.Take();
    const double value = Value(TakeDecimal(scan));
    return negative && value != 0 ? -value : value;
}

double ToDouble(std::string_view text) {
    text = Trim(text);
    std::size_t digits = 0;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    else if (text.starts_with('-'))
        digits = 1;
    // Neither words for infinity nor a second sign.
    if (digits >= text.size() || !(IsDigit(text[digits]) || text[digits] == '.')) RaiseTypeMismatch();
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::invalid_argument || result.ptr != text.data() + text.size())
        RaiseTypeMismatch();
    if (result.ec == std::errc::result_out_of_range) RaiseOverflow();
    return value;
}

double RoundHalfEven(double value) {
    if (std::fabs(value) >= 4503599627370496.0) return value;
    const double floor = std::floor(value);
    const double part = value - floor;
    if (part > 0.5 || (part == 0.5 && std::fmod(floor, 2.0) != 0)) return floor + 1;
    return floor;
}

std::int32_t ToLong(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        RaiseOverflow();
    return static_cast<std::int32_t>(rounded);
}

std::int32_t ToLong(std::string_view text) {
    if (text.size() < 10 && std::all_of(text.begin(), text.end(), IsDigit)) {
        std::int32_t value = 0;
        for (const char c : text) value = value * 10 + (c - '0');
        return value;
    }
    return ToLong(LeadingNumber(text));
}

std::int32_t AddChecked(std::int32_t left, std::int32_t right) {
    std::int32_t sum = 0;
    if (__builtin_add_overflow(left, right, &sum)) RaiseOverflow();
    return sum;
}

float Rate(double count, double hours) {
    if (hours == 0) return 0;
    const auto rate = static_cast<float>(RoundHalfEven(count / hours * 100) / 100);
    return rate == 0 ? 0 : rate;
}

void AppendWhole(std::string& text, std::int64_t value) {
    char digits[24];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

std::string WholeText(std::int64_t value) {
    std::string text;
    AppendWhole(text, value);
    return text;
}

std::string SingleText(float value) {
    if (value == 0) return "0";
    char raw[32];
    const char* end =
        std::to_chars(raw, raw + sizeof raw, std::fabs(value), std::chars_format::scientific).ptr;
    const char* mark = std::find(static_cast<const char*>(raw), end, 'e');
    int exponent = 0;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);
    std::string digits(static_cast<const char*>(raw), mark);
    std::erase(digits, '.');
    const int count = static_cast<int>(digits.size());
    if (exponent < 0) {
        digits = "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    } else if (exponent >= count - 1) {
        digits.append(static_cast<std::size_t>(exponent - count + 1), '0');
    } else {
        digits.insert(static_cast<std::size_t>(exponent) + 1, 1, '.');
    }
    return value < 0 ? "-" + digits : digits;
}

}  // namespace dlv
