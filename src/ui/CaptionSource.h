// What the control asks of the host's transport object: its own captions and its language. Either may
// be unknown to the host; then the built-in catalogue answers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dlv {

class CaptionSource {
public:
    virtual ~CaptionSource() = default;
    /// The host's text for a key; nothing when it does not know the key.
    virtual std::optional<std::string> Caption(std::string_view key) = 0;
    /// "EN", "PO" or "SP"; nothing when the host does not say.
    virtual std::optional<std::string> LanguageID() = 0;
};

}  // namespace dlv
