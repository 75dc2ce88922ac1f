// Text rules. Text is UTF-8; a lone surrogate that a host sends is carried as its own three-byte
// sequence and comes back as it was. Positions and lengths count characters (code points), and the
// order of two texts by code point is the plain order of their bytes.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace dlv {

/// The code point at byte `position`, which moves on behind it. A byte that starts no sequence is
/// taken by itself.
char32_t NextCharacter(std::string_view text, std::size_t& position);
void AppendCharacter(std::string& text, char32_t character);

std::u16string ToUtf16(std::string_view text);
std::string FromUtf16(std::u16string_view text);

/// Puts U+FFFD where a lone surrogate stands, so that the text is what other programs take for UTF-8.
void ReplaceLoneSurrogates(std::string& text);

/// Without the blanks (U+0020 only) at both ends.
std::string_view Trim(std::string_view text);

/// The rest of `text` behind its first `count` characters.
std::string_view SkipCharacters(std::string_view text, std::size_t count);

/// Text as it can stand in a line of a menu or list: tabs, line ends and other control characters as signs
/// that can be seen, and of more than `most` characters the first and the last with an ellipsis between.
std::string OneLine(std::string_view text, std::size_t most);

/// Every letter in its simple lower case, one character for one character.
std::string FoldCase(std::string_view text);
bool EqualFolded(std::string_view left, std::string_view right);

/// The pieces between separators: one more than there are separators.
std::vector<std::string> Split(std::string_view text, char separator);

/// The text with "%1", "%2" ... replaced by the values, each taken as it is.
std::string WithValues(std::string_view text, std::initializer_list<std::string_view> values);

/// Appends each part and a separator, then drops the last separator.
template <class Range>
std::string Join(const Range& parts, char separator) {
    std::string text;
    for (const auto& part : parts) {
        text += part;
        text += separator;
    }
    if (!text.empty()) text.pop_back();
    return text;
}

}  // namespace dlv
