// The state of a list view with one column: items with a key and a text, any number of them
// selected. Windows over it show this state and report what the user selected.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "widgets/Control.h"

namespace dlv {

class ListView : public Control {
public:
    struct Item {
        std::string key;
        std::string text;
        bool selected = false;
        bool operator==(const Item&) const = default;
    };

    using Control::Control;

    const std::vector<Item>& Items() const { return items_; }
    /// Replaces all items. Keys are taken as they are; the first of equal keys is the one found.
    void SetItems(std::vector<Item> items);
    void SetSelected(std::size_t index, bool selected);
    void ClearSelection();
    /// Whether an item has that key.
    bool HasKey(std::string_view key) const { return keys_.contains(key); }

    double ColumnWidth() const { return columnWidth_; }
    void SetColumnWidth(double width) { Assign(columnWidth_, width); }

    /// Grows with every change of the items themselves (not of their selection).
    unsigned ItemsVersion() const { return version_; }

private:
    std::vector<Item> items_;
    std::unordered_map<std::string_view, std::size_t> keys_;
    double columnWidth_ = 0;
    unsigned version_ = 0;
};

}  // namespace dlv
