// Every visible text comes from the catalogue, under the key and in the place that the table of captions
// names.
#include "control/Captions.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "tests/support/ErrorOf.h"
#include "tests/unit/control/TestViewer.h"
#include "ui/frmGenAbout.h"

namespace dlv {

namespace {

/// Writes down which keys are asked for; answers with the key in brackets.
class Keys : public CaptionSource {
public:
    std::optional<std::string> Caption(std::string_view key) override {
        asked.emplace_back(key);
        return "[" + std::string(key) + "]";
    }
    std::optional<std::string> LanguageID() override { return std::nullopt; }
    std::vector<std::string> asked;
};

TEST(Captions, AreAskedForInOrderAndSetWhereTheyBelong) {
    const auto keys = std::make_shared<Keys>();
    CaptionCatalogue captions;
    captions.Attach(keys, "EN");
    ViewerForm form;
    ApplyCaptions(form, captions);
    const auto toolTip = [&](std::size_t item) { return form.tbMain.Items()[item].toolTip; };
    const auto tab = [&](std::size_t index) {
        return form.Tabs.Tabs()[index].caption + form.Tabs.Tabs()[index].toolTip;
    };
    const struct {
        const char* key;
        std::string text;
        const char* behind = "";
    } rows[] = {{"SaveGrid", toolTip(0)},
                {"PrintGrid", toolTip(1)},
                {"Profiles", toolTip(3)},
                {"AboutDLV", toolTip(5)},
                {"SaveCurrentProfile", form.mnuSaveProfile.caption},
                {"SaveCurrentProfileAs", form.mnuSaveProfileAs.caption},
                {"ManageProfiles", form.mnuManage.caption},
                {"UseProfile", form.mnuUse.caption},
                {"BUSummary", tab(0), "[BUSummary]"},
                {"BUHierarchy", tab(1), "[BUHierarchy]"},
                {"BusinessUnits", form.lblBUName.Caption(), " :"},
                {"LastRefreshTime", form.lblLastTime.Caption(), " :"},
                {"NextRefreshTime", form.lblNextTime.Caption(), " :"},
                {"CurrentProfile", form.lblProfile.Caption(), " : "},
                {"SelectionCriteria", form.fraSelection.Caption()},
                {"View", form.cmdView.Caption()},
                {"ShowSummary", form.optBU[0].Caption()},
                {"ShowAggregateSummary", form.optBU[1].Caption()},
                {"TechCount", form.lblTechCount.heading.Caption()},
                {"ViewTechCount", form.lblTechCount.heading.ToolTip()},
                {"HoursWorked", form.lblHrsWorked.heading.Caption()},
                {"HoursRemaining", form.lblHrsRemaining.heading.Caption()},
                {"WODone", form.lblWODone.heading.Caption()},
                {"WOOpen", form.lblWOOpen.heading.Caption()},
                {"PointsDone", form.lblPtsDone.heading.Caption()},
                {"PointsOpen", form.lblPtsOpen.heading.Caption()},
                {"ProductivityPerTech", form.lblProdPerTech.Caption()},
                {"CurrentProductivity", form.lblToday.Caption()},
                {"RequiredProductivity", form.lblReqProd.Caption()},
                {"WOsPerHour", form.lblWOsPerHr.Caption()},
                {"PtsPerHour", form.lblPtsPerHr.Caption()},
                {"DisplayBy", form.lblDisplayBy.Caption()},
                {"WorkOrders", form.optDisplay[0].Caption()},
                {"Points", form.optDisplay[1].Caption()}};
    std::vector<std::string> order;
    for (const auto& row : rows) {
        order.emplace_back(row.key);
        EXPECT_EQ(row.text, "[" + order.back() + "]" + row.behind);
    }
    EXPECT_EQ(keys->asked, order);
    EXPECT_EQ(form.lblTechCount.figure.ToolTip(), "[ViewTechCount]")
        << "a click on the figure asks for them, too";
    for (const Label* label : {&form.lblTechCount.heading, &form.lblTechCount.figure, &form.lblWODone.figure})
        EXPECT_EQ(label->Clickable(), label != &form.lblWODone.figure) << label->Name();
    EXPECT_EQ(form.lblTechCount.figure.Caption(), "") << "figures are no captions";
}

/// Knows no caption, and fails while it is `broken`; with a key, for that one alone.
class Breaking : public CaptionSource {
public:
    explicit Breaking(std::string key = {}) : key_(std::move(key)) {}
    std::optional<std::string> Caption(std::string_view key) override {
        if (broken && (key_.empty() || key_ == key)) RaiseInvalidCall();
        return std::nullopt;
    }
    std::optional<std::string> LanguageID() override { return std::nullopt; }
    bool broken = true;

private:
    const std::string key_;
};

/// What the error dialogs of a test say: numbers and places.
void Collect(test::TestViewer& test, std::vector<std::string>& reports) {
    test.host.work = [&](ModalForm& form) {
        EXPECT_EQ(form.Caption(), "An Error Has Occurred");
        reports.push_back(static_cast<Label*>(form.Find("lblErrNum"))->Caption() + ' ' +
                          static_cast<Label*>(form.Find("lblErrLoc"))->Caption());
    };
}

TEST(Captions, ThatFailAreReportedByWhoAskedForThem) {
    test::TestViewer test;
    const auto source = std::make_shared<Breaking>();
    std::vector<std::string> reports;
    Collect(test, reports);
    EXPECT_EQ(test::ErrorOf([&] { test.viewer.Initialize(source); }), 0);
    test.Receive(std::make_shared<QZWebMessage>("DLVServerStopped"));
    EXPECT_EQ(reports,
              (std::vector<std::string>{"5 DLViewer.InitSingleBUGrid", "5 DLViewer.InitBUHierarchyGrid",
                                        "5 DLViewer.InitBUHierarchyGrid", "5 DLViewer.ApplyCaptions",
                                        "5 DLViewer.Initialize", "0 cDLVController.ReceiveMessage"}));
    source->broken = false;
    test.ExpectThatTheNextGoodMessageWorks();
}

TEST(Captions, ThatFailInAFillOrABoxAreReportedFromThere) {
    const struct {
        const char* key;
        std::vector<std::string> reports;
        int rows[2];  // what of summary and hierarchy was written by then
        const char* total;
        std::function<void(DLViewer&)> open = [](DLViewer&) {};
    } rows[] = {{"Total", {"5 DLViewer.ShowBUs"}, {6, 5}, ""},
                {"BusinessUnits", {"5 DLViewer.mDLV_FillBUHierarchyGrid"}, {12, 2}, ""},
                {"AboutDLV",
                 {"5 DLViewer.tbMain_ButtonClick"},
                 {6, 5},
                 "Total",
                 [](DLViewer& viewer) { viewer.tbMain_ButtonClick("Help"); }},
                {"Close",
                 {"5 DLViewer.ChooseNewProfile"},
                 {6, 5},
                 "Total",
                 [](DLViewer& viewer) { viewer.mnuManage_Click(); }},
                {"EnterProfileNameSaveAs",
                 {"5 DLViewer.mnuSaveProfileAs_Click"},
                 {6, 5},
                 "Total",
                 [](DLViewer& viewer) { viewer.mnuSaveProfileAs_Click(); }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key);
        test::TestViewer test;
        const auto source = std::make_shared<Breaking>(row.key);
        source->broken = false;
        test.viewer.Initialize(source);
        test.viewer.SetSessionBUIDList(std::vector<std::string>{"A", "B"});
        test.viewer.ReceiveProfileResponse("", "GetProfiles");
        std::vector<std::string> reports;
        Collect(test, reports);
        source->broken = true;
        test.Receive(test::GoodTables());
        row.open(test.viewer);
        EXPECT_EQ(reports, row.reports);
        EXPECT_EQ(test.Grid(0).Rows(), row.rows[0]);
        EXPECT_EQ(test.Grid(1).Rows(), row.rows[1]);
        EXPECT_EQ(test.Grid(0).CellText(2, 1), row.total);
        for (int grid = 0; grid < 3; ++grid) EXPECT_TRUE(test.Grid(grid).Redraw()) << grid;
        EXPECT_TRUE(test.viewer.Controls().cmdView.Enabled());
        source->broken = false;
        test.viewer.Controls().optDisplay.Select(1);
        test.ExpectThatTheNextGoodMessageWorks();
        EXPECT_EQ(test.viewer.Controls().optDisplay.Selected(), row.rows[1] == 2 ? 0 : 1)
            << "a profile is applied once, however that fill ended";
    }
}

TEST(Drilling, ReportsWhatFailsInside) {
    test::TestViewer test;
    test.Start({"A", "B"});
    test.Receive(test::GoodTables());
    test.host.inside = [](const std::string& way) {
        if (way == "event 2") RaiseInvalidCall();
    };
    std::vector<std::string> reports;
    Collect(test, reports);
    test.viewer.lblTechCount_Click();
    test.Grid(0).SetCurrentCell(2, 3);
    test.viewer.vsFlex_KeyDown(0, 13, false);
    EXPECT_EQ(reports,
              (std::vector<std::string>{"5 DLViewer.lblTechCount_Click", "5 DLViewer.vsFlex_DblClick"}));
}

TEST(Requests, ThatFailAreReportedByWhoMadeThem) {
    test::TestViewer test;
    test.Start({"A", "B"});
    std::vector<std::string> reports;
    Collect(test, reports);
    const auto report = test.host.work;
    test.host.work = [&](ModalForm& form) {
        if (auto* name = dynamic_cast<TextBox*>(form.Find("txtName"))) {
            name->SetText("Night");
            form.Click(static_cast<Button&>(*form.Find("cmdOK")));
        } else if (auto* add = dynamic_cast<Button*>(form.Find("cmdNew"))) {
            form.Click(*add);
        } else {
            report(form);
        }
    };
    test.viewer.tbMain_ButtonClick("Profiles");
    test.host.inside = [](const std::string& way) {
        if (way.starts_with("event")) RaiseInvalidCall();
    };
    test.viewer.mnuProfile_Click(0);
    test.viewer.mnuSaveProfile_Click();
    test.viewer.mnuSaveProfileAs_Click();
    test.viewer.mnuManage_Click();
    test.viewer.SetSessionBUIDList(std::vector<std::string>{"A", "B"});
    test.viewer.ReceiveProfileResponse("", "GetProfileList");
    EXPECT_EQ(reports,
              (std::vector<std::string>{"5 DLViewer.ChooseNewProfile", "5 DLViewer.UpdateCurrentProfile",
                                        "5 DLViewer.SaveProfileAs", "5 DLViewer.ChooseNewProfile",
                                        "5 DLViewer.GetProfileList", "5 DLViewer.GetProfile"}));
    test.host.inside = [](const std::string&) {};
    test.host.work = [](ModalForm&) {};
    test.ExpectThatTheNextGoodMessageWorks();
}

/// A machine of that language. Notes captions that have no room where they stand, in a font whose characters
/// are six pixels wide; labels and headings may be drawn smaller.
class NarrowHost : public test::TestHost {
public:
    explicit NarrowHost(std::string language) : language_(std::move(language)) {}
    std::string InterfaceLanguage() override { return language_; }
    double TextWidth(std::string_view text, bool) override {
        return Pixels(6) * static_cast<double>(ToUtf16(text).size());
    }

    void Look(const Form& form) {
        for (const Control* control : form.Controls()) {
            const double lines = std::max(1.0, control->Height() / Pixels(15));
            if (const auto* label = dynamic_cast<const Label*>(control))
                Expect(*control, label->Caption(), control->Width() / kSmallest, lines);
            else if (const auto* button = dynamic_cast<const Button*>(control))
                Expect(*control, button->Caption(), control->Width() - Pixels(12), 1);
            else if (const auto* other = dynamic_cast<const CaptionControl*>(control))
                Expect(*control, other->Caption(), control->Width() - Pixels(18), 1);
        }
    }
    void Look(const OutlineGrid& grid) {
        for (int column = 0; column < grid.Columns(); ++column)
            if (const double wide = grid.ColumnWidth(column); wide > 0)
                Expect(grid, grid.CellText(1, column), (wide - Pixels(3)) / kSmallest, 2);
    }

private:
    static constexpr double kSmallest = 0.775;

    void Expect(const Control& control, const std::string& caption, double room, double lines) {
        EXPECT_LE(Lines(caption, room), lines) << language_ << ' ' << control.Name() << ": " << caption;
    }
    /// How many lines a text takes that breaks between words; very many where a word is too long.
    int Lines(const std::string& text, double room) {
        int lines = 1;
        std::string line;
        for (const std::string& word : Split(text, ' ')) {
            if (TextWidth(word, false) > room) return 99;
            std::string longer = line.empty() ? word : line + ' ' + word;
            const bool breaks = TextWidth(longer, false) > room;
            lines += breaks;
            line = breaks ? word : std::move(longer);
        }
        return lines;
    }

    std::string language_;
};

TEST(Captions, NameVersionAndButtonOfTheAboutBox) {
    for (const auto& [language, words] :
         {std::pair{"EN", "Version OK"}, {"PO", "Versão OK"}, {"SP", "Versión Aceptar"}}) {
        NarrowHost host(language);
        std::string shown;
        host.work = [&](ModalForm& form) {
            auto& box = dynamic_cast<frmGenAbout&>(form);
            shown = box.lblVerText.Caption() + ' ' + box.cmdOK.Caption();
        };
        DLViewer viewer(host, host);
        viewer.Initialize(nullptr);
        viewer.tbMain_ButtonClick("Help");
        EXPECT_EQ(shown, words);
    }
}

TEST(Captions, HaveRoomInEveryLanguageWhereTheyStand) {
    for (const char* language : {"EN", "PO", "SP"})
        for (const double width : {860.0, 1000.0}) {
            NarrowHost host(language);
            host.width = Pixels(width);
            std::string errorTitle;
            host.work = [&](ModalForm& form) {
                host.Look(form);
                if (form.Name() == "frmError") errorTitle = form.Caption();
                if (auto* more = dynamic_cast<Button*>(form.Find("cmdNew")); more && !form.Closed())
                    form.Click(*more);
            };
            DLViewer viewer(host, host);
            viewer.Initialize(nullptr);
            viewer.SetSessionBUIDList(std::vector<std::string>{"A"});
            viewer.ReceiveProfileResponse("", "GetProfiles");
            viewer.ReceiveMessage({"QZWebMessage", test::GoodTables().Message()}, 0, "");
            viewer.mnuSaveProfileAs_Click();
            viewer.mnuManage_Click();
            viewer.ReceiveMessage({"QZWebMessage", std::make_shared<QZWebMessage>("DLVData")}, 0, "");
            EXPECT_EQ(std::ranges::count(host.ways, "frmNewProfile"), 2);
            EXPECT_EQ(std::ranges::count(host.ways, "frmError"), 1);
            EXPECT_EQ(errorTitle, viewer.Caption("frmError-Caption")) << language;
            viewer.ReceiveMessage({"QZWebMessage", std::make_shared<QZWebMessage>("DLVServerStopped")}, 0,
                                  "");
            host.Look(viewer.Controls());
            for (const OutlineGrid& grid : viewer.Controls().vsFlex) host.Look(grid);
            const auto& tabs = viewer.Controls().Tabs.Tabs();
            EXPECT_LE(host.TextWidth(tabs[0].caption + tabs[1].caption, false), Pixels(600)) << language;
        }
}

}  // namespace

}  // namespace dlv
