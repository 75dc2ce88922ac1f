#include "tests/unit/control/TestViewer.h"

#include <gtest/gtest.h>

namespace dlv::test {

namespace {

void AddTable(QZWebMessage& message, const char* name, const std::vector<std::string>& columns,
              const Rows& rows) {
    std::vector<std::string> values;
    for (std::vector<std::string> row : rows) {
        row.resize(columns.size());
        values.insert(values.end(), row.begin(), row.end());
    }
    message.Data(1)->AddTable(name)->Fill(columns, values);
}

}  // namespace

std::shared_ptr<QZWebMessage> Tables::Message() const {
    auto message = std::make_shared<QZWebMessage>("DLVData");
    message->SetProperty("tqDBRefreshInterval", "15");
    AddTable(*message, "BusinessUnits", {"BUID", "BUDesc", "ParentBUID"}, units);
    AddTable(*message, "JobTypes", {"JobType", "JobTypeDesc"}, types);
    AddTable(*message, "JobClasses", {"JobClass", "JobClassDesc"}, classes);
    AddTable(*message, "RegionalFormats", {"languageCode", "timeformat"}, formats);
    AddTable(*message, "BUGeneralInfo", {"BUID", "TechCount", "HoursWorked", "HoursRemaining", "BUDesc"},
             general);
    AddTable(*message, "BUDetailsInfo",
             {"BUID", "JobType", "JobClass", "WOOpen", "WOWarning", "WOJeopardy", "WOLate", "WOCompleted",
              "WOCanceled", "WONotDone", "PtsOpen", "PtsWarning", "PtsJeopardy", "PtsLate", "PtsCompleted",
              "PtsCanceled", "PtsNotDone"},
             details);
    return message;
}

Tables GoodTables() {
    return {.units = {{"A", "North", "#"}, {"B", "South", "A"}},
            .general = {{"A", "2", "4", "8"}, {"B", "1", "1", "1"}},
            .details = {{"A", "T", "C", "3", "0", "0", "0", "6"}, {"B", "T", "C", "1"}}};
}

void TestViewer::Start(const std::vector<std::string>& sessionUnits) {
    viewer.Initialize(nullptr);
    viewer.SetRegionalFormatInfo("EN");
    viewer.SetSessionBUIDList(sessionUnits);
    viewer.ReceiveProfileResponse("", "GetProfileList");
    viewer.ReceiveProfileResponse("", "GetProfiles");
    host.ways.clear();
}

void TestViewer::Receive(std::shared_ptr<const MessageSource> message) {
    viewer.ReceiveMessage({"QZWebMessage", std::move(message)}, 0, "");
}

void TestViewer::ViewAll(int unitOption) {
    ViewerForm& form = viewer.Controls();
    for (std::size_t i = 0; i < form.lvBU.Items().size(); ++i) form.lvBU.SetSelected(i, true);
    form.optBU.Select(unitOption);
    viewer.cmdView_Click();
}

std::string TestViewer::Row(int grid, int row) {
    std::string text;
    for (int column = 0; column < Grid(grid).Columns(); ++column)
        text += (column ? " " : "") + Grid(grid).CellText(row, column);
    return text;
}

void TestViewer::ExpectThatTheNextGoodMessageWorks() {
    host.ways.clear();
    viewer.SetSessionBUIDList(std::vector<std::string>{"A", "B"});
    host.ways.clear();
    Receive(GoodTables());
    EXPECT_EQ(host.Shown(), std::vector<std::string>{}) << "nothing is reported";
    ViewAll();
    EXPECT_FALSE(viewer.Controls().lblStatus.Visible());
    EXPECT_TRUE(viewer.Controls().cmdView.Enabled());
    EXPECT_TRUE(viewer.Controls().fraDLV.Enabled());
    for (int grid = 0; grid < 3; ++grid) EXPECT_TRUE(Grid(grid).Redraw()) << grid;
    EXPECT_EQ(Grid(0).Rows(), 6);
    EXPECT_EQ(Row(0, 2), " Total  4 0 0 0 6 0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(Row(0, 5), " T C 4 0 0 0 6 0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(Grid(1).Rows(), 5);
    EXPECT_EQ(Row(1, 3), "North 3 9 5 4 0 0 0 6 0 0 1.2");
    EXPECT_EQ(Row(2, 4), "South 1 1 1 0 0 0 0 0 0 0 0");
    EXPECT_EQ(viewer.Controls().lblTechCount.figure.Caption(), "3");
    EXPECT_EQ(viewer.Depth(), 0);
}

}  // namespace dlv::test
