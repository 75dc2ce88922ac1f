#include "webdata/XmlChars.h"

#include <algorithm>
#include <array>
#include <span>

namespace dlv {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Beyond ASCII; both lists in ascending order.
constexpr std::array<Range, 12> kNameStartRanges{{{0xC0, 0xD6},
                                                  {0xD8, 0xF6},
                                                  {0xF8, 0x2FF},
                                                  {0x370, 0x37D},
                                                  {0x37F, 0x1FFF},
                                                  {0x200C, 0x200D},
                                                  {0x2070, 0x218F},
                                                  {0x2C00, 0x2FEF},
                                                  {0x3001, 0xD7FF},
                                                  {0xF900, 0xFDCF},
                                                  {0xFDF0, 0xFFFD},
                                                  {0x10000, 0xEFFFF}}};
constexpr std::array<Range, 3> kNameMoreRanges{{{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}}};

bool Within(std::span<const Range> ranges, char32_t code) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [code](const Range& range) { return code >= range.first && code <= range.last; });
}

bool IsAsciiLetter(char32_t code) { return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z'); }

}  // namespace

XmlCharacter DecodeXmlCharacter(std::string_view text, std::size_t position) {
    const auto byte = [&](std::size_t index) -> char32_t {
        return static_cast<unsigned char>(text[position + index]);
    };
    const char32_t lead = byte(0);
    if (lead < 0x80) return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - position < length) return {};
    char32_t code = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return {};
        code = code << 6 | (byte(i) & 0x3F);
    }
    constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
    if (code < kSmallest[length] || code > 0x10FFFF) return {};
    return {code, length};
}

bool IsXmlChar(char32_t code) {
    if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
    if (code < 0xD800) return true;
    return (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

bool IsXmlNameStart(char32_t code) {
    if (code < 0x80) return IsAsciiLetter(code) || code == '_' || code == ':';
    return Within(kNameStartRanges, code);
}

bool IsXmlNameChar(char32_t code) {
    if (code < 0x80)
        return IsXmlNameStart(code) || (code >= '0' && code <= '9') || code == '-' || code == '.';
    return Within(kNameStartRanges, code) || Within(kNameMoreRanges, code);
}

bool IsXmlName(std::string_view text) {
    if (text.empty()) return false;
    for (std::size_t position = 0; position < text.size();) {
        const XmlCharacter character = DecodeXmlCharacter(text, position);
        if (character.length == 0) return false;
        if (!(position == 0 ? IsXmlNameStart(character.code) : IsXmlNameChar(character.code))) return false;
        position += character.length;
    }
    return true;
}

bool IsPlainXmlValue(std::string_view text) {
    for (std::size_t position = 0; position < text.size();) {
        const auto byte = static_cast<unsigned char>(text[position]);
        if (byte < 0x20 || byte == '<' || byte == '&') return false;
        if (byte < 0x80) {
            ++position;
            continue;
        }
        const XmlCharacter character = DecodeXmlCharacter(text, position);
        if (character.length == 0 || !IsXmlChar(character.code)) return false;
        position += character.length;
    }
    return true;
}

bool IsXmlVersion(std::string_view value) {
    return value.size() > 2 && value.starts_with("1.") &&
           value.find_first_not_of("0123456789", 2) == std::string_view::npos;
}

bool IsXmlEncoding(std::string_view value) {
    const auto ascii = [](char c) { return static_cast<char32_t>(static_cast<unsigned char>(c)); };
    return !value.empty() && IsAsciiLetter(ascii(value[0])) &&
           std::all_of(value.begin(), value.end(),
                       [&](char c) { return ascii(c) < 0x80 && c != ':' && IsXmlNameChar(ascii(c)); });
}

bool IsXmlStandalone(std::string_view value) { return value == "yes" || value == "no"; }

bool IsReservedXmlTarget(std::string_view name) {
    return name.size() == 3 && (name[0] | 0x20) == 'x' && (name[1] | 0x20) == 'm' && (name[2] | 0x20) == 'l';
}

}  // namespace dlv
