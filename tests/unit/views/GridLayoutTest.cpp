// The empty grids: columns, widths, header texts and colours.
#include <gtest/gtest.h>

#include "tests/support/TestHost.h"
#include "views/HierarchyView.h"
#include "views/SummaryView.h"

namespace dlv {

namespace {

constexpr Colour kYellow = 0xD9FCFD, kCyan = 0xFAFDC6, kPink = 0xEAE6FC, kGreen = 0xE4FEE3;

class GridLayout : public testing::Test {
protected:
    /// The header's texts of one row, joined; keys, since there is no catalogue yet.
    std::string Header(int grid, int row) const {
        std::string text;
        for (int column = 0; column < form_.vsFlex[grid].Columns(); ++column)
            text += form_.vsFlex[grid].CellText(row, column) + ';';
        return text;
    }
    /// Runs of equal colours of a header row: colour and number of columns.
    std::vector<std::pair<Colour, int>> Colours(int grid, int row) const {
        std::vector<std::pair<Colour, int>> runs;
        for (int column = 0; column < form_.vsFlex[grid].Columns(); ++column) {
            const Colour colour = form_.vsFlex[grid].HeaderColour(row, column).value_or(0);
            if (runs.empty() || runs.back().first != colour) runs.emplace_back(colour, 0);
            ++runs.back().second;
        }
        return runs;
    }

    test::TestHost host_;
    ViewerForm form_;
    Trap trap_{[](const RunTimeError& error, std::string_view) { ADD_FAILURE() << error.what(); }};
    CaptionCatalogue captions_;
    std::shared_ptr<QZWebProfile> profile_;
    cDLVController controller_{host_, trap_, {}};
    CollapsedNodes collapsed_{form_, profile_, trap_};
};

TEST_F(GridLayout, OfTheSummaryHasAHiddenTypeColumnAndTwoBlocksOfStatuses) {
    SummaryView(form_, controller_, captions_, collapsed_, trap_).InitSingleBUGrid();
    const OutlineGrid& grid = form_.vsFlex[0];
    EXPECT_EQ(grid.Rows(), 12);
    EXPECT_EQ(grid.FixedRows(), 2);
    EXPECT_EQ(grid.TreeColumn(), 2);
    const std::string statuses = "Open;Warning;Jeopardy;Late;Completed;Canceled;NotDone;";
    EXPECT_EQ(Header(0, 0),
              ";;;WorkOrders;WorkOrders;WorkOrders;WorkOrders;WorkOrders;WorkOrders;WorkOrders;"
              "Points;Points;Points;Points;Points;Points;Points;");
    EXPECT_EQ(Header(0, 1), ";;JobTypesAndJobClasses;" + statuses + statuses);
    for (const int row : {0, 1})
        EXPECT_EQ(Colours(0, row),
                  (std::vector<std::pair<Colour, int>>{{kYellow, 3}, {kCyan, 7}, {kPink, 7}}));
    const double widths[] = {15, 0, 111, 52};
    for (int column = 0; column < 17; ++column)
        EXPECT_EQ(grid.ColumnWidth(column), Pixels(widths[std::min(column, 3)])) << column;
    EXPECT_EQ(grid.RowHeight(1), 2 * grid.RowHeight(0));
    EXPECT_TRUE(grid.RowBold(0));
    EXPECT_FALSE(grid.RowBold(1));
}

TEST_F(GridLayout, OfTheHierarchiesHasOneBlockOfStatusesAndARate) {
    HierarchyView view(form_, controller_, captions_, collapsed_, trap_);
    for (const int index : {1, 2}) {
        view.InitBUHierarchyGrid(index);
        const OutlineGrid& grid = form_.vsFlex[index];
        EXPECT_EQ(grid.Rows(), 2);
        EXPECT_EQ(grid.FixedRows(), 2);
        const std::string measure = index == 1 ? "WorkOrders;" : "Points;";
        EXPECT_EQ(Header(index, 0), ";;;;" + measure + measure + measure + measure + measure + measure +
                                        measure + "Productivity;");
        EXPECT_EQ(Header(index, 1),
                  std::string("BusinessUnits;TechCount;HoursRemaining;HoursCompleted;Open;Warning;"
                              "Jeopardy;Late;Completed;Canceled;NotDone;") +
                      (index == 1 ? "WOsPerHour;" : "PtsPerHour;"));
        for (const int row : {0, 1})
            EXPECT_EQ(Colours(index, row),
                      (std::vector<std::pair<Colour, int>>{{kYellow, 4}, {kCyan, 7}, {kGreen, 1}}));
        for (int column = 0; column < 12; ++column)
            EXPECT_EQ(grid.ColumnWidth(column), Pixels(column == 0 ? 150 : 63)) << column;
        EXPECT_TRUE(grid.RowBold(0));
    }
}

}  // namespace

}  // namespace dlv
