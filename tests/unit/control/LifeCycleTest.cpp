// From before the start to after the stop: which calls act, and what of the form follows.
#include <gtest/gtest.h>

#include "tests/support/ErrorOf.h"
#include "tests/unit/control/TestViewer.h"

namespace dlv {

namespace {

class KeptCaptions : public CaptionSource {
public:
    std::optional<std::string> Caption(std::string_view) override { return std::nullopt; }
    std::optional<std::string> LanguageID() override { return std::nullopt; }
};

/// Which buttons of the tool bar are visible, as digits.
std::string Buttons(DLViewer& viewer) {
    std::string text;
    const auto& items = viewer.Controls().tbMain.Items();
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i].visible) text += std::to_string(i + 1);
    return text;
}

std::vector<std::pair<const char*, std::function<void()>>> CallsOf(DLViewer& viewer) {
    return {{"ReceiveMessage",
             [&] {
                 viewer.ReceiveMessage({"QZWebMessage", test::GoodTables().Message()}, 0, "");
             }},
            {"ReceiveProfileResponse", [&] { viewer.ReceiveProfileResponse("", "GetProfiles"); }},
            {"SetSessionBUIDList", [&] { viewer.SetSessionBUIDList(std::vector<std::string>{"A"}); }},
            {"Initialize", [&] { viewer.Initialize(nullptr); }},
            {"ResizeControls", [&] { viewer.ResizeControls(); }},
            {"SetRegionalFormatInfo", [&] { viewer.SetRegionalFormatInfo("PO"); }}};
}

TEST(LifeCycle, GivesTheToolBarAndViewToThoseWhoHaveData) {
    test::TestViewer test;
    EXPECT_FALSE(test.viewer.Controls().cmdView.Enabled());
    test.viewer.Initialize(nullptr);
    EXPECT_EQ(Buttons(test.viewer), "356");
    EXPECT_FALSE(test.viewer.Controls().cmdView.Enabled());
    EXPECT_EQ(test.viewer.Controls().lblStatus.Caption(), "Waiting for data ...");
    EXPECT_TRUE(test.viewer.Controls().lblStatus.Visible());
    test.viewer.SetSessionBUIDList(std::vector<std::string>{"A", "B"});
    test.Receive(test::GoodTables());
    EXPECT_EQ(Buttons(test.viewer), "123456");
    EXPECT_TRUE(test.viewer.Controls().cmdView.Enabled());
    const ListView& list = test.viewer.Controls().lvBU;
    EXPECT_EQ(list.ColumnWidth(), list.Width() - Pixels(21)) << "room for the scroll bar";
    test.viewer.StopControl();
    EXPECT_EQ(Buttons(test.viewer), "35");
    EXPECT_FALSE(test.viewer.Controls().cmdView.Enabled());
}

TEST(RefreshTimes, AreWrittenInTheFormatOfTheLanguageAndHiddenBefore) {
    test::TestViewer test;
    ViewerForm& form = test.viewer.Controls();
    const auto shown = [&] {
        std::string text;
        for (const Label* label : {&form.lblLastRefreshTime, &form.lblNextRefreshTime})
            text += label->Caption() + (label->Visible() ? " | " : " hidden | ");
        return text + (form.lblLastTime.Visible() && form.lblNextTime.Visible() ? "headings" : "");
    };
    test.Start({"A", "B"});
    EXPECT_EQ(shown(), " hidden |  hidden | ");
    test.host.now = (10 * 60 + 50) * 60;
    const struct {
        test::Rows formats;
        const char* interval;
        const char* shown;
    } rows[] = {{{{"EN", "h:nn AM/PM"}}, "1e999", "10:50 AM hidden |  hidden | "},
                {{{"EN", "h:nn AM/PM"}}, "15", "10:50 AM | 11:05 AM | headings"},
                {{{"EN", "h:nn AM/PM"}, {"PO", "hh\\hnn"}}, "75.5", "10h50 | 12h05 | headings"},
                {{{"SP", "h"}}, "-60", "10:50:00 | 09:50:00 | headings"}};
    test.viewer.SetRegionalFormatInfo("PO");
    for (const auto& row : rows) {
        test::Tables tables = test::GoodTables();
        tables.formats = row.formats;
        const auto message = tables.Message();
        message->SetProperty("tqDBRefreshInterval", row.interval);
        test.Receive(message);
        EXPECT_EQ(shown(), row.shown);
    }
}

TEST(LifeCycle, RefusesCallsOutOfTheirOrder) {
    test::TestViewer test;
    auto calls = CallsOf(test.viewer);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(test::ErrorOf(calls[i].second), kErrorCallOrder) << calls[i].first;
    EXPECT_EQ(test.host.ways, std::vector<std::string>{});
    test.viewer.StopControl();
    EXPECT_FALSE(test.viewer.Stopped()) << "a stop before the start does nothing";
    test.Start({"A"});
    EXPECT_EQ(test::ErrorOf(calls[3].second), kErrorCallOrder) << "a second start";
    test.viewer.StopControl();
    for (const auto& [name, call] : calls) EXPECT_EQ(test::ErrorOf(call), kErrorCallOrder) << name;
    EXPECT_EQ(test::ErrorOf([&] { test.viewer.StopControl(); }), 0);
    test.viewer.cmdView_Click();
    test.viewer.lblTechCount_Click();
    test.viewer.UserControl_Resize();
    EXPECT_EQ(test.host.Shown(), std::vector<std::string>{});
}

TEST(LifeCycle, LetsEverythingGoWhenTheOutermostCallEnds) {
    for (const bool inside : {false, true}) {
        test::TestViewer test;
        auto captions = std::make_shared<KeptCaptions>();
        const std::weak_ptr<CaptionSource> alive = captions;
        test.viewer.Initialize(std::move(captions));
        test.Receive(test::GoodTables());
        EXPECT_EQ(test.viewer.Inner().mDLV.BUs()->Count(), 2u);
        test.viewer.SetSessionBUIDList(std::vector<std::string>{"A"});
        test.viewer.ReceiveProfileResponse("", "GetProfiles");
        if (inside) {
            test.host.inside = [&](const std::string& way) {
                if (way != "event 4") return;
                test.viewer.StopControl();
                EXPECT_FALSE(alive.expired()) << "a call is still under way";
            };
            test.viewer.SetSessionBUIDList(std::vector<std::string>{"A"});
        } else {
            test.viewer.StopControl();
        }
        EXPECT_TRUE(alive.expired());
        EXPECT_EQ(test.viewer.Depth(), 0);
        const DLViewer::State& inner = test.viewer.Inner();
        EXPECT_EQ(inner.mDLV.BUs()->Count(), 0u);
        EXPECT_EQ(inner.sessionUnits.Count() + inner.profiles.names.Count() + inner.profiles.set.Count(), 0u);
        EXPECT_EQ(inner.profiles.current, nullptr);
    }
}

TEST(Layout, MovesFramesBeforeTheStart) {
    test::TestViewer test;
    for (const double width : {0.0, 10.0, 856.0, 3000.0}) {
        test.host.width = test.host.height = Pixels(width);
        test.viewer.ResizeControls();
        EXPECT_EQ(test.viewer.Controls().fraDLV.Width(), Pixels(width));
        test.host.width += Pixels(1);
        test.viewer.UserControl_Resize();
        EXPECT_EQ(test.viewer.Controls().fraDLV.Width(), Pixels(width + 1));
        EXPECT_EQ(test.viewer.Controls().vsFlex[0].Columns(), 0) << "the grids wait for captions";
    }
    ViewerForm& form = test.viewer.Controls();
    form.optBU.Select(1);
    form.optDisplay.Select(1);
    test.viewer.optDisplay_Click(1);
    test.viewer.Initialize(nullptr);
    EXPECT_EQ(form.vsFlex[0].Columns(), 17);
    EXPECT_EQ(form.optBU.Selected(), 0);
    EXPECT_EQ(form.optDisplay.Selected(), 0);
    EXPECT_TRUE(form.vsFlex[1].Visible());
}

TEST(Layout, IsTheFirstOneOnce) {
    test::TestViewer test;
    test.Start({"A", "B"});
    test.Receive(test::GoodTables());
    ViewerForm& form = test.viewer.Controls();
    form.optBU.Select(1);
    form.optDisplay.Select(1);
    test.viewer.optDisplay_Click(1);
    test.viewer.ReceiveMessage({"QZWebMessage", std::make_shared<QZWebMessage>("DLVServerStopped")}, 0, "");
    const std::string total = test.Row(0, 2);
    const double fitted = form.vsFlex[0].Height();
    test.host.width = Pixels(700);
    test.viewer.UserControl_Resize();
    EXPECT_EQ(form.optBU.Selected(), 1);
    EXPECT_EQ(form.optDisplay.Selected(), 1);
    EXPECT_TRUE(form.vsFlex[2].Visible());
    EXPECT_TRUE(form.lblStatus.Visible());
    EXPECT_NE(form.lblStatus.Caption(), "");
    EXPECT_EQ(test.Row(0, 2), total);
    EXPECT_EQ(form.vsFlex[0].Height(), fitted) << "as high as its rows";
    EXPECT_LT(fitted, Pixels(300));
    const Bounds inside = form.Tabs.ClientArea();
    for (const Frame& frame : form.fraBU) {
        EXPECT_EQ(frame.Top(), inside.top);
        EXPECT_EQ(frame.Left(), inside.left);
        EXPECT_EQ(frame.Width(), inside.width);
        EXPECT_EQ(frame.Height(), inside.height);
    }
    EXPECT_EQ(form.fraDLV.Width(), test.host.width);
    EXPECT_EQ(form.fraStatus.Top(), form.fraDLV.Height());
    EXPECT_EQ(form.cmdView.Left(), Pixels(856) * 0.67) << "the panel keeps its least width";
}

TEST(Fill, ShowsTheSummaryAndFitsTheGridsToTheirRows) {
    test::TestViewer test;
    test.Start({"A", "B"});
    for (const int tab : {2, 1}) {
        test.viewer.Controls().Tabs.SelectTab(tab);
        test.Grid(0).SetVisible(false);
        test.Receive(test::GoodTables());
        EXPECT_EQ(test.Grid(0).Visible(), tab == 1) << "only under its own tab";
    }
    const auto heights = [&] {
        std::vector<double> rows;
        for (int index = 0; index < 3; ++index) rows.push_back(test.Grid(index).Height());
        return rows;
    };
    EXPECT_EQ(heights(), (std::vector<double>{2104, 1849, 1849})) << "6, 5 and 5 rows and 2.25 more";
    for (int index = 0; index < 3; ++index) EXPECT_TRUE(test.Grid(index).ColumnBold(index == 0 ? 1 : 0));
    EXPECT_EQ(test.Grid(0).FirstColouredColumn(2), 0);

    test::Tables nothing = test::GoodTables();
    nothing.details.clear();
    nothing.units.pop_back();
    test.Receive(nothing);
    EXPECT_EQ(heights(), (std::vector<double>{1339, 1594, 1594}));
    test.host.height = 0;
    test.viewer.UserControl_Resize();
    EXPECT_EQ(heights(), (std::vector<double>{1339, 990, 990})) << "but not beyond the frame";
    EXPECT_EQ(test.Grid(0).RowBackColour(2), 0xE0E0E0u);
    EXPECT_EQ(test.Grid(0).FirstColouredColumn(2), 2) << "the margin of the empty total has no colour";
}

TEST(Fill, KeepsTheCellAndThePlaceInEachGrid) {
    test::TestViewer test;
    test.Start({"A", "B"});
    test.Receive(test::GoodTables());
    test.ViewAll();
    const auto rowOf = [&](int index) { return test.Grid(index).FindRow(index == 0 ? "T|C" : "B"); };
    std::vector<int> before;
    for (int index = 0; index < 3; ++index) {
        before.push_back(rowOf(index));
        test.Grid(index).SetCurrentCell(before.back(), 5);
        test.Grid(index).SetTopIndex(before.back());
        test.Grid(index).SetScrollLeft(30);
    }
    test::Tables more = test::GoodTables();
    more.units.push_back({"0", "Above", "#"});
    more.general.push_back({"0", "1", "1", "1"});
    more.details.push_back({"A", "Above", "C", "1"});
    test.Receive(more);
    for (int index = 0; index < 3; ++index) {
        const OutlineGrid& grid = test.Grid(index);
        EXPECT_GT(rowOf(index), before[static_cast<std::size_t>(index)]) << index;
        EXPECT_EQ(grid.CurrentRow(), rowOf(index)) << index;
        EXPECT_EQ(grid.CurrentColumn(), 5) << index;
        EXPECT_EQ(grid.DisplayedRows()[static_cast<std::size_t>(grid.TopIndex())], rowOf(index)) << index;
        EXPECT_EQ(grid.ScrollLeft(), 30) << index;
    }
}

TEST(Enter, DoesNothingOnACellThatARefillTookAway) {
    test::TestViewer test;
    test.Start({"A", "B"});
    test.Receive(test::GoodTables());
    test.ViewAll();
    test.Grid(1).SetCurrentCell(4, 4);
    test.Receive({.units = {{"A", "North", "#"}}, .general = {{"A", "1"}}, .details = {}});
    test.host.ways.clear();
    test.viewer.vsFlex_KeyDown(1, 13, false);
    EXPECT_EQ(test.host.Shown(), std::vector<std::string>{});
}

}  // namespace

}  // namespace dlv
