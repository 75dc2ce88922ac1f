// Every visible text comes from the catalogue, under the key and in the place that the table of captions
// names.
#include "control/Captions.h"

#include <gtest/gtest.h>

#include "tests/unit/control/TestViewer.h"
#include "ui/BuiltInCaptions.h"

namespace dlv {

namespace {

/// Writes down which keys are asked for; answers with the key in brackets, or leaves the answer to the
/// control.
class Keys : public CaptionSource {
public:
    enum class Answers { Own, None };
    explicit Keys(Answers answers) : answers_(answers) {}
    std::optional<std::string> Caption(std::string_view key) override {
        asked.emplace_back(key);
        std::string text = "[" + std::string(key) + "]";
        if (answers_ == Answers::None) return std::nullopt;
        return text;
    }
    std::optional<std::string> LanguageID() override { return std::nullopt; }
    std::vector<std::string> asked;

private:
    Answers answers_;
};

TEST(Captions, AreAskedForInOrderAndSetWhereTheyBelong) {
    const auto keys = std::make_shared<Keys>(Keys::Answers::Own);
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
    EXPECT_EQ(form.lblTechCount.figure.Caption(), "") << "figures are no captions";
}

TEST(Captions, HaveATextOfTheControlsOwn) {
    const auto keys = std::make_shared<Keys>(Keys::Answers::None);
    test::TestViewer test;
    test.viewer.Initialize(keys);
    test.viewer.SetSessionBUIDList(std::vector<std::string>{"A"});
    test.viewer.ReceiveProfileResponse("", "GetProfiles");
    test.Receive(test::GoodTables());
    test.viewer.ReceiveMessage({"QZWebMessage", std::make_shared<QZWebMessage>("DLVServerStopped")}, 0, "");
    test.Receive(std::make_shared<QZWebMessage>("DLVData"));
    ASSERT_GT(keys->asked.size(), 60u);
    for (const std::string& key : keys->asked)
        for (const char* language : {"EN", "PO", "SP"})
            EXPECT_TRUE(BuiltInCaption(language, key).has_value()) << key << " in " << language;
}

}  // namespace

}  // namespace dlv
