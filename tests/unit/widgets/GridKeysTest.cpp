#include "widgets/GridKeys.h"

#include <gtest/gtest.h>

namespace dlv {

namespace {

// The grid of these tests: a root (row 2) with nodes "a" (row 3, of two leaves) and "b" (row 6, of one); the
// columns are 0, tree, hidden, 3 and 4.
class Keys : public testing::Test {
protected:
    void SetUp() override {
        grid_.SetColumns(5);
        grid_.SetRows(8);
        grid_.SetFixedRows(2);
        grid_.SetTreeColumn(1);
        grid_.SetColumnWidth(2, 0);
        const int levels[] = {0, 1, 2, 2, 1, 2};
        for (int i = 0; i < 6; ++i) grid_.MakeNode(2 + i, levels[i]);
    }

    OutlineGrid grid_{"grid"};
    GridSight sight_{3, Pixels(128)};
};

TEST_F(Keys, MoveTheCurrentCellOverDisplayedRowsAndVisibleColumns) {
    using enum GridCommand;
    const struct {
        GridCommand command;
        int row, column, closed, rowAfter, columnAfter;
    } rows[] = {{RowDown, 2, 1, 0, 3, 1},     {RowDown, 3, 1, 3, 6, 1},    {RowDown, 7, 1, 0, 7, 1},
                {RowUp, 2, 1, 0, 2, 1},       {RowUp, 6, 3, 3, 3, 3},      {RowDown, 0, 1, 0, 2, 1},
                {PageDown, 2, 1, 0, 5, 1},    {PageDown, 5, 1, 0, 7, 1},   {PageUp, 7, 1, 0, 4, 1},
                {LastRow, 2, 3, 2, 2, 3},     {LastRow, 2, 3, 0, 7, 3},    {FirstRow, 7, 4, 0, 2, 4},
                {FirstColumn, 3, 4, 0, 3, 1}, {LastColumn, 3, 1, 0, 3, 4}, {Right, 3, 1, 0, 3, 3},
                {Right, 3, 3, 0, 3, 4},       {Right, 3, 4, 0, 3, 4},      {Left, 3, 3, 0, 3, 1},
                {Left, 4, 1, 0, 3, 1},        {Left, 2, 1, 2, 2, 1},       {Parent, 5, 3, 0, 3, 3},
                {Parent, 2, 1, 0, 2, 1},      {Parent, 6, 1, 0, 2, 1},     {RowDown, 99, 1, 0, 2, 1}};
    for (const auto& row : rows) {
        grid_.ExpandAll();
        if (row.closed) grid_.SetCollapsed(row.closed, true);
        grid_.SetCurrentCell(row.row, row.column);
        RunGridCommand(grid_, row.command, sight_);
        EXPECT_EQ(grid_.CurrentRow(), row.rowAfter) << static_cast<int>(row.command) << " from " << row.row;
        EXPECT_EQ(grid_.CurrentColumn(), row.columnAfter)
            << static_cast<int>(row.command) << " from " << row.column;
        EXPECT_LT(grid_.DisplayedIndex(grid_.CurrentRow()), grid_.TopIndex() + sight_.fullRows)
            << "it is in sight";
        EXPECT_GE(grid_.DisplayedIndex(grid_.CurrentRow()), grid_.TopIndex());
    }
}

TEST_F(Keys, OpenAndCloseNodes) {
    using enum GridCommand;
    const struct {
        GridCommand command;
        int row;
        bool closedBefore, closedAfter;
    } rows[] = {{Right, 3, true, false},     {Left, 3, false, true},       {OpenNode, 3, true, false},
                {CloseNode, 3, false, true}, {CloseNode, 4, false, false}, {OpenAllBelow, 2, true, false},
                {DrillDown, 3, true, true}};
    for (const auto& row : rows) {
        grid_.SetCollapsed(row.row, row.closedBefore);
        grid_.SetCurrentCell(row.row, 1);
        RunGridCommand(grid_, row.command, sight_);
        EXPECT_EQ(grid_.IsCollapsed(row.row), row.closedAfter) << static_cast<int>(row.command);
        grid_.ExpandAll();
    }
    grid_.SetCurrentCell(5, 3);
    ToggleNode(grid_, 3);
    EXPECT_EQ(grid_.CurrentRow(), 3) << "a cell that is hidden moves to the node";
}

TEST_F(Keys, ScrollNoFurtherThanTheEnds) {
    using enum GridCommand;
    for (int i = 0; i < 9; ++i) RunGridCommand(grid_, ScrollPageDown, sight_);
    EXPECT_EQ(grid_.TopIndex(), 8 - sight_.fullRows);
    for (int i = 0; i < 9; ++i) RunGridCommand(grid_, ScrollRight, sight_);
    EXPECT_EQ(grid_.ScrollLeft(), Pixels(4 * 64 - 128));
    for (int i = 0; i < 9; ++i) RunGridCommand(grid_, ScrollUp, sight_);
    EXPECT_EQ(grid_.TopIndex(), 2);
    for (int i = 0; i < 9; ++i) RunGridCommand(grid_, ScrollLeft, sight_);
    EXPECT_EQ(grid_.ScrollLeft(), 0);
    EXPECT_EQ(grid_.CurrentRow(), 0) << "scrolling leaves the current cell alone";
}

TEST(GridKeys, MeanOneCommandEach) {
    for (const GridKey& key : GridKeys())
        EXPECT_EQ(CommandForKey(key.key, key.control), key.command) << key.name;
    EXPECT_EQ(CommandForKey(0x0D, ControlKey::Down), std::nullopt);
    EXPECT_EQ(CommandForKey('A', ControlKey::Up), std::nullopt);
}

}  // namespace

}  // namespace dlv
