#include "ui/BuiltInCaptions.h"

#include "ui/CaptionTable.h"

namespace dlv {

namespace {

constexpr std::string_view CaptionRow::*LanguageColumn(std::string_view language) {
    if (language == "EN") return &CaptionRow::english;
    if (language == "PO") return &CaptionRow::portuguese;
    if (language == "SP") return &CaptionRow::spanish;
    return nullptr;
}

}  // namespace

bool HasBuiltInLanguage(std::string_view language) { return LanguageColumn(language) != nullptr; }

std::optional<std::string_view> BuiltInCaption(std::string_view language, std::string_view key) {
    const auto column = LanguageColumn(language);
    const CaptionRow* row = FindCaption(key);
    if (column == nullptr || row == nullptr) return std::nullopt;
    return row->*column;
}

}  // namespace dlv
