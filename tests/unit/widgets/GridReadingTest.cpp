// What is read out of a grid: where rows stand among their like, and rows that are found again.
#include <gtest/gtest.h>

#include "tests/support/Random.h"
#include "widgets/GridReading.h"

namespace dlv {
namespace {

struct RowOf {
    const char* data;
    int level;
};

/// One header row, then a node for each.
void Fill(OutlineGrid& grid, const std::vector<RowOf>& rows) {
    grid.SetColumns(3);
    grid.SetRows(1);
    grid.SetFixedRows(1);
    grid.SetRows(1 + static_cast<int>(rows.size()));
    for (int row = 1; row < grid.Rows(); ++row) {
        grid.SetRowData(row, rows[static_cast<std::size_t>(row - 1)].data);
        grid.MakeNode(row, rows[static_cast<std::size_t>(row - 1)].level);
    }
}

std::string PlaceText(OutlinePlaces& places, const OutlineGrid& grid, int row) {
    const OutlinePlaces::Place place = places.Of(grid, row);
    return std::to_string(place.depth) + ": " + std::to_string(place.place) + "/" +
           std::to_string(place.count) + "+" + std::to_string(place.children);
}

TEST(OutlinePlaces, CountRowsOfOneLevelBelowOneNode) {
    OutlineGrid grid("grid");
    Fill(grid, {{"r", 1}, {"a", 2}, {"a1", 4}, {"a2", 4}, {"a3", 3}, {"b", 2}, {"s", 1}});
    OutlinePlaces places;
    const char* const wanted[] = {"0: 0/0+0", "0: 1/2+2", "1: 1/2+3", "3: 1/2+0",
                                  "3: 2/2+0", "2: 1/1+0", "1: 2/2+0", "0: 2/2+0"};
    for (int row = 0; row < grid.Rows(); ++row) EXPECT_EQ(PlaceText(places, grid, row), wanted[row]) << row;
    grid.SetCollapsed(1, true);
    EXPECT_EQ(PlaceText(places, grid, 1), "0: 1/2+2") << "what is closed is counted all the same";
    Fill(grid, {{"r", 0}});
    EXPECT_EQ(PlaceText(places, grid, 1), "0: 1/1+0");
}

TEST(OutlinePlaces, AreWhatCountingRowByRowGives) {
    test::Random random(7);
    for (int round = 0; round < 100; ++round) {
        std::vector<RowOf> rows(1 + random.Below(30), RowOf{"", 0});
        for (RowOf& row : rows) row.level = static_cast<int>(random.Below(5));
        OutlineGrid grid("grid");
        Fill(grid, rows);
        OutlinePlaces places;
        for (int row = 1; row < grid.Rows(); ++row) {
            int place = 0, count = 0, children = 0;
            for (int other = 1; other < grid.Rows(); ++other) {
                if (grid.ParentRow(other) == row) ++children;
                if (grid.ParentRow(other) != grid.ParentRow(row) || grid.Level(other) != grid.Level(row))
                    continue;
                ++count;
                if (other <= row) ++place;
            }
            const OutlinePlaces::Place found = places.Of(grid, row);
            ASSERT_EQ(found.place, place) << round << ", row " << row;
            ASSERT_EQ(found.count, count) << round << ", row " << row;
            ASSERT_EQ(found.children, children) << round << ", row " << row;
        }
    }
}

TEST(RowReference, FindsItsRowAgainOrNone) {
    constexpr int kGone = OutlineGrid::kNoRow;
    const struct {
        const char* name;
        int row;
        std::vector<RowOf> after;
        int found;
    } tests[] = {{"the same", 3, {{"", 0}, {"a", 1}, {"b", 1}}, 3},
                 {"moved", 3, {{"", 0}, {"b", 1}}, 2},
                 {"gone", 3, {{"", 0}, {"a", 1}, {"c", 1}}, kGone},
                 {"another row of that data", 3, {{"", 0}, {"b", 2}}, kGone},
                 {"the first of two, which it is not", 3, {{"b", 0}, {"a", 1}, {"b", 1}}, 3},
                 {"no data: the first row", 1, {{"", 0}}, 1},
                 {"no data: another first row", 1, {{"x", 0}}, kGone},
                 {"header", 0, {}, 0},
                 {"nothing left", 2, {}, kGone}};
    for (const auto& test : tests) {
        OutlineGrid grid("grid");
        Fill(grid, {{"", 0}, {"a", 1}, {"b", 1}});
        RowReference row(grid, test.row);
        EXPECT_EQ(row.Find(grid), test.row);
        Fill(grid, test.after);
        EXPECT_EQ(row.Find(grid), test.found) << test.name;
        EXPECT_EQ(row.Find(grid), test.found) << test.name << ", asked again";
    }
}

TEST(GridReading, NodesToggledAreToldOnceAndNotAcrossOtherRows) {
    OutlineGrid grid("grid");
    Fill(grid, {{"", 0}, {"a", 1}, {"b", 1}});
    grid.SetCollapsed(2, true);
    grid.SetCollapsed(2, true);
    grid.SetCollapsed(3, true);
    EXPECT_EQ(grid.TakeToggled(), (std::vector<int>{2, 3}));
    EXPECT_TRUE(grid.TakeToggled().empty());
    grid.SetCollapsed(2, false);
    const unsigned version = grid.RowsVersion();
    grid.SetRows(2);
    EXPECT_NE(grid.RowsVersion(), version);
    EXPECT_TRUE(grid.TakeToggled().empty());
}

TEST(GridReading, ReadsTheColumnsThatAreToBeSeenFromTheTreeOn) {
    OutlineGrid grid("grid");
    Fill(grid, {});
    grid.SetTreeColumn(1);
    EXPECT_EQ(ReadColumns(grid), (std::vector<int>{1, 2}));
    grid.SetColumnWidth(1, 0);
    EXPECT_EQ(ReadColumns(grid), std::vector<int>{2});
}

}  // namespace
}  // namespace dlv
