#include "widgets/OutlineTree.h"

#include <algorithm>

namespace dlv {

OutlineTree::OutlineTree(std::size_t nodes) {
    links_.reserve(nodes + 1);
    top_.reserve(nodes + 1);
    links_.emplace_back();
    top_.push_back(kRoot);
}

void OutlineTree::Append(Node node, Node parent) {
    Links& links = links_[node];
    links.parent = parent;
    links.previous = links_[parent].lastChild;
    links.next = kNone;
    if (links.previous == kNone)
        links_[parent].firstChild = node;
    else
        links_[links.previous].next = node;
    links_[parent].lastChild = node;
}

void OutlineTree::Unlink(Node node) {
    const Links& links = links_[node];
    (links.previous == kNone ? links_[links.parent].firstChild : links_[links.previous].next) = links.next;
    (links.next == kNone ? links_[links.parent].lastChild : links_[links.next].previous) = links.previous;
}

OutlineTree::Node OutlineTree::AddChild(Node parent) {
    const Node node = static_cast<Node>(links_.size());
    links_.emplace_back();
    top_.push_back(parent == kRoot ? node : parent);
    Append(node, parent);
    return node;
}

OutlineTree::Node OutlineTree::TopOf(Node node) {
    while (top_[node] != node) {
        top_[node] = top_[top_[node]];
        node = top_[node];
    }
    return node;
}

bool OutlineTree::MoveTopNode(Node node, Node parent) {
    if (TopOf(parent) == node) return false;
    Unlink(node);
    Append(node, parent);
    if (parent != kRoot) top_[node] = parent;
    return true;
}

void OutlineTree::RemoveLeaf(Node node) { Unlink(node); }

void OutlineTree::SortChildren(const std::function<bool(Node, Node)>& less) {
    std::vector<Node> children;
    for (Node parent = 0; parent < links_.size(); ++parent) {
        children.clear();
        for (Node child = links_[parent].firstChild; child != kNone; child = links_[child].next)
            children.push_back(child);
        if (children.size() < 2 || std::ranges::is_sorted(children, less)) continue;
        std::ranges::stable_sort(children, less);
        links_[parent].firstChild = links_[parent].lastChild = kNone;
        for (const Node child : children) Append(child, parent);
    }
}

std::vector<OutlineTree::Place> OutlineTree::InOutlineOrder() const {
    std::vector<Place> places;
    places.reserve(links_.size());
    Node node = kRoot;
    std::int32_t level = 0;
    while (true) {
        places.push_back({node, level});
        if (links_[node].firstChild != kNone) {
            node = links_[node].firstChild;
            ++level;
            continue;
        }
        while (node != kRoot && links_[node].next == kNone) {
            node = links_[node].parent;
            --level;
        }
        if (node == kRoot) return places;
        node = links_[node].next;
    }
}

}  // namespace dlv
