// What is copied from a grid, and how wide its columns must be.
#include "widgets/GridText.h"

#include <gtest/gtest.h>

#include <utility>

#include "widgets/GridFit.h"

namespace dlv {
namespace {

/// A margin column 0, a hidden column 1 with the group's text, the tree in 2, figures in 3 and 4:
///   2 group North, 3 - a "b", 4 - c<tab>d, 5 group South, 6 - <blank>
struct Sample {
    OutlineGrid grid{"grid"};
    Sample() {
        grid.SetColumns(5);
        grid.SetRows(7);
        grid.SetFixedRows(2);
        grid.SetTreeColumn(2);
        const double widths[] = {15, 0, 100, 50, 50};
        for (int column = 0; column < 5; ++column) grid.SetColumnWidth(column, Pixels(widths[column]));
        for (const int column : {3, 4}) grid.SetText(0, column, "Orders");
        grid.SetText(1, 2, "Units");
        grid.SetText(1, 3, "Open");
        grid.SetText(1, 4, "Orders");
        for (const int node : {2, 5}) grid.MakeNode(node, 1);
        for (const int row : {3, 4, 6}) grid.SetLevel(row, 2);
        grid.SetText(2, 1, "North");
        grid.SetText(5, 1, "South");
        grid.SetText(3, 2, "a \"b\"");
        grid.SetText(4, 2, "c\td");
        for (int row = 2; row < 6; ++row) grid.SetWhole(row, 3, row);
        grid.SetSingle(2, 4, 2.5f);
    }
};

TEST(CopiedText, IsWhatASpreadsheetTakes) {
    const struct {
        const char* name;
        std::pair<int, int> from;
        std::pair<int, int> to;
        std::vector<int> closed;
        Headings headings;
        const char* text;
    } rows[] = {
        {"one figure", {3, 3}, {3, 3}, {}, Headings::Without, "3\r\n"},
        {"a block from its lower end",
         {4, 4},
         {2, 2},
         {},
         Headings::Without,
         "North\t2\t2.5\r\n\"a \"\"b\"\"\"\t3\t\r\n\"c\td\"\t4\t\r\n"},
        {"rows under a closed node stay out",
         {2, 2},
         {5, 3},
         {2},
         Headings::Without,
         "North\t2\r\nSouth\t5\r\n"},
        {"margin and hidden columns stay out", {5, 0}, {6, 3}, {}, Headings::Without, "South\t5\r\n\t\r\n"},
        {"headings",
         {3, 2},
         {3, 4},
         {},
         Headings::With,
         "Units\tOrders: Open\tOrders\r\n\"a \"\"b\"\"\"\t3\t\r\n"},
        {"nothing in the header", {0, 0}, {1, 4}, {}, Headings::With, ""},
    };
    for (const auto& row : rows) {
        Sample sample;
        for (const int node : row.closed) sample.grid.SetCollapsed(node, true);
        sample.grid.SetCurrentCell(row.from.first, row.from.second);
        sample.grid.ExtendSelection(row.to.first, row.to.second);
        EXPECT_EQ(CopyText(sample.grid, row.headings), row.text) << row.name;
    }
}

TEST(CopiedText, OfAMillionCellsTakesOnePass) {
    OutlineGrid grid("grid");
    grid.SetColumns(10);
    grid.SetRows(100'002);
    grid.SetFixedRows(2);
    for (int row = 2; row < grid.Rows(); ++row) grid.SetWhole(row, 1, row);
    grid.SelectAll();
    const std::string text = CopyText(grid, Headings::Without);
    EXPECT_TRUE(text.starts_with("\t2\t\t\t\t\t\t\t\t\r\n"));
    EXPECT_TRUE(text.ends_with("\t100001\t\t\t\t\t\t\t\t\r\n"));
}

double TenATwip(const std::string& text, bool bold) {
    return static_cast<double>(text.size()) * (bold ? 20 : 10);
}

TEST(FittingColumns, ShowHeadingsWordByWordAndTheirWidestText) {
    const FitRoom room{1, 100, 1000};
    Sample sample;
    OutlineGrid& grid = sample.grid;
    grid.SetText(1, 3, "Completed orders");
    EXPECT_EQ(FittingWidth(grid, 3, 2, TenATwip, room), 91) << "the longest word of the heading";
    grid.SetText(6, 3, "12345678901");
    EXPECT_EQ(FittingWidth(grid, 3, 2, TenATwip, room), 111);
    grid.SetRowBold(6, true);
    EXPECT_EQ(FittingWidth(grid, 3, 2, TenATwip, room), 221);
    EXPECT_EQ(FittingWidth(grid, 2, 2, TenATwip, room), 1151) << "one level deep";
    grid.SetCollapsed(2, true);
    EXPECT_EQ(FittingWidth(grid, 2, 2, TenATwip, room), 151) << "hidden rows do not count";
    EXPECT_EQ(FittingWidth(grid, 0, 2, TenATwip, room), 0);
    FitColumns(grid, 2, TenATwip, room);
    EXPECT_EQ(grid.ColumnWidth(1), 0) << "hidden columns stay hidden";
    EXPECT_EQ(grid.ColumnWidth(3), 221);
}

TEST(FittingColumns, MeasureABoundedSample) {
    OutlineGrid grid("grid");
    grid.SetColumns(1);
    grid.SetRows(100'002);
    grid.SetFixedRows(2);
    for (int row = 2; row < grid.Rows(); ++row) grid.SetWhole(row, 0, row);
    grid.SetText(50'000, 0, "in sight");
    grid.SetText(70'000, 0, "far from everything");
    grid.SetText(100'001, 0, "last one");
    int measured = 0;
    const auto measure = [&](const std::string& text, bool bold) {
        ++measured;
        return TenATwip(text, bold);
    };
    EXPECT_EQ(FittingWidth(grid, 0, 49'990, measure, {0, 0, 0}), 80);
    EXPECT_LE(measured, 600);
    for (const int top : {2, 100, 99'950}) {
        measured = 0;
        EXPECT_EQ(FittingWidth(grid, 0, top, measure, {0, 0, 0}), 80)
            << "the last row counts from everywhere";
        EXPECT_LE(measured, 600) << "from " << top;
    }
}

}  // namespace
}  // namespace dlv
