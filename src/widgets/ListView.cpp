#include "widgets/ListView.h"

namespace dlv {

void ListView::SetItems(std::vector<Item> items) {
    if (items == items_) return;
    items_ = std::move(items);
    keys_.clear();
    for (std::size_t i = 0; i < items_.size(); ++i) keys_.try_emplace(items_[i].key, i);
    ++version_;
    MarkChanged();
}

void ListView::SetSelected(std::size_t index, bool selected) { Assign(items_.at(index).selected, selected); }

void ListView::ClearSelection() {
    for (Item& item : items_) Assign(item.selected, false);
}

}  // namespace dlv
