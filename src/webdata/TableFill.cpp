#include "webdata/TableFill.h"

#include <functional>
#include <memory>

#include "base/RunTimeError.h"

namespace dlv {

namespace {

// In no text of ours: UTF-8 has no such byte.
constexpr char kQuote = '\xFF';

}  // namespace

TableFill::TableFill(std::span<const std::string> columns) {
    for (const std::string& name : columns) columns_.push_back(cells_.Shapes().ColumnOf(name));
    if (cells_.Shapes().ColumnCount() != columns.size()) RaiseDuplicateKey();
    line_.reserve(columns.size());
}

void TableFill::Add(std::string_view text) {
    std::uint32_t number;
    AddCell(IsPlainNumber(text, number) ? number : Store(text));
}

Cell TableFill::Store(std::string_view text) {
    Known& known = known_[std::hash<std::string_view>{}(text) % kKnown];
    const std::string_view before(document_.data() + known.place, known.length);
    // The first byte is a quote, so that no text stands at place 0.
    if (known.place == 0 || before != text) {
        if (document_.size() + text.size() + 2 >= kTextTag)
            throw RunTimeError(kErrorOutOfMemory, "Out of memory");
        if (text.find(kQuote) != std::string_view::npos) RaiseInvalidCall();
        document_ += kQuote;
        known = {static_cast<std::uint32_t>(document_.size()), static_cast<std::uint32_t>(text.size())};
        document_.append(text) += kQuote;
    }
    return kTextTag | static_cast<Cell>(known.place - 1);
}

TableCells TableFill::Take() {
    if (!line_.empty()) RaiseInvalidCall();
    cells_.SetSource(std::make_shared<const std::string>(std::move(document_)));
    return std::move(cells_);
}

}  // namespace dlv
