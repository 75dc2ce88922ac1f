#include "base/Text.h"

#include <algorithm>

#include "base/LowerCase.h"

namespace dlv {

namespace {

bool IsContinuation(std::string_view text, std::size_t position) {
    return position < text.size() && (static_cast<unsigned char>(text[position]) & 0xC0u) == 0x80u;
}

constexpr bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

constexpr bool IsLineEnd(char32_t c) {
    return (c >= 0x0A && c <= 0x0D) || c == 0x85 || c == 0x2028 || c == 0x2029;
}

/// The sign that stands for a character in one line.
constexpr char32_t SignFor(char32_t c) {
    if (c == U'\t') return U'\u2192';
    if (IsLineEnd(c)) return U'\u00B6';
    return c < 0x20 || (c >= 0x7F && c < 0xA0) ? U'\uFFFD' : c;
}

}  // namespace

char32_t NextCharacter(std::string_view text, std::size_t& position) {
    const auto first = static_cast<unsigned char>(text[position++]);
    if (first < 0xC2 || first > 0xF4) return first;
    const int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    char32_t character = first & (0x3Fu >> more);
    std::size_t next = position;
    for (int i = 0; i < more; ++i, ++next) {
        if (!IsContinuation(text, next)) return first;
        character = (character << 6) | (static_cast<unsigned char>(text[next]) & 0x3Fu);
    }
    position = next;
    return character;
}

void AppendCharacter(std::string& text, char32_t character) {
    const auto put = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | (character >> 6));
        put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        put(0xE0 | (character >> 12));
        put(0x80 | ((character >> 6) & 0x3F));
        put(0x80 | (character & 0x3F));
    } else {
        put(0xF0 | (character >> 18));
        put(0x80 | ((character >> 12) & 0x3F));
        put(0x80 | ((character >> 6) & 0x3F));
        put(0x80 | (character & 0x3F));
    }
}

std::u16string ToUtf16(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = NextCharacter(text, at);
        if (character < 0x10000) {
            out += static_cast<char16_t>(character);
        } else {
            out += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
            out += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
        }
    }
    return out;
}

std::string FromUtf16(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t character = text[at];
        if (IsHighSurrogate(character) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]))
            character = 0x10000 + ((character - 0xD800) << 10) + (text[++at] - 0xDC00u);
        AppendCharacter(out, character);
    }
    return out;
}

void ReplaceLoneSurrogates(std::string& text) {
    // Their three bytes begin with 0xED and one of 0xA0 to 0xBF, and nothing else does.
    for (std::size_t at = text.find('\xED'); at != std::string::npos; at = text.find('\xED', at + 1))
        if (at + 2 < text.size() && static_cast<unsigned char>(text[at + 1]) >= 0xA0)
            text.replace(at, 3, "\xEF\xBF\xBD");
}

std::string WithValues(std::string_view text, std::initializer_list<std::string_view> values) {
    std::string filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t number =
            i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '1') : values.size();
        if (text[i] != '%' || number >= values.size()) {
            filled += text[i];
            continue;
        }
        filled += *(values.begin() + number);
        ++i;
    }
    return filled;
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view SkipCharacters(std::string_view text, std::size_t count) {
    std::size_t at = 0;
    for (; count > 0 && at < text.size(); --count) NextCharacter(text, at);
    return text.substr(at);
}

std::string OneLine(std::string_view text, std::size_t most) {
    std::u32string signs;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = NextCharacter(text, at);
        if (character == U'\r' && at < text.size() && text[at] == '\n') ++at;
        signs += SignFor(character);
    }
    if (signs.size() > most) {
        const std::size_t end = most / 3;
        signs.replace(most - end - 1, signs.size() - most + 1, 1, U'\u2026');
    }
    std::string line;
    for (const char32_t sign : signs) AppendCharacter(line, sign);
    return line;
}

std::string FoldCase(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte < 0x80) {
            out += static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte + 32 : byte);
            ++at;
            continue;
        }
        const std::size_t start = at;
        const char32_t character = NextCharacter(text, at);
        const char32_t lower = LowerCase(character);
        if (lower == character)
            out.append(text.substr(start, at - start));
        else
            AppendCharacter(out, lower);
    }
    return out;
}

bool EqualFolded(std::string_view left, std::string_view right) {
    return left == right || FoldCase(left) == FoldCase(right);
}

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    for (std::size_t start = 0;;) {
        const std::size_t end = std::min(text.find(separator, start), text.size());
        pieces.emplace_back(text.substr(start, end - start));
        if (end == text.size()) return pieces;
        start = end + 1;
    }
}

}  // namespace dlv
