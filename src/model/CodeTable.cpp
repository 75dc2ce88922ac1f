#include "model/CodeTable.h"

#include "base/Text.h"

namespace dlv {

std::uint32_t CodeTable::NumberOf(std::string_view code) {
    const auto next = static_cast<std::uint32_t>(codes_.size());
    const std::uint32_t number = exact_.Insert(code, next);
    if (number == next) codes_.push_back({std::string(code), folded_.Insert(FoldCase(code), next)});
    return number;
}

void CodeTable::Clear() {
    codes_.clear();
    exact_.Clear();
    folded_.Clear();
}

}  // namespace dlv
