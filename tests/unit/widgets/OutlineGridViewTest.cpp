// What survives a refill of the grid: the current cell, the scroll position; and what a painter reads.
#include <gtest/gtest.h>

#include "widgets/OutlineGrid.h"

namespace dlv {

namespace {

/// A grid with two header rows and a flat row for each text of data.
void Fill(OutlineGrid& grid, const std::vector<std::string>& data) {
    grid.SetColumns(3);
    grid.SetRows(2);
    grid.SetFixedRows(2);
    grid.SetRows(2 + static_cast<int>(data.size()));
    for (std::size_t i = 0; i < data.size(); ++i) grid.SetRowData(2 + static_cast<int>(i), data[i]);
}

TEST(GridView, FollowsTheRowsThatItNames) {
    const struct {
        const char* name;
        int current;
        std::vector<std::string> after;
        int currentAfter;
        int topAfter;
    } rows[] = {{"moved down", 3, {"new", "", "a", "b"}, 4, 5},
                {"grand total stays first", 2, {"", "x", "a", "b"}, 2, 5},
                {"both gone", 4, {"", "x"}, 0, 2},
                {"header cell", 0, {"", "x", "b"}, 0, 4},
                {"nothing left", 3, {}, 0, 2}};
    for (const auto& row : rows) {
        OutlineGrid grid("grid");
        Fill(grid, {"", "a", "b"});
        grid.SetCurrentCell(row.current, 1);
        grid.SetTopIndex(4);
        grid.SetScrollLeft(30);
        const OutlineGrid::View view = grid.SaveView();
        Fill(grid, row.after);
        grid.RestoreView(view);
        EXPECT_EQ(grid.CurrentRow(), row.currentAfter) << row.name;
        EXPECT_EQ(grid.TopIndex(), row.topAfter) << row.name;
        EXPECT_EQ(grid.ScrollLeft(), 30) << row.name;
    }
}

TEST(GridView, KeepsWhatIsSelected) {
    const OutlineGrid::Block all{2, 5, 0, 2};
    const struct {
        const char* name;
        bool everything;
        std::vector<std::string> after;
        std::optional<OutlineGrid::Block> block;
    } rows[] = {{"rows moved apart", false, {"", "b", "new", "a"}, OutlineGrid::Block{3, 5, 0, 1}},
                {"its far end is gone", false, {"", "x", "b"}, OutlineGrid::Block{4, 4, 1, 1}},
                {"its current row is gone", false, {"", "a"}, std::nullopt},
                {"all stays all", true, {"", "x", "y", "z"}, all}};
    for (const auto& row : rows) {
        OutlineGrid grid("grid");
        Fill(grid, {"", "a", "b"});
        grid.SetCurrentCell(3, 0);
        grid.ExtendSelection(4, 1);
        if (row.everything) grid.SelectAll();
        const OutlineGrid::View view = grid.SaveView();
        grid.SetRows(2);
        Fill(grid, row.after);
        grid.RestoreView(view);
        EXPECT_EQ(grid.Selection(), row.block) << row.name;
    }
}

TEST(GridView, ShowsTheNodeThatHidesTheTopRow) {
    OutlineGrid grid("grid");
    Fill(grid, {"root", "a", "b"});
    grid.MakeNode(2, 0);
    for (const int row : {3, 4}) grid.MakeNode(row, 1);
    grid.SetTopIndex(4);
    const OutlineGrid::View view = grid.SaveView();
    grid.SetCollapsed(2, true);
    grid.RestoreView(view);
    EXPECT_EQ(grid.TopIndex(), 2);
    EXPECT_EQ(grid.DisplayedIndex(4), 2);
}

TEST(Grid, StartsAnewWhenCleared) {
    OutlineGrid grid("grid");
    Fill(grid, {"a"});
    grid.SetHeaderColour(1, 0, 2, 0xFF);
    grid.SetHeaderRowHeight(1, 2);
    grid.SetCurrentCell(2, 2);
    EXPECT_EQ(grid.RowHeight(1), 2 * grid.RowHeight(0));
    grid.Clear();
    EXPECT_EQ(grid.Rows(), 0);
    EXPECT_EQ(grid.Columns(), 0);
    EXPECT_EQ(grid.CurrentRow(), 0);
    EXPECT_EQ(grid.CurrentColumn(), 0);
    EXPECT_EQ(grid.FindRow("a"), OutlineGrid::kNoRow);
    EXPECT_EQ(grid.HeaderColour(1, 0), std::nullopt);
    EXPECT_EQ(grid.RowHeight(1), grid.RowHeight(0));
}

TEST(Grid, TellsOnceThatItChanged) {
    OutlineGrid grid("grid");
    Fill(grid, {"a"});
    EXPECT_TRUE(grid.TakeChanged());
    EXPECT_FALSE(grid.TakeChanged());
    grid.SetRowBold(2, true);
    EXPECT_TRUE(grid.TakeChanged());
    grid.SetRowBold(2, true);
    EXPECT_FALSE(grid.TakeChanged()) << "the same once more is no change";
}

}  // namespace

}  // namespace dlv
