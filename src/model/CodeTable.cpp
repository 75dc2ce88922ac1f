#include "model/CodeTable.h"

#include "base/Text.h"

namespace dlv {

// Rows mostly repeat the codes of the rows before in the same order, so the code that followed last time
// is tried first.
std::uint32_t CodeTable::NumberOf(std::string_view code) {
    if (!codes_.empty()) {
        const std::uint32_t guess = codes_[last_].next;
        if (codes_[guess].text == code) return last_ = guess;
    }
    const std::uint32_t number = LookUp(code);
    codes_[last_].next = number;
    return last_ = number;
}

std::uint32_t CodeTable::LookUp(std::string_view code) {
    const auto next = static_cast<std::uint32_t>(codes_.size());
    const std::uint32_t number = exact_.Insert(code, next);
    if (number == next) codes_.push_back({std::string(code), folded_.Insert(FoldCase(code), next), next});
    return number;
}

void CodeTable::Clear() {
    codes_.clear();
    exact_.Clear();
    folded_.Clear();
    last_ = 0;
}

}  // namespace dlv
