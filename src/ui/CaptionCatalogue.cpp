#include "ui/CaptionCatalogue.h"

#include "ui/BuiltInCaptions.h"

namespace dlv {

void CaptionCatalogue::Attach(std::shared_ptr<CaptionSource> source, const std::string& userLanguage) {
    source_ = std::move(source);
    const auto own = source_ ? source_->LanguageID() : std::nullopt;
    language_ = own && HasBuiltInLanguage(*own)    ? *own
                : HasBuiltInLanguage(userLanguage) ? userLanguage
                                                   : "EN";
}

std::string CaptionCatalogue::Caption(CaptionKey captionKey) const {
    const std::string_view key = captionKey.Text();
    if (language_.empty()) return std::string(key);
    if (source_)
        if (auto text = source_->Caption(key)) return *text;
    if (const auto text = BuiltInCaption(language_, key)) return std::string(*text);
    if (const auto text = BuiltInCaption("EN", key)) return std::string(*text);
    return std::string(key);
}

}  // namespace dlv
