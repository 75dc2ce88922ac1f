#include "webdata/QZWebMessage.h"

#include <gtest/gtest.h>

#include "Transcript.h"

namespace dlv::test {
namespace {

const char* const kDocument = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- a refresh -->
<WebMessage Name="DLVData" Version="2">
  <Property Name="tqDBRefreshInterval" Value="15"/> <Property Value="30" Name="tqJeopardyThreshold"/>
  <Unknown><WebData><WebTable Name="Lost"/></WebData></Unknown>
  <WebData>
    <WebTable Name="BusinessUnits"> <row BUID="12" BUDesc="North &amp; South" ParentBUID="#"/> </WebTable>
    <Other/>
    <WebTable Name="Empty"></WebTable>
    <WebTable Name="BusinessUnits"><row BUID="second"/></WebTable>
  </WebData>
  <WebData><WebTable Name="Second"/></WebData>
</WebMessage>)";

TEST(QZWebMessage, IsReadFromItsDocument) {
    QZWebMessage message;
    message.LoadText(kDocument);
    EXPECT_EQ(message.Name(), "DLVData");
    EXPECT_EQ(message.Property("tqDBRefreshInterval"), "15");
    EXPECT_EQ(message.Property("tqJeopardyThreshold"), "30");
    EXPECT_EQ(message.Property("TQDBRefreshInterval"), "");
    EXPECT_EQ(message.DataCount(), 2u);
    EXPECT_EQ(message.Data(1)->TableCount(), 3u);
    EXPECT_EQ(message.Data(2)->Table("Second")->RowCount(), 0u);
    EXPECT_EQ(message.Table("BusinessUnits")->Field(1, "BUDesc"), "North & South");
    EXPECT_EQ(ErrorOf([&] { message.Table("Second"); }), "1001 Table Second is missing");
    EXPECT_EQ(ErrorOf([&] { message.Data(3); }), "9 Subscript out of range");
    EXPECT_EQ(ErrorOf([&] { message.Data(0); }), "9 Subscript out of range");
}

TEST(QZWebMessage, ComesBackFromItsText) {
    QZWebMessage message;
    message.LoadText(kDocument);
    const std::string text = message.Text();
    EXPECT_EQ(text, R"(<WebMessage Name="DLVData">
  <Property Name="tqDBRefreshInterval" Value="15"/>
  <Property Name="tqJeopardyThreshold" Value="30"/>
  <WebData>
    <WebTable Name="BusinessUnits">
      <row BUID="12" BUDesc="North &amp; South" ParentBUID="#"/>
    </WebTable>
    <WebTable Name="Empty"/>
    <WebTable Name="BusinessUnits">
      <row BUID="second"/>
    </WebTable>
  </WebData>
  <WebData>
    <WebTable Name="Second"/>
  </WebData>
</WebMessage>)");
    QZWebMessage again;
    again.LoadText(text);
    EXPECT_EQ(again.Text(), text);
}

TEST(QZWebMessage, IsBuiltByHand) {
    QZWebMessage message("M");
    EXPECT_EQ(ErrorOf([&] { message.Table("T"); }), "1001 Table T is missing");
    message.SetProperty("a", "1");
    message.SetProperty("b", "\t\n");
    message.SetProperty("a", "2");
    EXPECT_EQ(message.DataCount(), 0u);
    message.Data(1)->AddTable("T")->AddRow();
    EXPECT_EQ(message.DataCount(), 1u);
    EXPECT_EQ(ErrorOf([&] { message.Data(1)->AddTable("T"); }),
              "457 This key is already associated with an element of this collection");
    EXPECT_EQ(message.Table("T")->RowCount(), 1u);
    EXPECT_EQ(message.Text(), R"(<WebMessage Name="M">
  <Property Name="a" Value="2"/>
  <Property Name="b" Value="&#9;&#10;"/>
  <WebData>
    <WebTable Name="T">
      <row/>
    </WebTable>
  </WebData>
</WebMessage>)");
}

TEST(QZWebMessage, ATableOutlivesItsMessage) {
    std::shared_ptr<const RowTable> table;
    {
        QZWebMessage message;
        message.LoadText(kDocument);
        table = message.Table("BusinessUnits");
        message.LoadText("<WebMessage Name='next'></WebMessage>");
        EXPECT_EQ(message.DataCount(), 0u);
    }
    EXPECT_EQ(table->Field(1, "ParentBUID"), "#");
}

TEST(QZWebMessage, ABadDocumentChangesNothing) {
    QZWebMessage message;
    message.LoadText(kDocument);
    const std::string before = message.Text();
    for (const char* bad : {"", "<WebData></WebData>", "<WebMessage Name='x'><WebData/></WebMessage>x",
                            "<WebMessage Name='x'>"}) {
        EXPECT_NE(ErrorOf([&] { message.LoadText(bad); }).find("1003 "), std::string::npos) << bad;
        EXPECT_EQ(message.Text(), before);
    }
}

TEST(QZWebData, IsReadFromItsDocument) {
    QZWebData data;
    data.LoadText(
        "<WebData> <WebTable Name=\"Error\"><row ErrorNumber=\"0\" ErrorDescription=\"\"/></WebTable>"
        "<ProfileIDs><ProfileID>Default</ProfileID></ProfileIDs> </WebData>");
    EXPECT_EQ(data.TableCount(), 1u);
    EXPECT_EQ(data.Table("Error")->Field(1, "ErrorNumber"), "0");
    EXPECT_FALSE(data.HasTable("error"));
    EXPECT_EQ(ErrorOf([&] { data.LoadText("<WebMessage/>"); }),
              "1003 Document error at line 1, column 1: the element WebData is expected");
    EXPECT_TRUE(data.HasTable("Error"));
    data = {};
    EXPECT_EQ(data.Text(), "<WebData></WebData>");
}

}  // namespace
}  // namespace dlv::test
