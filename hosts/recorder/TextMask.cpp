#include "hosts/recorder/TextMask.h"

#include <algorithm>

#include "base/Text.h"

namespace dlv::recorder {

namespace {

constexpr int kLetters = 26;
constexpr std::string_view kMeaningful[] = {"", "#", "default", "true", "false", "total"};

bool IsNumber(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const auto digits = text.find_first_not_of("0123456789");
    if (digits == 0 || text.empty()) return false;
    if (digits == std::string_view::npos) return true;
    const std::string_view fraction = text.substr(digits + 1);
    return (text[digits] == '.' || text[digits] == ',') && !fraction.empty() &&
           fraction.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsKept(std::string_view part) {
    return IsNumber(part) || std::ranges::find(kMeaningful, FoldCase(part)) != std::end(kMeaningful);
}

/// A word between two others; an empty `after` is behind all.
std::string Between(std::string_view before, std::string_view after) {
    std::string word;
    bool bounded = !after.empty();
    for (std::size_t i = 0;; ++i) {
        const int low = i < before.size() ? before[i] - 'a' : 0;
        const int high = bounded && i < after.size() ? after[i] - 'a' : kLetters;
        const int letter = high - low > 1 ? (low + high) / 2 : low;
        word += static_cast<char>('a' + letter);
        if (letter > low) return word;
        if (high > low) bounded = false;
    }
}

/// Sorts like the text's own first character, and like it is no letter, a small or a great one. "Default",
/// which stays, has its place between two letters.
std::string FirstOf(std::string_view text) {
    std::size_t end = 0;
    NextCharacter(text, end);
    const std::string_view first = text.substr(0, end);
    const std::string folded = FoldCase(first);
    const bool small = folded == first;
    if (folded.front() >= 'a' && folded.front() <= 'z') {
        const bool early = FoldCase(text) < "default";
        return small ? (early ? "b" : "n") : (early ? "B" : "N");
    }
    if (end > 1) return small ? "ñ" : "Ñ";
    // Which would be markup in a document.
    return std::string_view("&<>\"'").find(first) == std::string_view::npos ? std::string(first) : "%";
}

std::size_t LengthOf(std::string_view text) {
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size(); ++length) NextCharacter(text, at);
    return length;
}

/// Another letter case for each number.
std::string Varied(std::string word, unsigned number) {
    for (std::size_t i = 0; number != 0 && i < word.size(); ++i, number >>= 1)
        if ((number & 1) != 0) word[i] = static_cast<char>(word[i] - 'a' + 'A');
    return word;
}

/// Hands each part between bars on, without the blanks around it, and puts what it gives in its place.
template <class Change>
std::string WithParts(std::string_view text, Change&& change) {
    std::vector<std::string> parts = Split(text, '|');
    for (std::string& part : parts) {
        const std::string core(Trim(part));
        part.replace(part.find_first_not_of(' ') == std::string::npos ? 0 : part.find(core), core.size(),
                     change(core));
    }
    std::string all;
    for (std::size_t i = 0; i < parts.size(); ++i) all += (i == 0 ? "" : "|") + parts[i];
    return all;
}

}  // namespace

void TextMask::Learn(const std::vector<std::string>& texts) {
    std::vector<std::string> parts;
    for (const std::string& text : texts)
        WithParts(text, [&](const std::string& part) {
            if (!IsKept(part) && !standIns_.contains(part)) parts.push_back(part);
            return part;
        });
    std::vector<std::string> folded;
    for (const std::string& part : parts)
        if (std::string key = FoldCase(part); !words_.contains(key)) folded.push_back(std::move(key));
    std::ranges::sort(folded);
    const auto same = std::ranges::unique(folded);
    folded.erase(same.begin(), same.end());
    LearnSorted(folded, 0, folded.size());
    for (const std::string& part : parts) LearnPart(part);
}

void TextMask::LearnSorted(const std::vector<std::string>& folded, std::size_t first, std::size_t end) {
    if (first == end) return;
    const std::size_t middle = first + (end - first) / 2;
    const auto after = words_.lower_bound(folded[middle]);
    const std::string word = Between(after == words_.begin() ? "" : std::prev(after)->second,
                                     after == words_.end() ? "" : after->second);
    words_.emplace_hint(after, folded[middle], word);
    LearnSorted(folded, first, middle);
    LearnSorted(folded, middle + 1, end);
}

void TextMask::LearnPart(const std::string& part) {
    if (standIns_.contains(part)) return;
    std::string word = words_.at(FoldCase(part));
    word.resize(std::max(word.size() + 1, LengthOf(part)) - 1, 'a');
    const std::string plain = FirstOf(part) + word;
    standIns_[part] = FirstOf(part) + Varied(std::move(word), variants_[plain]++);
}

std::string TextMask::operator()(std::string_view text) const {
    return WithParts(text, [&](const std::string& part) {
        const auto found = standIns_.find(part);
        return found == standIns_.end() ? part : found->second;
    });
}

}  // namespace dlv::recorder
