// Typing the beginning of a row's text goes to that row: over the displayed rows alone, from the current row
// on and around the end. Characters that follow within a second add to the text; the same letter again and
// again goes from one row that begins with it to the next.
#pragma once

#include <cstdint>
#include <string>

#include "widgets/OutlineGrid.h"

namespace dlv {

class TypeAhead {
public:
    /// In milliseconds.
    static constexpr std::int64_t kPause = 1000;

    /// Takes a character that was typed `now`, in milliseconds of any steady clock. The displayed row to go
    /// to; `kNoRow` when none begins so, and then the text stands as if the character had not been typed.
    int Type(const OutlineGrid& grid, char32_t character, std::int64_t now);

    /// Whether a text has been begun that further characters would add to.
    bool Running(std::int64_t now) const { return !text_.empty() && now - last_ <= kPause; }
    const std::string& Text() const { return text_; }
    void Forget() { text_.clear(); }

private:
    std::string text_;  // in lower case
    std::int64_t last_ = 0;
};

}  // namespace dlv
