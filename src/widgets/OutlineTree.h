// A tree under construction: nodes are added under others, moved, removed and sorted, and at last
// read in outline order. Adding and moving a node take constant time, and nothing recurses, so a
// chain of any depth works.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace dlv {

class OutlineTree {
public:
    using Node = std::uint32_t;
    static constexpr Node kRoot = 0;
    static constexpr Node kNone = UINT32_MAX;

    /// A tree of the root alone, with room for so many nodes.
    explicit OutlineTree(std::size_t nodes);

    /// Adds a node as the last child; nodes are numbered from 1 as they come.
    Node AddChild(Node parent);
    /// Makes a node that still stands directly under the root, and was never moved, the last child
    /// of another. Skipped (false) when that one stands below the node itself.
    bool MoveTopNode(Node node, Node parent);
    bool HasChildren(Node node) const { return links_[node].firstChild != kNone; }
    /// Removes a node without children.
    void RemoveLeaf(Node node);
    /// Sorts the children of every node; equal ones keep their order.
    void SortChildren(const std::function<bool(Node, Node)>& less);

    struct Place {
        Node node;
        std::int32_t level;
    };
    /// All nodes, each after its parent, the root first at level 0.
    std::vector<Place> InOutlineOrder() const;

private:
    struct Links {
        Node parent = kNone;
        Node firstChild = kNone;
        Node lastChild = kNone;
        Node previous = kNone;
        Node next = kNone;
    };

    void Append(Node node, Node parent);
    void Unlink(Node node);
    Node TopOf(Node node);

    std::vector<Links> links_;
    std::vector<Node> top_;  // towards the node directly under the root; paths are shortened on use
};

}  // namespace dlv
