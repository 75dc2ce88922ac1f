#include "model/UnitTree.h"

namespace dlv {

UnitTree::UnitTree(const Dictionary& parents) : parents_(parents) {
    const std::size_t units = parents_.Count();
    parent_.assign(units, kNone);
    for (std::size_t unit = 0; unit < units; ++unit) {
        const std::string_view parentId = parents_.At(unit).item;
        Node parent = parents_.Place(parentId);
        if (parent == TextTable::kNone) {
            const Node next = static_cast<Node>(units + outsiders_.size());
            parent = outsiderNumbers_.Insert(parentId, next);
            if (parent == next) {
                outsiders_.push_back(parentId);
                parent_.push_back(kNone);
            }
        }
        if (parent != unit) parent_[unit] = parent;
    }

    firstChild_.assign(NodeCount() + 1, 0);
    for (std::size_t unit = 0; unit < units; ++unit)
        if (parent_[unit] != kNone) ++firstChild_[parent_[unit] + 1];
    for (std::size_t node = 0; node < NodeCount(); ++node) firstChild_[node + 1] += firstChild_[node];
    std::vector<std::uint32_t> next(firstChild_.begin(), firstChild_.end() - 1);
    children_.resize(firstChild_.back());
    for (std::size_t unit = 0; unit < units; ++unit)
        if (parent_[unit] != kNone) children_[next[parent_[unit]]++] = static_cast<Node>(unit);
}

UnitTree::Node UnitTree::Find(std::string_view id) const {
    const std::uint32_t unit = parents_.Place(id);
    return unit != TextTable::kNone ? unit : outsiderNumbers_.Find(id);
}

std::string_view UnitTree::Id(Node node) const {
    return node < parents_.Count() ? std::string_view(parents_.At(node).key)
                                   : outsiders_[node - parents_.Count()];
}

}  // namespace dlv
