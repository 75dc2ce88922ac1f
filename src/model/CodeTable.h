// Codes of one refresh as small numbers: every spelling of a code has a number of its own, and
// spellings that differ only in letter case share a fold number.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/TextTable.h"

namespace dlv {

class CodeTable {
public:
    /// The number of a code, made on first sight.
    std::uint32_t NumberOf(std::string_view code);
    const std::string& Text(std::uint32_t number) const { return codes_[number].text; }
    std::uint32_t Fold(std::uint32_t number) const { return codes_[number].fold; }
    std::size_t Count() const { return codes_.size(); }
    void Clear();

private:
    struct Code {
        std::string text;
        std::uint32_t fold;
        /// The code that came after this one the last time.
        std::uint32_t next;
    };

    std::uint32_t LookUp(std::string_view code);

    std::vector<Code> codes_;
    TextTable exact_;
    TextTable folded_;
    std::uint32_t last_ = 0;
};

}  // namespace dlv
