// What a grid says of its figures.
#include <gtest/gtest.h>

#include "tests/unit/control/TestViewer.h"

namespace dlv::test {
namespace {

/// A: all figures; B below it: no hours worked; C: no data; D: not chosen.
Tables Company() {
    Tables tables = GoodTables();
    tables.units = {
        {"A", "North", "#"}, {"B", "South", "A"}, {"C", "West", "#"}, {"D", "East", "#"}, {"E", "", "C"}};
    tables.general.push_back({"D", "9", "9", "9"});
    tables.general.push_back({"E", "1", "0", "0"});
    tables.general[1][2] = "0";
    tables.types = {{"T", "Install"}};
    return tables;
}

constexpr const char* kBoth = "Sum over 2 units: North, South.";

TEST(FigureReasons, NameUnitsRuleAndWhyNothingIsThere) {
    TestViewer control;
    control.Start({"A", "B", "C", "D"});
    control.Receive(Company());
    ViewerForm& form = control.viewer.Controls();
    for (std::size_t i = 0; i < form.lvBU.Items().size(); ++i)
        form.lvBU.SetSelected(i, form.lvBU.Items()[i].text != "East");
    control.viewer.cmdView_Click();
    const auto rowOf = [&](int grid, const char* data) { return control.Grid(grid).FindRow(data); };
    const struct {
        int grid;
        int row;
        int column;
        std::string reason;
    } cells[] = {
        {0, 2, 3, kBoth},
        {0, rowOf(0, "T|C"), 7, kBoth},
        {0, rowOf(0, "T"), 4, std::string("None were reported. ") + kBoth},
        {0, rowOf(0, "T|C"), 4, std::string("None were reported. ") + kBoth},
        {0, 2, 2, ""},
        {0, 1, 3, ""},
        {1, rowOf(1, "A"), 1, kBoth},
        {1, rowOf(1, "A"), 5, std::string("None were reported. ") + kBoth},
        {1, rowOf(1, "A"), 11,
         std::string("Completed (6) divided by Hours Completed (4), rounded to 2 decimals. ") + kBoth},
        {2, rowOf(2, "A"), 11,
         std::string("Completed (0) divided by Hours Completed (4), rounded to 2 decimals. ") + kBoth},
        {1, rowOf(1, "B"), 11, "No hours, so the rate is 0. One unit: South."},
        {1, rowOf(1, "C"), 1, "One unit: E."},
        {1, rowOf(1, "D"), 1, "Not among the chosen units."},
        {1, 2, 4, "Not among the chosen units."},
        {1, rowOf(1, "A"), 0, ""},
        {1, 900, 1, ""},
    };
    for (const auto& cell : cells)
        EXPECT_EQ(control.viewer.WhyThisFigure(cell.grid, cell.row, cell.column), cell.reason)
            << cell.grid << " " << cell.row << " " << cell.column;
}

TEST(FigureReasons, NameTheFirstUnitsOfMany) {
    Tables tables;
    std::vector<std::string> ids{"0"};
    tables.units = {{"0", "All of it", "#"}};
    for (int i = 1; i <= 5000; ++i) {
        ids.push_back(std::to_string(i));
        tables.units.push_back({ids.back(), "Unit %1", "0"});
        tables.general.push_back({ids.back(), "1", "1", "1"});
    }
    TestViewer control;
    control.Start(ids);
    control.Receive(tables);
    control.ViewAll();
    const std::string names = "Unit %1, Unit %1, Unit %1, Unit %1, Unit %1 and 4995 more.";
    EXPECT_EQ(control.viewer.WhyThisFigure(1, control.Grid(1).FindRow("0"), 1),
              "Sum over 5000 units: " + names);
    EXPECT_EQ(control.viewer.WhyThisFigure(0, 2, 3), "None were reported. Sum over 5000 units: " + names);
}

TEST(FigureReasons, AreEmptyBeforeDataAndSayThatNothingIsChosen) {
    TestViewer control;
    EXPECT_EQ(control.viewer.WhyThisFigure(0, 2, 3), "");
    control.Start({"A", "B"});
    EXPECT_EQ(control.viewer.WhyThisFigure(0, 2, 3), "");
    EXPECT_EQ(control.viewer.WhyThisFigure(1, 2, 3), "");
    Tables tables = GoodTables();
    tables.general.clear();
    tables.details.clear();
    control.Receive(tables);
    control.ViewAll();
    EXPECT_EQ(control.viewer.WhyThisFigure(0, 2, 3), "No unit with data is chosen.");
    control.viewer.StopControl();
    EXPECT_EQ(control.viewer.WhyThisFigure(0, 2, 3), "");
}

}  // namespace
}  // namespace dlv::test
