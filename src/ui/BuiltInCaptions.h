// The texts that the control brings along, by language and key.
#pragma once

#include <optional>
#include <string_view>

namespace dlv {

bool HasBuiltInLanguage(std::string_view language);

/// The text of a key in one language; nothing when that table lacks it.
std::optional<std::string_view> BuiltInCaption(std::string_view language, std::string_view key);

}  // namespace dlv
