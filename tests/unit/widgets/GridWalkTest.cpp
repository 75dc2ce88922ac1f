#include "widgets/GridWalk.h"

#include <gtest/gtest.h>

#include <utility>

namespace dlv {
namespace {

constexpr GridSight kSight{4, Pixels(200)};

/// Two header rows, a hidden column 0, the tree in column 1, figures in 2 and 4, hidden 3:
///   2 root, 3 - north, 4 -- a, 5 -- b, 6 - south, 7 -- c, 8 - west
struct Sample {
    OutlineGrid grid{"grid"};
    Sample() {
        grid.SetColumns(5);
        grid.SetRows(9);
        grid.SetFixedRows(2);
        grid.SetTreeColumn(1);
        const double widths[] = {0, 100, 100, 0, 100};
        for (int column = 0; column < 5; ++column) grid.SetColumnWidth(column, Pixels(widths[column]));
        const int levels[] = {0, 1, 2, 2, 1, 2, 1};
        for (int i = 0; i < 7; ++i) {
            if (levels[i] < 2)
                grid.MakeNode(2 + i, levels[i]);
            else
                grid.SetLevel(2 + i, 2);
        }
    }
};

struct Walk {
    const char* name;
    std::pair<int, int> from;
    std::vector<int> closed;
    std::vector<GridCommand> commands;
    std::pair<int, int> to;
    int top = 2;
    std::vector<int> closedAfter{};
};

class GridWalk : public testing::TestWithParam<Walk> {};

TEST_P(GridWalk, EndsWhereItShould) {
    Sample sample;
    OutlineGrid& grid = sample.grid;
    for (const int row : GetParam().closed) grid.SetCollapsed(row, true);
    grid.SetCurrentCell(GetParam().from.first, GetParam().from.second);
    for (const GridCommand command : GetParam().commands) RunGridCommand(grid, command, kSight);
    EXPECT_EQ(std::pair(grid.CurrentRow(), grid.CurrentColumn()), GetParam().to);
    EXPECT_EQ(grid.TopIndex(), GetParam().top);
    std::vector<int> closed;
    for (int row = 2; row < grid.Rows(); ++row)
        if (grid.IsCollapsed(row)) closed.push_back(row);
    EXPECT_EQ(closed, GetParam().closedAfter);
}

using enum GridCommand;

INSTANTIATE_TEST_SUITE_P(
    Keys, GridWalk,
    testing::Values(
        Walk{"down from the header reaches the first row", {0, 0}, {}, {RowDown}, {2, 1}},
        Walk{"up from the first row stays", {2, 2}, {}, {RowUp}, {2, 2}},
        Walk{"down skips hidden rows", {3, 1}, {3}, {RowDown}, {6, 1}, 2, {3}},
        Walk{"down scrolls at the end of the page", {5, 1}, {}, {RowDown}, {6, 1}, 3},
        Walk{"down from the last row stays", {8, 1}, {}, {RowDown}, {8, 1}, 5},
        Walk{"a page is as many rows as are in sight", {2, 2}, {}, {PageDown}, {6, 2}, 3},
        Walk{"a page beyond the end stops there", {2, 1}, {}, {PageDown, PageDown}, {8, 1}, 5},
        Walk{"a page up comes back", {8, 1}, {}, {PageUp, PageUp}, {2, 1}},
        Walk{"first and last row", {4, 4}, {}, {LastRow, FirstRow}, {2, 4}},
        Walk{"the last row in sight of a closed grid", {2, 1}, {2}, {LastRow}, {2, 1}, 2, {2}},
        Walk{"right from an open node goes on to the figures", {3, 1}, {}, {Right}, {3, 2}},
        Walk{"right opens a closed node and stays", {3, 1}, {3}, {Right}, {3, 1}},
        Walk{"right skips a hidden column", {4, 2}, {}, {Right}, {4, 4}},
        Walk{"right stops at the last column", {4, 4}, {}, {Right}, {4, 4}},
        Walk{"left skips a hidden column", {4, 4}, {}, {Left}, {4, 2}},
        Walk{"left in the tree closes an open node", {3, 1}, {}, {Left}, {3, 1}, 2, {3}},
        Walk{"left on a closed node goes to the node above", {3, 1}, {3}, {Left}, {2, 1}, 2, {3}},
        Walk{"left on a row goes to its node", {7, 1}, {}, {Left}, {6, 1}, 3},
        Walk{"left on a node without rows goes to the node above", {8, 1}, {}, {Left}, {2, 1}},
        Walk{"left on the root closes it, then stays", {2, 1}, {}, {Left, Left}, {2, 1}, 2, {2}},
        Walk{"home and end", {4, 2}, {}, {LastColumn, FirstColumn, LastColumn}, {4, 4}},
        Walk{"minus and plus act from any column", {3, 4}, {}, {CloseNode}, {3, 4}, 2, {3}},
        Walk{"plus opens one node only", {2, 4}, {2, 3}, {OpenNode}, {2, 4}, 2, {3}},
        Walk{"star opens all below", {2, 1}, {2, 3, 6}, {OpenAllBelow}, {2, 1}},
        Walk{"star opens no others", {3, 1}, {3, 6}, {OpenAllBelow}, {3, 1}, 2, {6}},
        Walk{"shift and minus close all below", {2, 1}, {}, {CloseAllBelow}, {2, 1}, 2, {2, 3, 6, 8}},
        Walk{"they close nothing below a row that is no node", {4, 1}, {}, {CloseAllBelow}, {4, 1}},
        Walk{"the node above from a figure keeps the column", {4, 2}, {}, {Parent}, {3, 2}},
        Walk{"scrolling leaves the current cell", {2, 1}, {}, {ScrollDown}, {2, 1}, 3},
        Walk{"scrolling stops at the last page", {2, 1}, {}, {ScrollPageDown, ScrollPageDown}, {2, 1}, 5},
        Walk{"scrolling up stops at the first row", {2, 1}, {}, {ScrollDown, ScrollPageUp}, {2, 1}, 2},
        Walk{"a current cell before the tree column counts as in it", {4, 0}, {}, {RowUp}, {3, 1}},
        Walk{"a row under a closed node counts as its node", {4, 1}, {3}, {RowDown}, {6, 1}, 2, {3}}),
    [](const auto& walk) {
        std::string name = walk.param.name;
        for (char& c : name)
            if (!isalnum(static_cast<unsigned char>(c))) c = '_';
        return name;
    });

TEST(GridNodes, ClosingANodeTakesTheCurrentCellUpToIt) {
    Sample sample;
    sample.grid.SetCurrentCell(5, 2);
    ToggleNode(sample.grid, 2);
    EXPECT_EQ(sample.grid.CurrentRow(), 2);
    EXPECT_EQ(sample.grid.CurrentColumn(), 2);
    ToggleNode(sample.grid, 2);
    EXPECT_EQ(sample.grid.CurrentRow(), 2);
    EXPECT_FALSE(sample.grid.IsCollapsed(2));
}

TEST(GridNodes, ARowThatIsNoNodeDoesNotToggle) {
    Sample sample;
    ToggleNode(sample.grid, 4);
    EXPECT_EQ(sample.grid.DisplayedRows().size(), 9u);
}

TEST(GridSideways, TheCurrentCellComesIntoSight) {
    Sample sample;
    OutlineGrid& grid = sample.grid;
    GoToCell(grid, 4, 4, kSight);
    EXPECT_EQ(grid.ScrollLeft(), Pixels(100));
    GoToCell(grid, 4, 2, kSight);
    EXPECT_EQ(grid.ScrollLeft(), Pixels(100));
    GoToCell(grid, 4, 1, kSight);
    EXPECT_EQ(grid.ScrollLeft(), 0);
    ScrollColumns(grid, Pixels(1000), kSight);
    EXPECT_EQ(grid.ScrollLeft(), Pixels(100));
    ScrollColumns(grid, -Pixels(1000), kSight);
    EXPECT_EQ(grid.ScrollLeft(), 0);
}

TEST(GridWithoutRows, TakesEveryCommand) {
    OutlineGrid grid("grid");
    for (const GridKey& key : GridKeys()) RunGridCommand(grid, key.command, kSight);
    grid.SetColumns(3);
    grid.SetRows(2);
    grid.SetFixedRows(2);
    for (const GridKey& key : GridKeys()) RunGridCommand(grid, key.command, kSight);
    EXPECT_EQ(grid.CurrentRow(), 0);
}

struct Marking {
    const char* name;
    std::pair<int, int> from;
    std::vector<GridCommand> extending;
    std::vector<GridCommand> then;
    std::optional<OutlineGrid::Block> block;
};

class GridMarking : public testing::TestWithParam<Marking> {};

TEST_P(GridMarking, SelectsABlock) {
    Sample sample;
    OutlineGrid& grid = sample.grid;
    grid.SetCurrentCell(GetParam().from.first, GetParam().from.second);
    for (const GridCommand command : GetParam().extending)
        RunGridCommand(grid, command, kSight, Selecting::Block);
    for (const GridCommand command : GetParam().then) RunGridCommand(grid, command, kSight);
    EXPECT_EQ(grid.Selection(), GetParam().block);
}

INSTANTIATE_TEST_SUITE_P(
    Blocks, GridMarking,
    testing::Values(
        Marking{"nothing while in the header", {0, 0}, {}, {}, std::nullopt},
        Marking{"the first move only arrives", {0, 0}, {RowDown}, {}, OutlineGrid::Block{2, 2, 1, 1}},
        Marking{"the current cell alone", {3, 2}, {}, {}, OutlineGrid::Block{3, 3, 2, 2}},
        Marking{"up and to the right", {4, 2}, {RowUp, Right}, {}, OutlineGrid::Block{3, 4, 2, 4}},
        Marking{"back again", {4, 2}, {RowUp, RowDown}, {}, OutlineGrid::Block{4, 4, 2, 2}},
        Marking{"to the end", {4, 2}, {LastRow}, {}, OutlineGrid::Block{4, 8, 2, 2}},
        Marking{"a plain move ends it", {4, 2}, {RowUp}, {RowUp}, OutlineGrid::Block{2, 2, 2, 2}},
        Marking{"scrolling keeps it", {4, 2}, {RowUp}, {ScrollDown}, OutlineGrid::Block{3, 4, 2, 2}},
        Marking{"all", {4, 2}, {}, {SelectAll}, OutlineGrid::Block{2, 8, 1, 4}}),
    [](const auto& marking) {
        std::string name = marking.param.name;
        for (char& c : name)
            if (c == ' ') c = '_';
        return name;
    });

}  // namespace
}  // namespace dlv
