// Documents made to hurt: they must end in an error or load in linear time and memory.
#include <gtest/gtest.h>

#include <algorithm>

#include "Transcript.h"
#include "webdata/QZWebMessage.h"
#include "webdata/QZWebProfiles.h"
#include "webdata/XmlReader.h"

namespace dlv::test {
namespace {

/// Sizes at which a quadratic step would take minutes: the watchdog ends a test that has one.
constexpr std::size_t kMany = 200'000;
constexpr std::size_t kManyFields = 100'000;

std::string Repeated(std::string_view piece, std::size_t count) {
    std::string text;
    text.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i) text += piece;
    return text;
}

TEST(HostileDocuments, AMillionLevelsOfDepth) {
    constexpr std::size_t kDepth = 1'000'000;
    const std::string document = Repeated("<a>", kDepth) + Repeated("</a>", kDepth);
    XmlReader reader(document);
    std::size_t deepest = 0;
    while (reader.Next() != XmlReader::Event::EndOfDocument) deepest = std::max(deepest, reader.Depth());
    EXPECT_EQ(deepest, kDepth);

    QZWebTable table;
    table.LoadText("<WebTable Name='T'><row A='1'>" + document + "</row>" + document + "</WebTable>");
    EXPECT_EQ(table.RowCount(), 1u);
    QZWebProfiles set;
    set.LoadText("<WebProfiles>" + document + "</WebProfiles>");
    EXPECT_NE(set.Text().find(document), std::string::npos);
    EXPECT_EQ(ErrorOf([&] { EventsOf(Repeated("<a>", kDepth)); }),
              "1003 Document error at line 1, column 3000001: the element a is not closed");
}

TEST(HostileDocuments, EntityExpansionIsRefused) {
    std::string document = "<!DOCTYPE a [<!ENTITY a0 'ha'>";
    for (int i = 1; i < 30; ++i) {
        const std::string before = "&a" + std::to_string(i - 1) + ";";
        document += "<!ENTITY a" + std::to_string(i) + " '" + before + before + "'>";
    }
    document += "]><WebData>&a29;</WebData>";
    QZWebData data;
    EXPECT_EQ(ErrorOf([&] { data.LoadText(document); }),
              "1003 Document error at line 1, column 1: document types are not accepted");
}

TEST(HostileDocuments, CutOffAnywhereTheyAreErrors) {
    const std::string message =
        R"(<?xml version="1.0"?><!-- c --><WebMessage Name="M"><Property Name="a" Value="&#x41;&amp;"/><WebData>
<WebTable Name="T"><row A="1" B="x"/>
<row A="2" B="y"/>
<row A="3" B="&lt;"/>
<row A="4" B=")"
        "\xC3\xA9"
        R"("/>
<row A='5'>t<![CDATA[d]]><?p i?></row></WebTable></WebData></WebMessage>)";
    for (std::size_t length = 0; length < message.size(); ++length) {
        QZWebMessage loaded;
        // A buffer of its own, so that a sanitizer sees a read behind its end.
        const std::string error = ErrorOf([&] { loaded.LoadText(std::string(message, 0, length)); });
        EXPECT_TRUE(error.starts_with("1003 Document error at line ")) << length << ": " << error;
    }
    const std::string set =
        "<WebProfiles><x y='1'/><WebTable Name='Error'><row A='1'/></WebTable><WebProfile><Name "
        "l='e'>N<![CDATA["
        "M]]></Name><Section Name='S' Fields='A'><row A='1'/></Section></WebProfile></WebProfiles>";
    for (std::size_t length = 0; length < set.size(); ++length) {
        QZWebProfiles loaded;
        const std::string error = ErrorOf([&] { loaded.LoadText(set.substr(0, length)); });
        EXPECT_TRUE(error.starts_with("1003 Document error at line ")) << length << ": " << error;
    }
}

TEST(HostileDocuments, LongFieldsNamesAndTexts) {
    const std::string longText(10'000'000, 'x');
    QZWebTable table;
    table.LoadText("<WebTable Name='" + longText + "'><row A='" + longText + "' " + longText + "='&lt;" +
                   longText + "'/></WebTable>");
    EXPECT_EQ(table.Name().size(), longText.size());
    EXPECT_TRUE(table.Field(1, "A") == longText);
    EXPECT_TRUE(table.Field(1, longText) == "<" + longText);
    QZWebTable again;
    again.LoadText(table.Text());
    EXPECT_TRUE(again.Field(1, longText) == "<" + longText);
}

TEST(HostileDocuments, AQuarterOfAMillionAttributes) {
    constexpr std::size_t kCount = 250'000;
    std::string row = "<row";
    for (std::size_t i = 0; i < kCount; ++i)
        row += " a" + std::to_string(i) + "=\"" + std::to_string(i) + "\"";
    QZWebTable table;
    table.LoadText("<WebTable Name=\"T\">" + row + "/>\n" + row + "/>\n" + row + " b='1'/></WebTable>");
    EXPECT_EQ(table.RowCount(), 3u);
    EXPECT_EQ(table.Columns().size(), kCount + 1);
    for (std::size_t i = 0; i < kCount; i += 50000) {
        EXPECT_EQ(table.Field(2, "a" + std::to_string(i)), std::to_string(i));
        EXPECT_EQ(table.Field(3, "a" + std::to_string(i)), std::to_string(i));
    }
    EXPECT_EQ(table.Field(2, "b"), "");
    EXPECT_NE(ErrorOf([&] {
                  table.LoadText("<WebTable Name=\"T\">" + row + " a7='1'/></WebTable>");
              }).find("the attribute a7 occurs twice"),
              std::string::npos);
}

TEST(HostileDocuments, EveryRowANewColumn) {
    const auto load = [](std::size_t count) {
        std::string rows;
        for (std::size_t i = 0; i < count; ++i) rows += "<row a" + std::to_string(i) + "=\"1\"/>\n";
        QZWebTable table;
        table.LoadText("<WebTable Name='T'>" + rows + "</WebTable>");
        EXPECT_EQ(table.RowCount(), count);
        EXPECT_EQ(table.Columns().size(), count);
        EXPECT_EQ(table.Field(count, "a0"), "");
        std::int32_t sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const auto column = table.FindColumn("a" + std::to_string(i));
            std::int32_t number = 0;
            table.ReadNumbers(i + 1, {&column, 1}, {&number, 1});
            sum += number;
        }
        EXPECT_EQ(sum, static_cast<std::int32_t>(count));
    };
    load(kMany);
}

TEST(HostileDocuments, RowsThatTakeTurns) {
    const auto load = [](std::size_t count) {
        QZWebTable table;
        table.LoadText("<WebTable Name='T'>" +
                       Repeated("<row A=\"1\"/>\n<row B=\"&amp;\" C=\"x\"/>\n<row A='2'/>", count) +
                       "</WebTable>");
        EXPECT_EQ(table.RowCount(), 3 * count);
    };
    load(kMany);
}

TEST(HostileDocuments, ManyPropertiesTablesAndTexts) {
    const auto load = [](std::size_t count) {
        std::string document = "<WebMessage Name='M'>";
        for (std::size_t i = 0; i < count; ++i)
            document += "<Property Name='p" + std::to_string(i) + "' Value='v'/>";
        document +=
            "<WebData>" + Repeated("<WebTable Name='T'/>&#32;<!-- -->", count) + "</WebData></WebMessage>";
        QZWebMessage message;
        message.LoadText(document);
        EXPECT_EQ(message.Data(1)->TableCount(), count);
    };
    load(kMany);
}

TEST(ManyRows, AreAddedInLinearTime) {
    const auto name = [](std::size_t column) { return "Column" + std::to_string(column); };
    const auto rowByRow = [&](std::size_t count) {
        QZWebTable table("T");
        for (std::size_t row = 1; row <= count; ++row) {
            table.AddRow();
            for (std::size_t column = 0; column < 17; ++column) table.SetField(row, name(column), "text");
        }
        EXPECT_EQ(table.Field(count, name(16)), "text");
    };
    rowByRow(kMany);
    const auto columnByColumn = [&](std::size_t count) {
        QZWebTable table("T");
        for (std::size_t row = 1; row <= count; ++row) table.AddRow();
        for (std::size_t column = 0; column < 17; ++column) {
            for (std::size_t row = 1; row <= count; ++row) table.SetField(row, name(column), "text");
        }
        EXPECT_EQ(table.Field(count, name(16)), "text");
    };
    columnByColumn(kManyFields);
    const auto oneWideRow = [&](std::size_t count) {
        QZWebTable table("T");
        table.AddRow();
        for (std::size_t column = 0; column < count; ++column) table.SetField(1, name(column), "1");
        EXPECT_EQ(table.Columns().size(), count);
    };
    oneWideRow(kMany);
}

TEST(ManyProfiles, AreBuiltAndTakenApartInLinearTime) {
    QZWebProfiles set;
    for (std::size_t i = 0; i < kMany; ++i) {
        const std::string name = "Profile " + std::to_string(i);
        EXPECT_FALSE(set.Exists(name));
        set.Add("new")->SetName(name);
    }
    EXPECT_TRUE(set.Exists("Profile 7"));
    QZWebProfile& profile = *set.Item(1);
    std::string fields;
    for (std::size_t i = 0; i < kMany; ++i) {
        const std::string number = std::to_string(i);
        EXPECT_FALSE(profile.HasSection(number));
        profile.AddSection(number, "A")->AddRow()->SetField("A", number);
        fields += number + ',';
    }
    EXPECT_EQ(profile.Section("199999")->Row(1)->Field("A"), "199999");
    const auto wide = profile.AddSection("wide", fields)->AddRow();
    for (std::size_t i = 0; i < kMany; ++i) wide->SetField(std::to_string(i), "1");
    EXPECT_EQ(wide->Field("199999"), "1");

    QZWebProfile loaded;
    loaded.LoadText("<WebProfile><Section Name='S' Fields='A'>" + Repeated("<row A='1'/><k/>", 2 * kMany) +
                    "</Section></WebProfile>");
    QZWebSection& rows = *loaded.Section("S");
    const auto second = rows.Row(2);
    rows.RemoveRow(1);
    EXPECT_EQ(rows.Row(1), second);
    for (std::size_t i = 1; i < kMany; ++i) rows.RemoveRow(1);
    while (rows.RowCount() > 1) rows.RemoveRow(rows.RowCount());
    rows.AddRow()->SetField("A", "2");
    EXPECT_EQ(rows.Row(1)->Field("A") + rows.Row(2)->Field("A"), "12");
    const std::string text = loaded.Text();
    EXPECT_EQ(std::ranges::count(text, 'k'), std::ptrdiff_t{2 * kMany}) << "what stood between them is kept";
}

}  // namespace
}  // namespace dlv::test
