// The one place that texts come from: every visible text is looked up by key. The host's transport is
// asked first, then the built-in table of the language, then the English one; a key that none knows
// stands for itself.
#pragma once

#include <memory>
#include <string>

#include "ui/CaptionKey.h"
#include "ui/CaptionSource.h"

namespace dlv {

class CaptionCatalogue {
public:
    /// Asks `source` (may be nothing) from now on. The built-in language is fixed here, so that a
    /// screen never mixes languages: the source's own, else `userLanguage` ("EN", "PO", "SP").
    void Attach(std::shared_ptr<CaptionSource> source, const std::string& userLanguage);

    /// Before `Attach` there are no texts: every key stands for itself. What the host's object fails
    /// with is the error of this call.
    std::string Caption(CaptionKey key) const;

    const std::string& Language() const { return language_; }

private:
    std::shared_ptr<CaptionSource> source_;
    /// Empty before `Attach`.
    std::string language_;
};

}  // namespace dlv
