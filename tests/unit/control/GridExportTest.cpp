// Saving and printing the grid in view, from the toolbar's buttons on.
#include <gtest/gtest.h>

#include "tests/unit/control/TestViewer.h"

namespace dlv::test {
namespace {

struct Filled : TestViewer {
    Filled() {
        Start({"A", "B", "C"});
        Tables tables = GoodTables();
        tables.units.push_back({"C", "a \"b\",\r\nc\xED\xA0\x80", "#"});
        tables.general.push_back({"C", "1", "0", "0"});
        Receive(tables);
        ViewAll();
        host.ways.clear();
    }
    void Press(const std::string& key) { viewer.tbMain_ButtonClick(key); }
    std::vector<std::string> Lines(const std::string& file) {
        const std::string text = host.files.at(file);
        EXPECT_EQ(text.substr(0, 3), "\xEF\xBB\xBF");
        std::vector<std::string> lines;
        for (std::size_t at = 3; at < text.size();) {
            const std::size_t end = text.find("\r\n", at);
            lines.push_back(text.substr(at, end - at));
            at = end + 2;
        }
        return lines;
    }
};

TEST(SavedGrid, HoldsEveryColumnAndRowOfTheGridInView) {
    Filled viewer;
    ViewerForm& form = viewer.viewer.Controls();
    viewer.host.file = "C:\\Data\\summary.csv";
    form.vsFlex[0].SetCollapsed(2, true);
    viewer.Press("SaveGrid");
    const std::vector<std::string> lines = viewer.Lines("C:\\Data\\summary.csv");
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(form.vsFlex[0].Rows()));
    EXPECT_EQ(lines[0],
              ",,,Work Orders,Work Orders,Work Orders,Work Orders,Work Orders,Work Orders,Work Orders,Points,"
              "Points,Points,Points,Points,Points,Points");
    EXPECT_EQ(lines[2], ",Total,,4,0,0,0,6,0,0,0,0,0,0,0,0,0");
    EXPECT_EQ(lines[3], ",Total,C,4,0,0,0,6,0,0,0,0,0,0,0,0,0");

    viewer.host.file = "hierarchy.csv";
    form.Tabs.SelectTab(2);
    viewer.viewer.Tabs_Click();
    form.optDisplay.Select(1);
    viewer.viewer.optDisplay_Click(1);
    viewer.Press("SaveGrid");
    const std::string& hierarchy = viewer.host.files.at("hierarchy.csv");
    EXPECT_NE(hierarchy.find("Points per Hour\r\n"), std::string::npos);
    EXPECT_NE(hierarchy.find("\"a \"\"b\"\",\r\nc\xEF\xBF\xBD\",1,0,0,"), std::string::npos) << hierarchy;
    const std::vector<std::string> dialogs = {"save in \"\"", "save in \"C:\\Data\""};
    EXPECT_EQ(viewer.host.Shown(), dialogs);
    EXPECT_EQ(viewer.host.lastDialog.filter, "Comma-separated Files (*.csv)|*.csv");
}

TEST(SavedGrid, RemembersTheFolderOfTheLastFile) {
    const struct {
        const char* file;
        const char* folder;
    } rows[] = {{"C:\\a\\b.csv", "C:\\a"},
                {"C:\\b.csv", "C:\\"},
                {"/b.csv", "/"},
                {"\\\\server\\share\\b.csv", "\\\\server\\share"},
                {"b.csv", ""}};
    for (const auto& row : rows) EXPECT_EQ(FolderOf(row.file), row.folder) << row.file;

    Filled viewer;
    for (const char* file : {"C:\\a\\b.csv", "", "   ", "plain.csv"}) {
        viewer.host.file = file;
        viewer.Press("SaveGrid");
        EXPECT_EQ(viewer.viewer.Inner().gridExport.LastFolder(), "C:\\a") << file;
    }
    EXPECT_EQ(viewer.host.files.size(), 2u);
    viewer.host.diskRoom = 0;
    viewer.host.file = "D:\\full\\b.csv";
    viewer.Press("SaveGrid");
    EXPECT_EQ(viewer.viewer.Inner().gridExport.LastFolder(), "D:\\full") << "chosen, though nothing is there";
}

TEST(ExportedGrid, IsNothingWhenTheGridIsHidden) {
    Filled viewer;
    viewer.viewer.Controls().vsFlex[0].SetVisible(false);
    viewer.host.file = "a.csv";
    viewer.Press("SaveGrid");
    viewer.Press("PrintGrid");
    viewer.Press("Unknown");
    EXPECT_TRUE(viewer.host.ways.empty());
}

// Whatever fails or is cancelled: no message, no half of a file, and the frame answers again.
TEST(ExportedGrid, FailsWithoutAWord) {
    const struct {
        const char* name;
        const char* key;
        std::function<void(Filled&)> prepare;
    } rows[] = {
        {"the dialog fails", "SaveGrid",
         [](Filled& v) { v.host.inside = [](const std::string&) { RaiseInvalidCall(); }; }},
        {"the disk is full", "SaveGrid", [](Filled& v) { v.host.diskRoom = 100; }},
        {"no printer was chosen", "PrintGrid", [](Filled& v) { v.host.printerChosen = false; }},
        {"there is no printer", "PrintGrid",
         [](Filled& v) { v.host.inside = [](const std::string&) { RaisePrinter(); }; }},
        {"the printer fails", "PrintGrid", [](Filled& v) { v.host.printerPages = 0; }},
        {"the paper has no room", "PrintGrid",
         [](Filled& v) { v.host.paper = {.width = 2400, .height = 9000}; }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Filled viewer;
        viewer.host.file = "a.csv";
        row.prepare(viewer);
        viewer.Press(row.key);
        EXPECT_TRUE(viewer.host.files.empty());
        EXPECT_EQ(std::ranges::count(viewer.host.ways, "printed"), 0);
        EXPECT_EQ(std::ranges::count(viewer.host.ways, "frmError"), 0);
        EXPECT_TRUE(viewer.viewer.Controls().fraDLV.Enabled());
    }
}

TEST(ExportedGrid, DisablesTheFrameWhileItsDialogIsOpen) {
    for (const char* key : {"SaveGrid", "PrintGrid"}) {
        Filled viewer;
        bool enabled = true;
        viewer.host.inside = [&](const std::string& way) {
            if (!way.starts_with("document")) enabled = viewer.viewer.Controls().fraDLV.Enabled();
        };
        viewer.Press(key);
        EXPECT_FALSE(enabled) << key;
        EXPECT_TRUE(viewer.viewer.Controls().fraDLV.Enabled()) << key;
    }
}

TEST(ExportedGrid, EndsWithTheControl) {
    for (const char* key : {"SaveGrid", "PrintGrid"}) {
        Filled viewer;
        viewer.host.file = "a.csv";
        viewer.host.inside = [&](const std::string&) { viewer.viewer.StopControl(); };
        viewer.Press(key);
        EXPECT_TRUE(viewer.host.files.empty() && viewer.host.pages.empty()) << key;
    }
}

TEST(PrintedGrid, HasATitleAndAFootForEachTab) {
    Filled viewer;
    ViewerForm& form = viewer.viewer.Controls();
    viewer.Press("PrintGrid");
    form.Tabs.SelectTab(2);
    viewer.viewer.Tabs_Click();
    viewer.Press("PrintGrid");
    viewer.viewer.optDisplay_Click(1);
    form.optDisplay.Select(1);
    viewer.Press("PrintGrid");
    std::vector<std::string> ways;
    for (const char* tab : {"Summary", "Hierarchy", "Hierarchy"})
        ways.insert(ways.end(), {"print landscape", std::string("document Business Unit ") + tab, "printed"});
    EXPECT_EQ(viewer.host.Shown(), ways);
    ASSERT_EQ(viewer.host.pages.size(), 3u);
    const std::string text = PageText(viewer.host.pages[1]);
    EXPECT_TRUE(text.starts_with("Business Unit Hierarchy\n")) << text;
    EXPECT_TRUE(text.ends_with("\n21/11/2026 09:00\tCurrent profile : Default\tPage 1 of 1\n")) << text;
}

}  // namespace
}  // namespace dlv::test
