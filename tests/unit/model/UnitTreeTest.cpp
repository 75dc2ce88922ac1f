#include "model/UnitTree.h"

#include <gtest/gtest.h>

#include <set>

#include "model/cDLVController.h"
#include "tests/support/Random.h"
#include "tests/support/TestHost.h"

namespace dlv {

namespace {

/// All descendants by the rule: the children in the order of the look-up, then each child's own in turn.
void AddDescendants(const Dictionary& parents, const std::string& id, std::set<std::string>& seen,
                    std::vector<std::string>& list) {
    std::vector<std::string> children;
    for (const auto& entry : parents)
        if (entry.item == id && entry.key != id && seen.insert(entry.key).second)
            children.push_back(entry.key);
    list.insert(list.end(), children.begin(), children.end());
    for (const std::string& child : children) AddDescendants(parents, child, seen, list);
}

/// Random parents: trees, units that are their own parents, cycles, parents that are no units.
Dictionary RandomParents(test::Random& random) {
    Dictionary parents;
    const std::uint32_t units = random.Below(14);
    for (std::uint32_t unit = 0; unit < units; ++unit)
        parents.AddNew(std::to_string(random.Below(16)),
                       random.OneIn(4) ? "#" : std::to_string(random.Below(16)));
    return parents;
}

TEST(UnitTree, NamesDescendantsInTheirOrderAndSumsThemUp) {
    for (std::uint32_t seed = 1; seed <= 3000; ++seed) {
        test::Random random(seed);
        const Dictionary parents = RandomParents(random);
        const UnitTree tree(parents);
        std::vector<std::uint64_t> sums(tree.NodeCount());
        for (UnitTree::Node node = 0; node < tree.NodeCount(); ++node) sums[node] = std::uint64_t{1} << node;
        tree.SumUp(sums);
        for (UnitTree::Node node = 0; node < tree.NodeCount(); ++node) {
            const std::string id(tree.Id(node));
            ASSERT_EQ(tree.Find(id), node);
            std::set<std::string> seen{id};
            std::vector<std::string> expected;
            AddDescendants(parents, id, seen, expected);
            std::vector<std::string> walked;
            std::vector<bool> marks(tree.NodeCount());
            tree.Walk(node, marks, [&](std::string_view child) { walked.emplace_back(child); });
            ASSERT_EQ(walked, expected) << "seed " << seed << ", unit " << id;
            std::uint64_t sum = std::uint64_t{1} << node;
            for (const std::string& child : expected) sum += std::uint64_t{1} << tree.Find(child);
            ASSERT_EQ(sums[node], sum) << "seed " << seed << ", unit " << id;
        }
        EXPECT_EQ(tree.Find("nobody"), UnitTree::kNone);
    }
}

TEST(UnitSets, AreEmptyAndReportedWhereTheyCannotBeHad) {
    test::TestHost host;
    std::vector<std::string> reports;
    const Trap trap([&](const RunTimeError& error, std::string_view location) {
        reports.push_back(std::to_string(error.Number()) + ' ' + std::string(location));
    });
    cDLVController controller(host, trap, {});
    Form withoutList("form");
    controller.Initialize(withoutList);
    EXPECT_EQ(controller.GetBUList().Count() + controller.GetAggregateBUList().Count(), 0u);
    EXPECT_EQ(reports, (std::vector<std::string>{"5 cDLVController.GetBUList",
                                                 "5 cDLVController.GetAggregateBUList"}));
}

}  // namespace

}  // namespace dlv
