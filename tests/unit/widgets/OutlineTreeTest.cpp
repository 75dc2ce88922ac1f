#include "widgets/OutlineTree.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/Random.h"

namespace dlv {

namespace {

using Node = OutlineTree::Node;

/// The same tree as lists of children, walked by recursion.
struct PlainTree {
    std::vector<std::vector<Node>> children = std::vector<std::vector<Node>>(1);
    std::vector<Node> parents = {OutlineTree::kNone};

    void Add(Node parent) {
        children[parent].push_back(static_cast<Node>(children.size()));
        parents.push_back(parent);
        children.emplace_back();
    }
    void Unlink(Node node) { std::erase(children[parents[node]], node); }
    bool IsBelow(Node node, Node above) {
        for (; node != OutlineTree::kNone; node = parents[node])
            if (node == above) return true;
        return false;
    }
    void List(Node node, int level, std::vector<std::pair<Node, int>>& places) {
        places.emplace_back(node, level);
        for (const Node child : children[node]) List(child, level + 1, places);
    }
};

TEST(OutlineTree, DoesWhatAPlainTreeDoes) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        test::Random random(seed);
        const Node count = 1 + random.Below(30);
        const auto any = [&] { return random.Below(count + 1); };
        OutlineTree tree(count);
        PlainTree plain;
        for (Node node = 1; node <= count; ++node) {
            const Node parent = random.OneIn(3) ? random.Below(node) : OutlineTree::kRoot;
            EXPECT_EQ(tree.AddChild(parent), node);
            plain.Add(parent);
        }
        for (Node node = 1; node <= count; ++node) {
            if (plain.parents[node] != OutlineTree::kRoot) continue;
            const Node parent = any();
            const bool possible = !plain.IsBelow(parent, node);
            EXPECT_EQ(tree.MoveTopNode(node, parent), possible);
            if (!possible) continue;
            plain.Unlink(node);
            plain.children[parent].push_back(node);
            plain.parents[node] = parent;
        }
        for (int i = 0; i < 5; ++i) {
            const Node node = any();
            EXPECT_EQ(tree.HasChildren(node), !plain.children[node].empty());
            const bool linked =
                node != OutlineTree::kRoot && std::ranges::count(plain.children[plain.parents[node]], node);
            if (!linked || tree.HasChildren(node)) continue;
            tree.RemoveLeaf(node);
            plain.Unlink(node);
        }
        const auto less = [](Node left, Node right) { return left % 4 < right % 4; };
        tree.SortChildren(less);
        for (auto& list : plain.children) std::ranges::stable_sort(list, less);
        std::vector<std::pair<Node, int>> expected;
        plain.List(OutlineTree::kRoot, 0, expected);
        std::vector<std::pair<Node, int>> places;
        for (const auto& place : tree.InOutlineOrder()) places.emplace_back(place.node, place.level);
        ASSERT_EQ(places, expected) << "seed " << seed;
    }
}

TEST(OutlineTree, BuildsAChainOfAnyDepthInAnyOrder) {
    constexpr Node kDepth = 300'000;
    for (const bool downwards : {true, false}) {
        OutlineTree tree(kDepth);
        for (Node node = 1; node <= kDepth; ++node) tree.AddChild(OutlineTree::kRoot);
        for (Node i = 2; i <= kDepth; ++i) {
            const Node node = downwards ? i : kDepth + 2 - i;
            ASSERT_TRUE(tree.MoveTopNode(node, node - 1));
        }
        EXPECT_FALSE(tree.MoveTopNode(1, kDepth)) << "the end of the chain stands below its start";
        tree.SortChildren([](Node left, Node right) { return left < right; });
        const auto places = tree.InOutlineOrder();
        EXPECT_EQ(places.back().node, kDepth);
        EXPECT_EQ(places.back().level, static_cast<int>(kDepth));
    }
}

}  // namespace

}  // namespace dlv
