// Profiles as hosts of any kind give them: written by another version, very large, odd, or not at all. Sizes
// are such that a quadratic step would not end before the watchdog.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/ErrorOf.h"
#include "tests/unit/control/TestViewer.h"

namespace dlv {

namespace {

constexpr const char* kAnswerOfNoUse = "<WebData></WebData>";

std::string Numbered(std::size_t count, const std::function<std::string(const std::string& number)>& piece) {
    std::string text;
    for (std::size_t i = 1; i <= count; ++i) text += piece(std::to_string(i));
    return text;
}

std::string IDList(std::size_t count) {
    return "<WebData><ProfileIDs>" +
           Numbered(count, [](const std::string& n) { return "<ProfileID>p" + n + "</ProfileID>"; }) +
           "</ProfileIDs></WebData>";
}

class ProfileViewer : public test::TestViewer {
public:
    /// The control with data, and with this answer to its first request for profiles.
    void StartWith(const std::string& profiles) {
        viewer.Initialize(nullptr);
        viewer.SetSessionBUIDList(std::vector<std::string>{"A", "B"});
        viewer.ReceiveProfileResponse(IDList(1), "GetProfileList");
        viewer.ReceiveProfileResponse(profiles, "GetProfiles");
        Receive(test::GoodTables());
        host.ways.clear();
    }
    /// What the host is given to store when the user saves.
    std::string Saved() {
        host.lastParams = {};
        viewer.mnuSaveProfile_Click();
        return host.lastParams.ProfilesXML;
    }
    int Pointer() { return viewer.Controls().MousePointer(); }
};

class Profiles : public ProfileViewer, public testing::Test {};

TEST_F(Profiles, OfAnotherVersionKeepWhatIsNotOurs) {
    StartWith(R"(<WebProfiles>
  <WebTable Name="Error"><row ErrorNumber="0" ErrorDescription=""/></WebTable>
  <Shared since="2"><a>&lt;</a></Shared>
  <WebProfile Owner="me">
    <Panel Width="3"/>
    <Section Name="Columns" Fields="Id,Width" Kind="list"><row Id="1" Width="20"/><note/></Section>
    <Section Name="CollapsedNodes" Fields="Colour,ID" v="1"><one/><row ID="BUPoints" List="x"/><two/><row/>
      <row ID="JobTypes" Colour="red"/><three/><row ID="Panel"/><four/></Section>
    <Name lang="en">N</Name>
    <Section Name="DLVSelect" Fields="Sort,DisplayByWorkOrders,BUList"><row Zoom="2" DisplayByWorkOrders="false"
      BUList="B" Sort="up"><hint/></row><row BUList="A"/></Section>
    <Section Name="DLVSelect" Fields="BUList"><row BUList="second"/></Section>
    <WebTable Name="Notes"><row Text="&#10;"/></WebTable>
  </WebProfile>
  <WebProfile><Name>Other</Name><Section Name="dlvselect" Fields="BUList"/></WebProfile>
</WebProfiles>)");
    EXPECT_EQ(viewer.Controls().optDisplay.Selected(), 1);
    EXPECT_TRUE(Grid(2).Visible());
    EXPECT_FALSE(Grid(1).Visible());
    EXPECT_EQ(viewer.Controls().optBU.Selected(), 0) << "a field that is missing is not set";
    EXPECT_TRUE(viewer.Controls().lvBU.Items()[1].selected);
    Grid(1).SetCollapsed(Grid(1).FindRow("A"), true);
    const std::string saved = Saved();
    EXPECT_EQ(saved, R"(<WebProfiles>
  <Shared since="2"><a>&lt;</a></Shared>
  <WebProfile Owner="me">
    <Panel Width="3"/>
    <Section Name="Columns" Fields="Id,Width" Kind="list">
      <row Id="1" Width="20"/>
      <note/>
    </Section>
    <Section Name="CollapsedNodes" Fields="Colour,ID,List" v="1">
      <one/>
      <two/>
      <three/>
      <four/>
      <row ID="JobTypes" List=""/>
      <row ID="BUWorkOrders" List="A"/>
      <row ID="BUPoints" List=""/>
    </Section>
    <Name lang="en">N</Name>
    <Section Name="DLVSelect" Fields="Sort,DisplayByWorkOrders,BUList,SummaryOption">
      <row Zoom="2" DisplayByWorkOrders="False" BUList="B" Sort="up" SummaryOption="True">
        <hint/>
      </row>
      <row BUList="A"/>
    </Section>
    <Section Name="DLVSelect" Fields="BUList">
      <row BUList="second"/>
    </Section>
    <WebTable Name="Notes"><row Text="&#10;"/></WebTable>
  </WebProfile>
  <WebProfile>
    <Name>Other</Name>
    <Section Name="dlvselect" Fields="BUList"/>
  </WebProfile>
</WebProfiles>)");
    viewer.ReceiveProfileResponse(saved, "GetProfiles");
    EXPECT_EQ(Saved(), saved) << "and again";
}

TEST_F(Profiles, GetTheirThreeListsOfNodesWhateverStoodThere) {
    for (const std::size_t rows : {0u, 1u, 2u, 3u, 4u, 200'000u}) {
        ProfileViewer other;
        other.StartWith(R"(<WebProfile><Name>N</Name><Section Name="CollapsedNodes" Fields="ID,List">)" +
                        Numbered(rows, [](const std::string& n) { return "<row ID=\"" + n + "\"/><k/>"; }) +
                        "</Section></WebProfile>");
        const std::string saved = other.Saved();
        EXPECT_NE(saved.find(R"(<row ID="BUPoints" List=""/>)"), std::string::npos) << rows;
        const auto count = [&](std::string_view piece) {
            std::size_t found = 0;
            for (auto at = saved.find(piece); at != std::string::npos; at = saved.find(piece, at + 1))
                ++found;
            return found;
        };
        EXPECT_EQ(count("<row ID="), 3u) << rows;
        EXPECT_EQ(count("<k/>"), rows) << "what stood between them is kept";
    }
}

TEST_F(Profiles, MayBeAHundredThousandWithLongNames) {
    const std::size_t count = 100'000;
    const std::string longName(10'000, 'n');
    StartWith(
        "<WebProfiles><WebProfile><Name>p1</Name></WebProfile><WebProfile><Name>/\\:*?&lt;&gt;\"|&amp;',"
        "</Name></WebProfile>" +
        Numbered(count,
                 [](const std::string& n) {
                     return "<WebProfile><Name>p" + n +
                            "</Name><Section Name=\"S\" Fields=\"A,B\"><row A=\"1\"/></Section></WebProfile>";
                 }) +
        "<WebProfile><Name>" + longName + "</Name></WebProfile></WebProfiles>");
    EXPECT_EQ(viewer.Controls().lblCurrentProfile.Caption(), "p1");
    EXPECT_NE(Saved().find(longName), std::string::npos);
    viewer.ReceiveProfileResponse(IDList(count), "GetProfileList");
    viewer.ReceiveProfileResponse("<ProfileIDs><ProfileID>" + longName + "</ProfileID></ProfileIDs>",
                                  "AddProfiles");
    viewer.tbMain_ButtonClick("Profiles");
    const auto& menu = viewer.Controls().mnuProfile;
    ASSERT_EQ(menu.size(), count + 1);
    EXPECT_EQ(menu[0].caption, longName);
    EXPECT_TRUE(menu[1].checked);
    host.ways.clear();
    host.work = [&](ModalForm& form) {
        auto& list = static_cast<ListBox&>(*form.Find("lstProfiles"));
        EXPECT_EQ(list.Items().size(), count + 1);
        list.SetListIndex(static_cast<int>(count));
        form.Click(static_cast<Button&>(*form.Find("cmdChoose")));
    };
    viewer.mnuManage_Click();
    EXPECT_TRUE(host.lastParams.ProfileName == longName);
    viewer.ReceiveProfileResponse(Saved(), "GetProfiles");
    EXPECT_EQ(viewer.Controls().lblCurrentProfile.Caption(), "p1") << "the first of those that came";
    viewer.ReceiveProfileResponse(IDList(count), "RemoveProfiles");
    EXPECT_EQ(viewer.Inner().profiles.names.Count(), 1u);
    ExpectThatTheNextGoodMessageWorks();
}

TEST_F(Profiles, ThatTheHostNeverGivesLeaveTheControlUsable) {
    StartWith(kAnswerOfNoUse);
    EXPECT_EQ(Pointer(), kDefaultPointer);
    const std::pair<const char*, std::function<void()>> requests[] = {
        {"event 4",
         [&] {
             viewer.SetSessionBUIDList(std::vector<std::string>{"A", "B"});
         }},
        {"event 3", [&] { viewer.mnuProfile_Click(0); }},
        {"event 5", [&] { viewer.mnuSaveProfile_Click(); }}};
    viewer.tbMain_ButtonClick("Profiles");
    for (int round = 0; round < 2; ++round)
        for (const auto& [event, request] : requests) {
            host.ways.clear();
            request();
            EXPECT_EQ(Pointer(), kHourglassPointer) << event;
            ViewAll(round);
            Receive(test::GoodTables());
            EXPECT_EQ(Grid(0).Rows(), 6);
            EXPECT_EQ(std::ranges::count(host.ways, event), 1);
            EXPECT_EQ(host.Shown().size(), 1u) << event;
            EXPECT_TRUE(viewer.Controls().fraDLV.Enabled());
        }
    viewer.ReceiveProfileResponse(
        R"(<WebTable Name="Error"><row ErrorNumber="7" ErrorDescription="no"/></WebTable>)", "getProfiles");
    EXPECT_EQ(Pointer(), kDefaultPointer) << "an answer to nothing that was asked";
    EXPECT_EQ(host.ways.back(), "event 5") << "and nothing else";
    ExpectThatTheNextGoodMessageWorks();
}

TEST_F(Profiles, WithoutANameThatNobodyAskedForChangeNothing) {
    StartWith(kAnswerOfNoUse);
    viewer.ReceiveProfileResponse("<WebProfile></WebProfile>", "GetProfiles");
    viewer.ReceiveProfileResponse("<ProfileIDs><ProfileID></ProfileID></ProfileIDs>", "SaveProfileAs");
    EXPECT_EQ(viewer.Controls().lblCurrentProfile.Caption(), "Default");
    EXPECT_EQ(viewer.Inner().profiles.names.Count(), 1u);
    EXPECT_EQ(host.Shown(), std::vector<std::string>{});
}

TEST_F(Profiles, GetTheirSectionsWhenTheyAreSavedAtTheLatest) {
    viewer.Initialize(nullptr);
    viewer.SetSessionBUIDList(std::vector<std::string>{"A", "B"});
    EXPECT_EQ(Saved(), "") << "there is none";
    viewer.Controls().optBU.Select(1);
    viewer.Controls().optDisplay.Select(1);
    viewer.optDisplay_Click(1);
    viewer.Controls().lvBU.SetItems({{"_B", "South", true}});
    Receive(test::GoodTables());
    EXPECT_EQ(viewer.Controls().optBU.Selected(), 0) << "the view that a profile without settings gives";
    EXPECT_EQ(viewer.Controls().optDisplay.Selected(), 0);
    EXPECT_TRUE(Grid(1).Visible());
    EXPECT_TRUE(viewer.Controls().lvBU.Items()[0].selected);
    EXPECT_FALSE(viewer.Controls().lvBU.Items()[1].selected);
    EXPECT_FALSE(viewer.Controls().lblProfile.Visible());
    host.ways.clear();
    EXPECT_EQ(Saved(), "<WebProfiles></WebProfiles>") << "what the data were shown with is of no set";
    EXPECT_EQ(host.Shown(), (std::vector<std::string>{"event 5", "event 5"}));
    Saved();
    EXPECT_EQ(host.Shown().size(), 3u);
}

TEST_F(Profiles, ThatNoDocumentCanHoldAreReportedAndNotSent) {
    StartWith(kAnswerOfNoUse);
    EXPECT_TRUE(viewer.Controls().lblProfile.Visible());
    EXPECT_TRUE(viewer.Controls().lblCurrentProfile.Visible());
    const std::string control = "\x01";
    viewer.SetSessionBUIDList(std::vector<std::string>{"A", control});
    viewer.ReceiveProfileResponse(kAnswerOfNoUse, "GetProfiles");
    test::Tables tables = test::GoodTables();
    tables.units.push_back({control, "odd", "#"});
    tables.general.push_back({control, "1", "1", "1"});
    Receive(tables);
    std::string failed;
    host.work = [&](ModalForm& form) {
        if (auto* name = static_cast<TextBox*>(form.Find("txtName"))) {
            name->SetText(control);
            form.Click(static_cast<Button&>(*form.Find("cmdOK")));
        } else {
            failed = static_cast<Label&>(*form.Find("lblErrNum")).Caption() + " " +
                     static_cast<Label&>(*form.Find("lblErrLoc")).Caption();
        }
    };
    ViewAll();
    EXPECT_EQ(Saved(), "");
    EXPECT_EQ(failed, "1003 DLViewer.UpdateCurrentProfile");
    EXPECT_EQ(viewer.Inner().profiles.current->Section("DLVSelect")->Row(1)->Field("BUList"), "A|" + control)
        << "what was written stays";
    viewer.Controls().lvBU.ClearSelection();
    viewer.Controls().lvBU.SetSelected(0, true);
    host.ways.clear();
    viewer.mnuSaveProfileAs_Click();
    EXPECT_EQ(failed, "1003 DLViewer.SaveProfileAs");
    EXPECT_EQ(host.Shown(), (std::vector<std::string>{"frmNewProfile", "frmError"}));
    EXPECT_EQ(Pointer(), kDefaultPointer);
    EXPECT_NE(Saved().find("BUList=\"A\""), std::string::npos);
}

TEST_F(Profiles, AnsweredInsideEachEventWithoutEndDoNotUseUpTheStack) {
    for (const char* function : {"GetProfiles", "GetProfileList", "SaveProfileAs"}) {
        test::TestViewer other;
        int refused = 0;
        other.viewer.Initialize(nullptr);
        other.host.inside = [&](const std::string& way) {
            if (way == "messages" || way == "flush") return;
            const std::string answer = function == std::string("SaveProfileAs") ? IDList(1) : kAnswerOfNoUse;
            refused += test::ErrorOf([&] { other.viewer.ReceiveProfileResponse(answer, function); }) ==
                       kErrorCallOrder;
        };
        other.host.work = [](ModalForm& form) {
            if (auto* name = static_cast<TextBox*>(form.Find("txtName"))) name->SetText("p1");
            if (auto* ok = static_cast<Button*>(form.Find("cmdOK"))) form.Click(*ok);
        };
        other.viewer.SetSessionBUIDList(std::vector<std::string>{"A", "B"});
        if (function == std::string("SaveProfileAs")) other.viewer.mnuSaveProfileAs_Click();
        EXPECT_GE(refused, 1) << function;
        EXPECT_LT(other.host.Shown().size(), 200u) << function;
        EXPECT_EQ(other.viewer.Depth(), 0);
        other.host.inside = [](const std::string&) {};
        other.ExpectThatTheNextGoodMessageWorks();
    }
}

}  // namespace

}  // namespace dlv
