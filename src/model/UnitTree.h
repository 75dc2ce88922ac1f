// The hierarchy of business units as the parent look-up tells it: every unit that names another as its
// parent is that one's child. Parents that are no units themselves take part too. Units may be their
// own parents or stand in a cycle: no walk visits a unit twice and nothing recurses on depth.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Dictionary.h"

namespace dlv {

class UnitTree {
public:
    using Node = std::uint32_t;
    static constexpr Node kNone = UINT32_MAX;

    /// `parents` maps unit to parent; it must outlive the tree unchanged.
    explicit UnitTree(const Dictionary& parents);

    /// Units first, in the order of the look-up, then parents that are no units.
    std::size_t NodeCount() const { return parent_.size(); }
    Node Find(std::string_view id) const;
    std::string_view Id(Node node) const;

    /// Calls `visit(id)` for all descendants: the children first, then each child's descendants in
    /// turn. `seen` has an entry for each node; a node marked there is visited but not walked again.
    template <class Visitor>
    void Walk(Node start, std::vector<bool>& seen, Visitor&& visit) const {
        std::vector<Node> pending{start};
        seen[start] = true;
        while (!pending.empty()) {
            const Node node = pending.back();
            pending.pop_back();
            const std::size_t firstPending = pending.size();
            for (std::uint32_t i = firstChild_[node]; i < firstChild_[node + 1]; ++i) {
                const Node child = children_[i];
                if (child == start) continue;
                visit(Id(child));
                if (!seen[child]) pending.push_back(child);
                seen[child] = true;
            }
            std::reverse(pending.begin() + static_cast<std::ptrdiff_t>(firstPending), pending.end());
        }
    }

    /// Adds up each node's own figures with those of all its descendants, in place.
    template <class Figures>
    void SumUp(std::vector<Figures>& figures) const {
        std::vector<std::uint32_t> open(NodeCount());
        for (Node node = 0; node < NodeCount(); ++node)
            open[node] = firstChild_[node + 1] - firstChild_[node];
        std::vector<Node> ready;
        for (Node node = 0; node < NodeCount(); ++node)
            if (open[node] == 0) ready.push_back(node);
        while (!ready.empty()) {
            const Node node = ready.back();
            ready.pop_back();
            const Node parent = parent_[node];
            if (parent == kNone) continue;
            figures[parent] += figures[node];
            if (--open[parent] == 0) ready.push_back(parent);
        }
        // Only cycles are left: each unit of a cycle has all the others below it.
        for (Node node = 0; node < NodeCount(); ++node) {
            if (open[node] == 0) continue;
            Figures sum = figures[node];
            for (Node other = parent_[node]; other != node; other = parent_[other]) sum += figures[other];
            for (Node other = node; open[other] != 0; other = parent_[other]) {
                figures[other] = sum;
                open[other] = 0;
            }
        }
    }

private:
    const Dictionary& parents_;
    std::vector<std::string_view> outsiders_;
    TextTable outsiderNumbers_;
    std::vector<Node> parent_;               // kNone at the top
    std::vector<std::uint32_t> firstChild_;  // into children_, one more than there are nodes
    std::vector<Node> children_;
};

}  // namespace dlv
