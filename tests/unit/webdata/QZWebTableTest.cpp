#include "webdata/QZWebTable.h"

#include <gtest/gtest.h>

#include <array>

#include "Transcript.h"

namespace dlv::test {
namespace {

QZWebTable Loaded(const std::string& rows) {
    QZWebTable table;
    table.LoadText("<WebTable Name=\"T\">" + rows + "</WebTable>");
    return table;
}

struct RowsCase {
    const char* name;
    std::string rows;
    std::string expected;
};

class LoadedRows : public testing::TestWithParam<RowsCase> {};

TEST_P(LoadedRows, AreReadAndComeBackFromText) {
    const QZWebTable table = Loaded(GetParam().rows);
    EXPECT_EQ(RowsOf(table), GetParam().expected);
    QZWebTable again;
    again.LoadText(table.Text());
    EXPECT_EQ(RowsOf(again), GetParam().expected);
    EXPECT_EQ(again.Name(), "T");
    EXPECT_EQ(again.Columns(), table.Columns());
    EXPECT_EQ(again.Text(), table.Text());
}

INSTANTIATE_TEST_SUITE_P(
    Tables, LoadedRows,
    testing::Values(
        RowsCase{"none", "", ""}, RowsCase{"without_fields", "<row/><row></row>", "{}{}"},
        RowsCase{"plain", "<row A=\"1\" B=\"x\"/>\n<row A=\"22\" B=\"y z\"/>",
                 "{ A=[1] B=[x]}{ A=[22] B=[y z]}"},
        RowsCase{
            "number_look_alikes",
            "<row A='0' B='00' C='01' D='-1' E='1.0' F='2147483647' G='2147483648' H='99999999999' I=' 1'/>",
            "{ A=[0] B=[00] C=[01] D=[-1] E=[1.0] F=[2147483647] G=[2147483648] H=[99999999999] I=[ 1]}"},
        RowsCase{"other_order", "<row A='1' B='2'/><row B='3' A='4'/>", "{ A=[1] B=[2]}{ A=[4] B=[3]}"},
        RowsCase{"other_columns", "<row A='1'/><row B='2'/><row/><row A='3' C='4'/>",
                 "{ A=[1]}{ B=[2]}{}{ A=[3] C=[4]}"},
        RowsCase{"decoded", "<row A='&lt;&#65;&#10;' B='a\tb'/>", "{ A=[<A\n] B=[a b]}"},
        RowsCase{"quotes", "<row A='\"' B=\"'\"/>", "{ A=[\"] B=[']}"},
        RowsCase{"content_of_rows_and_unknown_elements_are_passed_over",
                 "text<row A='1'><x y='2'><row A='9'/></x>z</row><other><row A='9'/></other><row A='3'/>",
                 "{ A=[1]}{ A=[3]}"}),
    [](const auto& test) { return test.param.name; });

TEST(QZWebTable, ReadsManyFieldsAtOnceInTheOrderAsked) {
    const QZWebTable table = Loaded("<row A='1' B='two' C='3' D='4.5'/><row C='7' A='x'/>");
    const std::array columns{table.FindColumn("C"), table.FindColumn("B"), table.FindColumn("A")};
    std::array<std::string_view, 3> texts;
    table.ReadTexts(1, columns, texts);
    EXPECT_EQ(texts, (std::array<std::string_view, 3>{"3", "two", "1"}));
    table.ReadTexts(2, columns, texts);
    EXPECT_EQ(texts, (std::array<std::string_view, 3>{"7", "", "x"}));

    const std::array numbers{table.FindColumn("A"), table.FindColumn("B"), table.FindColumn("C"),
                             table.FindColumn("D")};
    std::array<std::int32_t, 4> values;
    table.ReadNumbers(1, numbers, values);
    EXPECT_EQ(values, (std::array<std::int32_t, 4>{1, 0, 3, 4}));
    table.ReadNumbers(2, numbers, values);
    EXPECT_EQ(values, (std::array<std::int32_t, 4>{0, 0, 7, 0}));
}

TEST(QZWebTable, FirstFieldThatFailsDecidesTheError) {
    const QZWebTable table = Loaded("<row A='1' Big='2147483648'/>");
    const auto read = [&](const char* first, const char* second) {
        return ErrorOf([&] {
            const std::array columns{table.FindColumn(first), table.FindColumn(second)};
            std::array<std::int32_t, 2> numbers;
            table.ReadNumbers(1, columns, numbers);
        });
    };
    EXPECT_EQ(read("A", "Nope"), "1002 Column Nope is missing in table T");
    EXPECT_EQ(read("Nope", "Big"), "1002 Column Nope is missing in table T");
    EXPECT_EQ(read("Big", "Nope"), "6 Overflow");
    EXPECT_EQ(read("A", "A"), "");
}

TEST(QZWebTable, AColumnIsMissingOnlyWhileNoRowHasIt) {
    QZWebTable table("T");
    const auto column = table.FindColumn("A");
    EXPECT_EQ(ErrorOf([&] { table.Field(1, "A"); }), "9 Subscript out of range");
    table.AddRow();
    EXPECT_EQ(ErrorOf([&] { table.Field(1, "A"); }), "1002 Column A is missing in table T");
    table.AddRow();
    table.SetField(2, "A", "5");
    EXPECT_EQ(table.Field(1, "A"), "");
    std::int32_t number = 0;
    table.ReadNumbers(2, {&column, 1}, {&number, 1});
    EXPECT_EQ(number, 5);
    EXPECT_EQ(ErrorOf([&] { table.Field(0, "A"); }), "9 Subscript out of range");
    EXPECT_EQ(ErrorOf([&] { table.Field(3, "A"); }), "9 Subscript out of range");
    EXPECT_EQ(ErrorOf([&] { table.SetField(3, "A", ""); }), "9 Subscript out of range");
}

TEST(QZWebTable, AColumnNumberOfAnotherTableIsRefused) {
    const QZWebTable table = Loaded("<row A='1'/>");
    const RowTable::Column column = 1000;
    std::string_view text;
    EXPECT_EQ(ErrorOf([&] { table.ReadTexts(1, {&column, 1}, {&text, 1}); }), "9 Subscript out of range");
}

TEST(QZWebTable, FieldsAreSetInAnyOrderOfRowsAndColumns) {
    // Every row holds "row:column:round" in every column, however it came about.
    for (const bool byColumn : {false, true}) {
        QZWebTable table = Loaded("<row C1='old' C0='old'/><row C2='old &amp; decoded'/>");
        while (table.RowCount() < 200) table.AddRow();
        const auto value = [](std::size_t row, std::size_t column, int round) {
            const std::string text =
                std::to_string(row) + ":" + std::to_string(column) + ":" + std::to_string(round);
            // Grows, shrinks, and becomes a number and a text again.
            return round == 1   ? text + std::string(row % 50, '.')
                   : round == 2 ? std::to_string(row * column)
                                : text;
        };
        for (int round = 0; round < 4; ++round) {
            for (std::size_t i = 0; i < 200 * 20; ++i) {
                const std::size_t row = byColumn ? i % 200 : i / 20;
                const std::size_t column = byColumn ? i / 200 : i % 20;
                table.SetField(row + 1, "C" + std::to_string(column), value(row, column, round));
            }
            for (std::size_t row = 0; row < 200; ++row) {
                for (std::size_t column = 0; column < 20; ++column) {
                    ASSERT_EQ(table.Field(row + 1, "C" + std::to_string(column)), value(row, column, round));
                }
            }
        }
    }
}

TEST(QZWebTable, AFieldCanBeSetToAViewOfTheTableItself) {
    QZWebTable table("T");
    table.AddRow();
    table.SetField(1, "A", "a text that is stored");
    const auto column = table.FindColumn("A");
    for (int i = 0; i < 200; ++i) {
        std::string_view text;
        table.ReadTexts(1, {&column, 1}, {&text, 1});
        table.SetField(1, "B" + std::to_string(i), text);
        ASSERT_EQ(table.Field(1, "B" + std::to_string(i)), "a text that is stored");
    }
}

TEST(QZWebTable, FillReplacesAllRows) {
    QZWebTable table = Loaded("<row Old='1'/>");
    const std::vector<std::string> columns{"A", "B"};
    table.Fill(columns, std::vector<std::string>{"1", "x", "", "007"});
    EXPECT_EQ(RowsOf(table), "{ A=[1] B=[x]}{ B=[007]}");
    EXPECT_EQ(table.Name(), "T");
    EXPECT_EQ(ErrorOf([&] { table.Fill(columns, std::vector<std::string>{"1"}); }),
              "5 Invalid procedure call or argument");
    EXPECT_EQ(ErrorOf([&] {
                  table.Fill(std::vector<std::string>{"A", "A"}, {});
              }),
              "457 This key is already associated with an element of this collection");
    EXPECT_EQ(RowsOf(table), "{ A=[1] B=[x]}{ B=[007]}");
    table.Fill({}, {});
    EXPECT_EQ(table.RowCount(), 0u);
}

TEST(QZWebTable, AFillForgetsWhereColumnsStood) {
    QZWebTable table("T");
    table.Fill(std::vector<std::string>{"A", "B"}, std::vector<std::string>{"1", "2"});
    const auto keyOfB = [&] {
        const RowTable::Column column = table.FindColumn("B");
        std::uint32_t key = 0;
        table.ReadKeys(1, {&column, 1}, {&key, 1});
        return key;
    };
    EXPECT_EQ(keyOfB(), 2u);
    table.Fill(std::vector<std::string>{"A"}, std::vector<std::string>{"1"});
    EXPECT_EQ(keyOfB(), RowTable::kNoKey);
}

TEST(QZWebTable, EqualTextsOfAFillShareAKeyUntilOneIsSet) {
    QZWebTable table("T");
    const std::string quotes = "a \"quoted\" 'text'";
    table.Fill(std::vector<std::string>{"A", "B"},
               std::vector<std::string>{quotes, "", "u", quotes, quotes, "u"});
    EXPECT_EQ(RowsOf(table), "{ A=[" + quotes + "]}{ A=[u] B=[" + quotes + "]}{ A=[" + quotes + "] B=[u]}");
    const auto key = [&](std::size_t row, const char* name) {
        const RowTable::Column column = table.FindColumn(name);
        std::uint32_t found = 0;
        table.ReadKeys(row, {&column, 1}, {&found, 1});
        return found;
    };
    EXPECT_EQ(key(1, "A"), key(2, "B"));
    EXPECT_EQ(key(2, "A"), key(3, "B"));
    EXPECT_NE(key(1, "A"), key(1, "B"));
    table.SetField(1, "A", "v");
    EXPECT_EQ(RowsOf(table), "{ A=[v]}{ A=[u] B=[" + quotes + "]}{ A=[" + quotes + "] B=[u]}");
    EXPECT_EQ(ErrorOf([&] { table.Fill(std::vector<std::string>{"A"}, std::vector<std::string>{"\xFF"}); }),
              "5 Invalid procedure call or argument");
}

TEST(QZWebTable, IsFilledCellByCell) {
    QZWebTable table = Loaded("<row Old='1'/>");
    TableFill fill(std::vector<std::string>{"A", "B"});
    fill.Expect(2);
    fill.Add("x");
    fill.AddWhole(2147483647);
    fill.AddWhole(0);
    EXPECT_EQ(fill.Row(), 1u);
    EXPECT_EQ(fill.Column(), 1u);
    fill.AddWhole(-2147483647 - 1);
    EXPECT_EQ(table.RowCount(), 1u) << "nothing of it is in the table yet";
    table.Fill(std::move(fill));
    EXPECT_EQ(RowsOf(table), "{ A=[x] B=[2147483647]}{ A=[0] B=[-2147483648]}");
}

TEST(QZWebTable, WhatXmlCannotHoldIsRefusedWhenItIsWritten) {
    QZWebTable table("T");
    table.AddRow();
    table.SetField(1, "A", "\x01");
    EXPECT_EQ(table.Field(1, "A"), "\x01");
    EXPECT_EQ(ErrorOf([&] { table.Text(); }),
              "1003 Document error at line 2, column 11: a character that XML does not allow");
    table.SetField(1, "A", "");
    table.SetField(1, "B C", "");
    EXPECT_EQ(ErrorOf([&] { table.Text(); }),
              "1003 Document error at line 2, column 13: a name that XML does not allow");
}

TEST(QZWebTable, ABadDocumentChangesNothing) {
    QZWebTable table = Loaded("<row A='1'/>");
    EXPECT_EQ(
        ErrorOf([&] { table.LoadText("<WebTable Name='U'><row A='2'/><row A='3'></WebTable>"); }),
        "1003 Document error at line 1, column 45: the end tag WebTable does not close the element row");
    EXPECT_EQ(ErrorOf([&] { table.LoadText("<WebData/>"); }),
              "1003 Document error at line 1, column 1: the element WebTable is expected");
    EXPECT_EQ(ErrorOf([&] { table.LoadText("<WebTable Name='U'/><!--"); }),
              "1003 Document error at line 1, column 25: the document ends too early");
    EXPECT_EQ(table.Name(), "T");
    EXPECT_EQ(RowsOf(table), "{ A=[1]}");
}

}  // namespace
}  // namespace dlv::test
