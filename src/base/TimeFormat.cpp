#include "base/TimeFormat.h"

#include <array>
#include <cmath>

#include "base/Number.h"
#include "base/RunTimeError.h"

namespace dlv {

namespace {

constexpr std::array<std::string_view, 4> kHalfDayTokens = {"AM/PM", "am/pm", "A/P", "a/p"};

/// The half-day token that stands at the start of `rest`, or nothing.
std::string_view HalfDayToken(std::string_view rest) {
    for (const std::string_view token : kHalfDayTokens)
        if (rest.starts_with(token)) return token;
    return {};
}

/// One piece of a format string: how many characters it takes.
struct Piece {
    enum class Kind { Hour, Minute, Second, HalfDay, Separator, Literal } kind;
    std::size_t length;
    std::string_view literal;
};

std::size_t RunLength(std::string_view rest, char lower) {
    std::size_t length = 0;
    while (length < rest.size() && length < 2 && (rest[length] | 0x20) == lower) ++length;
    return length;
}

Piece NextPiece(std::string_view rest) {
    if (const auto token = HalfDayToken(rest); !token.empty())
        return {Piece::Kind::HalfDay, token.size(), token};
    const char c = rest.front();
    switch (c) {
        case 'h':
        case 'H': return {Piece::Kind::Hour, RunLength(rest, 'h'), {}};
        case 'n':
        case 'N': return {Piece::Kind::Minute, RunLength(rest, 'n'), {}};
        case 'm':
        case 'M': return {Piece::Kind::Minute, RunLength(rest, 'm'), {}};
        case 's':
        case 'S': return {Piece::Kind::Second, RunLength(rest, 's'), {}};
        case ':': return {Piece::Kind::Separator, 1, {}};
        case '\\': return {Piece::Kind::Literal, rest.size() > 1 ? 2u : 1u, rest.substr(1, 1)};
        case '"': {
            const std::size_t end = rest.find('"', 1);
            if (end == std::string_view::npos) return {Piece::Kind::Literal, rest.size(), rest.substr(1)};
            return {Piece::Kind::Literal, end + 1, rest.substr(1, end - 1)};
        }
        default: return {Piece::Kind::Literal, 1, rest.substr(0, 1)};
    }
}

bool UsesHalfDays(std::string_view format) {
    for (std::size_t at = 0; at < format.size();) {
        const Piece piece = NextPiece(format.substr(at));
        if (piece.kind == Piece::Kind::HalfDay) return true;
        at += piece.length;
    }
    return false;
}

std::string Digits(int value, std::size_t width) {
    std::string text = WholeText(value);
    return width == 2 && text.size() < 2 ? "0" + text : text;
}

std::string_view HalfDayText(std::string_view token, bool morning) {
    const std::size_t slash = token.find('/');
    return morning ? token.substr(0, slash) : token.substr(slash + 1);
}

}  // namespace

TimeOfDay AddMinutes(TimeOfDay time, double minutes) {
    const double seconds = RoundHalfEven(time + minutes * 60);
    if (!std::isfinite(seconds)) RaiseOverflow();
    const double moved = std::fmod(seconds, kSecondsPerDay);
    return static_cast<TimeOfDay>(moved < 0 ? moved + kSecondsPerDay : moved);
}

std::string FormatTime(TimeOfDay time, std::string_view format, const LocaleTime& locale) {
    if (format.empty()) format = locale.format;
    const bool halfDays = UsesHalfDays(format);
    const int hour = time / 3600;
    std::string text;
    for (std::size_t at = 0; at < format.size();) {
        const Piece piece = NextPiece(format.substr(at));
        at += piece.length;
        switch (piece.kind) {
            case Piece::Kind::Hour:
                text += Digits(halfDays ? (hour + 11) % 12 + 1 : hour, piece.length);
                break;
            case Piece::Kind::Minute: text += Digits(time / 60 % 60, piece.length); break;
            case Piece::Kind::Second: text += Digits(time % 60, piece.length); break;
            case Piece::Kind::HalfDay: text += HalfDayText(piece.literal, hour < 12); break;
            case Piece::Kind::Separator: text += locale.separator; break;
            case Piece::Kind::Literal: text += piece.literal; break;
        }
    }
    return text;
}

std::string ClockText(TimeOfDay time) { return FormatTime(time, "hh:nn:ss", LocaleTime{}); }

}  // namespace dlv
