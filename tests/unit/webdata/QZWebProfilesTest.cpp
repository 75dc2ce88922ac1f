#include "webdata/QZWebProfiles.h"

#include <gtest/gtest.h>

#include "Transcript.h"

namespace dlv::test {
namespace {

const char* const kDocument = R"(<WebProfiles>
  <WebTable Name="Error"><row ErrorNumber="7" ErrorDescription="no"/></WebTable>
  <WebProfile><Name>Default</Name>
    <Section Name="DLVSelect" Fields="BUList,SummaryOption,DisplayByWorkOrders"><row BUList="12|40|7" SummaryOption="True" DisplayByWorkOrders="True"/></Section>
    <Section Name="CollapsedNodes" Fields="ID,List"><row ID="JobTypes" List=""/><row ID="BUWorkOrders" List="#"/><row ID="BUPoints" List=""/></Section>
  </WebProfile>
  <WebProfile><Name>a &amp; <![CDATA[<b>]]></Name></WebProfile>
</WebProfiles>)";

TEST(QZWebProfiles, AreReadFromTheirDocument) {
    QZWebProfiles set;
    set.LoadText(kDocument);
    ASSERT_EQ(set.Count(), 2u);
    EXPECT_EQ(set.Item(1)->Name(), "Default");
    EXPECT_EQ(set.Item(2)->Name(), "a & <b>");
    EXPECT_TRUE(set.Exists("Default"));
    EXPECT_FALSE(set.Exists("default"));
    EXPECT_EQ(set.ErrorTable()->Field(1, "ErrorNumber"), "7");
    const auto section = set.Item(1)->Section("CollapsedNodes");
    EXPECT_EQ(section->Fields(), "ID,List");
    EXPECT_EQ(section->FieldNames(), (std::vector<std::string>{"ID", "List"}));
    EXPECT_EQ(section->RowCount(), 3u);
    EXPECT_EQ(section->Row(2)->Field("List"), "#");
    EXPECT_EQ(section->Row(3)->Field("List"), "");
    EXPECT_FALSE(set.Item(1)->HasSection("dlvselect"));
    EXPECT_EQ(ErrorOf([&] { set.Item(1)->Section("dlvselect"); }), "9 Subscript out of range");
    EXPECT_EQ(ErrorOf([&] { set.Item(3); }), "9 Subscript out of range");
    EXPECT_EQ(ErrorOf([&] { section->Row(4); }), "9 Subscript out of range");
}

TEST(QZWebProfiles, ComeBackFromTheirTextWithoutTheErrorTable) {
    QZWebProfiles set;
    set.LoadText(kDocument);
    const std::string text = set.Text();
    EXPECT_EQ(text, R"(<WebProfiles>
  <WebProfile>
    <Name>Default</Name>
    <Section Name="DLVSelect" Fields="BUList,SummaryOption,DisplayByWorkOrders">
      <row BUList="12|40|7" SummaryOption="True" DisplayByWorkOrders="True"/>
    </Section>
    <Section Name="CollapsedNodes" Fields="ID,List">
      <row ID="JobTypes" List=""/>
      <row ID="BUWorkOrders" List="#"/>
      <row ID="BUPoints" List=""/>
    </Section>
  </WebProfile>
  <WebProfile>
    <Name>a &amp; &lt;b&gt;</Name>
  </WebProfile>
</WebProfiles>)");
    QZWebProfiles again;
    again.LoadText(text);
    EXPECT_EQ(again.Text(), text);
    EXPECT_EQ(again.ErrorTable(), nullptr);
}

TEST(QZWebProfiles, AreBuiltByHand) {
    QZWebProfiles set;
    EXPECT_EQ(set.Text(), "<WebProfiles></WebProfiles>");
    const auto profile = set.Add("P");
    EXPECT_EQ(ErrorOf([&] { set.Add("P"); }),
              "457 This key is already associated with an element of this collection");
    set.Add("p");
    const auto section = profile->AddSection("S", "A,B");
    EXPECT_EQ(ErrorOf([&] { profile->AddSection("S", ""); }),
              "457 This key is already associated with an element of this collection");
    const auto first = section->AddRow();
    const auto second = section->AddRow();
    section->AddRow()->SetField("B", "3");
    first->SetField("A", "1");
    second->SetField("B", "x");
    second->SetField("B", " \n2");
    section->RemoveRow(1);
    EXPECT_EQ(second->Field("B"), " \n2");
    EXPECT_EQ(ErrorOf([&] { section->RemoveRow(3); }), "9 Subscript out of range");
    EXPECT_EQ(ErrorOf([&] { second->SetField("C", ""); }), "9 Subscript out of range");
    EXPECT_EQ(set.Text(), R"(<WebProfiles>
  <WebProfile>
    <Name>P</Name>
    <Section Name="S" Fields="A,B">
      <row B=" &#10;2"/>
      <row B="3"/>
    </Section>
  </WebProfile>
  <WebProfile>
    <Name>p</Name>
  </WebProfile>
</WebProfiles>)");
}

TEST(QZWebProfiles, AloneProfileLoadsAsASetOfOne) {
    QZWebProfiles set;
    set.LoadText(
        "<WebProfile><WebTable Name='Error'><row ErrorNumber='3'/></WebTable><Name>One</Name></WebProfile>");
    ASSERT_EQ(set.Count(), 1u);
    EXPECT_EQ(set.Item(1)->Name(), "One");
    EXPECT_EQ(set.ErrorTable()->Field(1, "ErrorNumber"), "3");
    EXPECT_EQ(set.Text(),
              "<WebProfiles>\n  <WebProfile>\n    <Name>One</Name>\n  </WebProfile>\n</WebProfiles>");
}

TEST(QZWebProfile, IsADocumentOfItsOwnWithABareRoot) {
    QZWebProfile profile;
    profile.LoadText(
        "<WebProfile Kept='in a set'><Section Name='S' Fields='A'><row "
        "A='&lt;'/></Section><Name>N</Name></WebProfile>");
    const std::string text =
        "<WebProfile>\n  <Section Name=\"S\" Fields=\"A\">\n    <row A=\"&lt;\"/>\n  </Section>\n  "
        "<Name>N</Name>\n</WebProfile>";
    EXPECT_EQ(profile.Text(), text);
    EXPECT_EQ(profile.ErrorTable(), nullptr);
    EXPECT_EQ(ErrorOf([&] { profile.LoadText("<WebProfiles></WebProfiles>"); }),
              "1003 Document error at line 1, column 1: the element WebProfile is expected");
    EXPECT_EQ(profile.Text(), text);
    profile.SetName("\xED\xB0\x80");
    EXPECT_EQ(ErrorOf([&] { profile.Text(); }),
              "1003 Document error at line 5, column 9: a character that XML does not allow");
}

TEST(QZWebProfiles, KeepWhatTheyDoNotKnowWhereItStood) {
    const std::string document = R"(<WebProfiles>
  <Before x="1&amp;">text<y/></Before>
  <WebProfile Owner="me">
    <!-- passed over -->
    <Zero/>
    <Name lang="en">N</Name>
    <One/>
    <Section Name="S" Fields="A" Version="2">
      <Two/>
      <row A="1" Extra="e">
        <Three><![CDATA[<]]></Three>
      </row>
      <Four/>
      <row A="2"/>
      <Five/>
    </Section>
    <WebTable Name="Other"><row A="1"/></WebTable>
    <Name>second</Name>
  </WebProfile>
  <After/>
</WebProfiles>)";
    QZWebProfiles set;
    set.LoadText(document);
    const auto section = set.Item(1)->Section("S");
    EXPECT_EQ(section->Row(1)->Field("Extra"), "");
    EXPECT_EQ(ErrorOf([&] { section->Row(1)->SetField("Extra", "x"); }), "9 Subscript out of range");
    std::string expected = document;
    expected.erase(expected.find("    <!--"), std::string("    <!-- passed over -->\n").size());
    EXPECT_EQ(set.Text(), expected);

    // What stood before a row or profile stays when others come and go.
    section->RemoveRow(1);
    section->AddRow();
    set.Add("Q");
    const std::string text = set.Text();
    for (const char* kept : {"<Before", "<Two/>", "<Four/>", "<Five/>", "<After/>"}) {
        EXPECT_NE(text.find(kept), std::string::npos) << kept;
    }
    EXPECT_LT(text.find("<Two/>"), text.find("<Four/>"));
    EXPECT_EQ(text.find("Extra"), std::string::npos);
}

TEST(QZWebProfiles, KnowAProfileByTheNameThatItHasNow) {
    QZWebProfiles set;
    set.LoadText("<WebProfiles>" + std::string("<WebProfile><Name>twice</Name></WebProfile>") +
                 "<WebProfile><Name>twice</Name></WebProfile></WebProfiles>");
    set.Item(1)->SetName("new");
    EXPECT_TRUE(set.Exists("new"));
    EXPECT_TRUE(set.Exists("twice")) << "one is left";
    set.Item(2)->LoadText("<WebProfile><Name>loaded</Name></WebProfile>");
    EXPECT_FALSE(set.Exists("twice"));
    EXPECT_TRUE(set.Exists("loaded"));
    EXPECT_NE(ErrorOf([&] { set.Add("loaded"); }), "");
    const auto profile = set.Add("twice");
    QZWebProfiles others;
    others.LoadText(set.Text());
    set = std::move(others);
    profile->SetName("of no set");
    EXPECT_TRUE(set.Exists("twice"));
    EXPECT_FALSE(set.Exists("of no set"));
}

TEST(QZWebSection, TakesFieldsOfWhichItLacks) {
    QZWebProfile profile("P");
    const auto section = profile.AddSection("S", "A,");
    const auto row = section->AddRow();
    for (const char* field : {"A", "B", "B", ""}) section->AddField(field);
    row->SetField("B", "2");
    EXPECT_EQ(section->Fields(), "A,,B");
    EXPECT_EQ(row->Field("B"), "2");
    profile.AddSection("none", "")->AddField("C");
    EXPECT_EQ(profile.Section("none")->Fields(), "C");
}

TEST(QZWebProfiles, FieldListsComeBackAsTheyWere) {
    for (const char* fields : {"", "A", "A,", ",", "A,,B", " A , B ", "A;B", "\n"}) {
        QZWebProfile profile("N");
        profile.AddSection("S", fields);
        QZWebProfile again;
        again.LoadText(profile.Text());
        EXPECT_EQ(again.Section("S")->Fields(), fields);
    }
}

TEST(QZWebProfiles, ABadDocumentChangesNothing) {
    QZWebProfiles set;
    set.LoadText(kDocument);
    const std::string before = set.Text();
    EXPECT_EQ(ErrorOf([&] { set.LoadText("<WebProfiles><WebProfile><Name>x</Name></WebProfile>"); }),
              "1003 Document error at line 1, column 53: the element WebProfiles is not closed");
    EXPECT_EQ(ErrorOf([&] { set.LoadText("<WebData></WebData>"); }),
              "1003 Document error at line 1, column 1: the element WebProfiles or WebProfile is expected");
    EXPECT_EQ(set.Text(), before);
    EXPECT_NE(set.ErrorTable(), nullptr);
}

}  // namespace
}  // namespace dlv::test
