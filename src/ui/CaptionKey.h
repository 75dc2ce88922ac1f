// The key of a caption. One that stands in the code is looked up while it is compiled: a key without texts
// does not compile.
#pragma once

#include <string_view>

#include "ui/CaptionTable.h"

namespace dlv {

/// Stands in the compiler's message about a key that the table lacks.
void TheCaptionTableHasNoSuchKey();

class CaptionKey {
public:
    template <std::size_t Size>
    consteval CaptionKey(const char (&key)[Size]) : text_(key, Size - 1) {
        if (!HasCaption(text_)) TheCaptionTableHasNoSuchKey();
    }
    /// A key that comes from somewhere below the captions, or a host's own.
    static constexpr CaptionKey Unchecked(std::string_view key) { return CaptionKey(Checked::No, key); }

    constexpr std::string_view Text() const { return text_; }

private:
    enum class Checked { No };
    constexpr CaptionKey(Checked, std::string_view key) : text_(key) {}

    std::string_view text_;
};

}  // namespace dlv
