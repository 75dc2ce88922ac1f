#include "profiles/ProfileIDList.h"

#include <string_view>

#include "base/Text.h"

namespace dlv {

namespace {

constexpr std::string_view kOpen = "<ProfileID>";
constexpr std::string_view kClose = "</ProfileID>";

/// The name in the piece before a closing tag. A piece without an opening tag loses as many
/// characters as that tag has, less one, all the same.
std::string NameIn(std::string_view piece) {
    piece = Trim(piece);
    const std::size_t open = piece.find(kOpen);
    const std::string_view name = open == std::string_view::npos ? SkipCharacters(piece, kOpen.size() - 1)
                                                                 : piece.substr(open + kOpen.size());
    return std::string(Trim(name));
}

}  // namespace

bool HoldsProfileIDs(const std::string& text) {
    for (const std::string_view piece :
         {std::string_view("</ProfileIDs>"), std::string_view("<ProfileIDs"), kClose, kOpen})
        if (text.find(piece) == std::string::npos) return false;
    return true;
}

std::vector<std::string> ParseProfileIDs(const std::string& text) {
    std::vector<std::string> names;
    if (!HoldsProfileIDs(text)) return names;
    std::string_view rest = Trim(text);
    for (std::size_t close = rest.find(kClose); close != std::string_view::npos; close = rest.find(kClose)) {
        names.push_back(NameIn(rest.substr(0, close)));
        rest.remove_prefix(close + kClose.size());
    }
    return names;
}

}  // namespace dlv
