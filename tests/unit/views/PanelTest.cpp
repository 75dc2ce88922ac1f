// Where the panel stands for a width, how high a grid is for its rows, and which view is seen.
#include "views/Panel.h"

#include <gtest/gtest.h>

#include "views/FitGridHeight.h"

namespace dlv {

namespace {

class Panel : public testing::TestWithParam<double> {
protected:
    void SetUp() override {
        for (OutlineGrid& grid : form_.vsFlex) grid.SetColumns(&grid == &form_.vsFlex[0] ? 17 : 12);
        form_.vsFlex[0].SetColumnWidth(1, 0);
        LayoutPanel(form_, Pixels(GetParam()));
    }
    ViewerForm form_;
};

TEST_P(Panel, StandsAtFractionsOfTheWidthFrom856PixelsOn) {
    const double width = Pixels(std::max(GetParam(), 856.0));
    const std::pair<const Control*, double> lefts[] = {
        {&form_.optBU[0], .45},       {&form_.optBU[1], .45},         {&form_.lblProdPerTech, .625},
        {&form_.cmdView, .67},        {&form_.lblWOsPerHrToday, .76}, {&form_.lblToday, .8},
        {&form_.lblWOsPerHrReq, .87}, {&form_.lblReqProd, .9},        {&form_.lblWOsPerHr, .625},
        {&form_.lblPtsPerHr, .625},   {&form_.lblPtsPerHrToday, .76}, {&form_.lblPtsPerHrReq, .87}};
    for (const auto& [control, fraction] : lefts)
        EXPECT_DOUBLE_EQ(control->Left(), width * fraction) << control->Name();
    EXPECT_DOUBLE_EQ(form_.lblStatus.Left(), (width - form_.lblStatus.Width()) / 2);
    EXPECT_DOUBLE_EQ(form_.vsFlex[0].ColumnWidth(0), width / 57);
    EXPECT_EQ(form_.vsFlex[0].ColumnWidth(1), 0) << "the hidden column stays so";
    EXPECT_DOUBLE_EQ(form_.vsFlex[0].ColumnWidth(2), width / 7.71);
    for (int column = 3; column < 17; ++column)
        EXPECT_DOUBLE_EQ(form_.vsFlex[0].ColumnWidth(column), width / 16.46);
    for (const OutlineGrid* grid : {&form_.vsFlex[1], &form_.vsFlex[2]}) {
        EXPECT_DOUBLE_EQ(grid->ColumnWidth(0), width / 5.71);
        for (int column = 1; column < 12; ++column)
            EXPECT_DOUBLE_EQ(grid->ColumnWidth(column), width / 13.59);
    }
}

INSTANTIATE_TEST_SUITE_P(Widths, Panel, testing::Values(0, 855, 856, 1000, 3840));

TEST(GridHeight, FitsTheRowsButNotBeyondTheFrame) {
    const struct {
        int rows;
        double top, rowHeight, available, height;
    } cases[] = {{2, 0, 255, 100, 4.25 * 255}, {2, 500, 255, 0, 4.25 * 255},  // headers alone: as they are
                 {4, 0, 255, 10000, 1594},                                    // 6.25 * 255 = 1593.75
                 {4, 0, 250, 10000, 1562},     {6, 0, 250, 10000, 2062},  // halves go to the even neighbour
                 {4, 0, 255, 1639, 1594},      {4, 0, 255, 1638, 1593},      {4, 300, 255, 1638, 1293},
                 {12, 0, 255, 2000, 1955},     {0, 0, 100, 10000, 225}};
    for (const auto& row : cases) {
        OutlineGrid grid("grid");
        grid.SetColumns(1);
        grid.SetRows(row.rows);
        grid.SetDefaultRowHeight(row.rowHeight);
        grid.SetTop(row.top);
        FitGridHeight(grid, row.available);
        EXPECT_DOUBLE_EQ(grid.Height(), row.height) << row.rows << " rows in " << row.available;
    }
}

TEST(Tabs, ShowTheirFrameInTheirClientArea) {
    ViewerForm form;
    form.Tabs.SetPlace({Pixels(10), Pixels(200), Pixels(500), Pixels(300)});
    for (const int tab : {2, 1, 2}) {
        form.Tabs.SelectTab(tab);
        ShowSelectedTab(form);
        for (int i = 0; i < 2; ++i) EXPECT_EQ(form.fraBU[i].Visible(), i == tab - 1);
        EXPECT_EQ(form.fraBU[tab - 1].Top(), form.Tabs.ClientArea().top);
        EXPECT_EQ(form.fraBU[tab - 1].Left(), form.Tabs.ClientArea().left);
    }
}

TEST(Display, ShowsOneOfTheHierarchyGrids) {
    ViewerForm form;
    EXPECT_TRUE(form.vsFlex[1].Visible()) << "at first that of the work orders";
    EXPECT_FALSE(form.vsFlex[2].Visible());
    for (const int index : {1, 1, 7, -1}) {
        ShowDisplay(form, index);
        EXPECT_FALSE(form.vsFlex[1].Visible()) << index;
        EXPECT_TRUE(form.vsFlex[2].Visible()) << index;
    }
    ShowDisplay(form, 0);
    EXPECT_TRUE(form.vsFlex[1].Visible());
    EXPECT_TRUE(form.vsFlex[0].Visible()) << "the summary grid has no part in it";
}

}  // namespace

}  // namespace dlv
