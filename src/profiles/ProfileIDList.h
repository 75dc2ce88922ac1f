// The host's list of profile names. Only its four text pieces are looked for; the text around them is
// not read as a document.
#pragma once

#include <string>
#include <vector>

namespace dlv {

/// The names in the order of the list; empty when one of the pieces is lacking.
std::vector<std::string> ParseProfileIDs(const std::string& text);

/// Whether the text holds all four pieces of a list.
bool HoldsProfileIDs(const std::string& text);

}  // namespace dlv
