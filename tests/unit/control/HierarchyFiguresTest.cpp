// The figures of the hierarchy against the rule taken by the letter: for each chosen unit the list of its
// descendants as one text, split at its commas, each unit of the model once.
#include <gtest/gtest.h>

#include <set>

#include "base/Text.h"
#include "tests/support/Random.h"
#include "tests/unit/control/TestViewer.h"

namespace dlv {

namespace {

std::string ChildList(const test::Rows& units, const std::string& id, std::set<std::string>& seen) {
    std::vector<std::string> children;
    std::string text;
    for (const auto& unit : units) {
        if (unit[2] != id || unit[0] == id || !seen.insert(unit[0]).second) continue;
        children.push_back(unit[0]);
        text += unit[0] + ",";
    }
    for (const std::string& child : children) text += ChildList(units, child, seen);
    return text;
}

/// Technicians of the unit and all its descendants, as text; empty when the model has none of them.
std::string Technicians(const test::Tables& tables, const std::string& id) {
    std::set<std::string> seen{id};
    std::string list = id + "," + ChildList(tables.units, id, seen);
    list.pop_back();
    std::set<std::string> pieces;
    long sum = 0;
    bool any = false;
    for (const std::string& piece : Split(list, ',')) {
        if (!pieces.insert(piece).second) continue;
        for (const auto& general : tables.general) {
            if (!EqualFolded(general[0], piece)) continue;
            sum += std::stol(general[1]);
            any = true;
            break;
        }
    }
    return any ? std::to_string(sum) : "";
}

TEST(HierarchyFigures, AreTheSumsOfTheLists) {
    static const char* const kPlain[] = {"1", "2", "3", "a", "A", "b", "4", "5"};
    static const char* const kCommas[] = {"1", "2", "1,2", "3,", ",", "a,1", "A", "2,3,1"};
    std::size_t figures = 0;
    for (std::uint32_t seed = 1; seed <= 150; ++seed) {
        test::Random random(seed);
        const auto& ids = seed % 2 ? kPlain : kCommas;
        const auto anyId = [&] { return std::string(ids[random.Below(8)]); };
        test::Tables tables;
        std::set<std::string> taken;
        std::vector<std::string> session;
        for (std::uint32_t i = random.Below(9); i > 0; --i) {
            const std::string id = anyId();
            if (!taken.insert(id).second) continue;
            tables.units.push_back({id, "unit " + id, random.OneIn(3) ? "#" : anyId()});
            session.push_back(id);
        }
        for (std::uint32_t i = random.Below(9); i > 0; --i)
            tables.general.push_back({anyId(), std::to_string(1 << i), "1", "1"});
        test::TestViewer test;
        test.Start(session);
        test.Receive(tables);
        test.ViewAll(seed / 2 % 2);
        EXPECT_EQ(test.host.Shown(), std::vector<std::string>{}) << "seed " << seed;
        for (int row = 3; row < test.Grid(1).Rows(); ++row) {
            const std::string id = test.Grid(1).RowData(row);
            const std::string expected = Technicians(tables, id);
            EXPECT_EQ(test.Grid(1).CellText(row, 1), expected) << "seed " << seed << ", unit " << id;
            EXPECT_EQ(test.Grid(2).RowBackColour(row).has_value(), expected.empty())
                << "grey without figures";
            EXPECT_EQ(test.Grid(2).FirstColouredColumn(row), 0) << "over all columns";
            ++figures;
        }
    }
    EXPECT_GT(figures, 200u);
}

}  // namespace

}  // namespace dlv
