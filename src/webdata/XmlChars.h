// What XML 1.0 says about characters: which may stand in a document, which in names; and strict
// UTF-8. Lone surrogates and overlong forms are told apart so that an error can name its reason.
#pragma once

#include <cstddef>
#include <string_view>

namespace dlv {

struct XmlCharacter {
    char32_t code = 0;
    /// Bytes taken; 0 when no valid UTF-8 sequence starts here.
    std::size_t length = 0;
};

/// The character at byte `position`, which lies inside the text. Surrogates are decoded like any
/// other three-byte sequence; IsXmlChar refuses them.
XmlCharacter DecodeXmlCharacter(std::string_view text, std::size_t position);

bool IsXmlChar(char32_t code);
bool IsXmlNameStart(char32_t code);
bool IsXmlNameChar(char32_t code);

/// Whether a text can be an element's or attribute's name.
bool IsXmlName(std::string_view text);

/// Whether a value in quotes stands for itself: XML characters in valid UTF-8, without '<', '&' and
/// the blanks that XML changes (tab and line breaks).
bool IsPlainXmlValue(std::string_view text);

/// What the parts of an XML declaration may hold.
bool IsXmlVersion(std::string_view value);
bool IsXmlEncoding(std::string_view value);
bool IsXmlStandalone(std::string_view value);

/// Whether a processing instruction's target is the reserved one: "xml" in any letter case.
bool IsReservedXmlTarget(std::string_view name);

inline bool IsXmlBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

}  // namespace dlv
