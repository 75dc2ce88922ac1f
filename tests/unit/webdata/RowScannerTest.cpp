// The fast way through rows must be invisible: the same rows written so that it applies, applies in
// part, or does not apply at all, give the same table and the same errors.
#include <gtest/gtest.h>

#include <random>

#include "Transcript.h"
#include "webdata/QZWebTable.h"

namespace dlv::test {
namespace {

struct Style {
    const char* name;
    char quote;
    const char* before;  // each attribute
    const char* equals;
    const char* end;
};

const Style kStyles[] = {
    {"as written", '"', " ", "=", "/>\n"},
    {"single quotes", '\'', " ", "=", "/>\n"},
    {"wide", '"', "\n        ", " = ", " />\r\n\r\n"},
    {"tight", '"', " ", "=", "/>"},
    {"with end tags", '"', " ", "=", "></row>\n  "},
    {"with content", '"', "\t", "=", ">x<!-- \" --><y z=\"1\"/></row>"},
};

std::string RandomValue(std::mt19937& random) {
    static const std::vector<std::string> kValues{"",
                                                  "0",
                                                  "7",
                                                  "00",
                                                  "12345678",
                                                  "123456789",
                                                  "2147483647",
                                                  "2147483648",
                                                  "-5",
                                                  "1.5",
                                                  "BU000123",
                                                  "x",
                                                  "two words",
                                                  "a > b",
                                                  "it''s",
                                                  "&amp;",
                                                  "&#10;",
                                                  "&quot;&apos;",
                                                  "\xC3\xA9t\xC3\xA9",
                                                  "\xF0\x9F\x98\x80",
                                                  "1234567\xC3\xA9",
                                                  "]]>",
                                                  "12345678901234567890",
                                                  "=",
                                                  "/>"};
    // Mostly plain, so that rows follow one another the fast way.
    if (random() % 4 != 0) return std::to_string(random() % 1000);
    if (random() % 20 == 0) return std::string(random() % 300, 'v');
    std::string value = kValues[random() % kValues.size()];
    std::erase(value, '\'');
    return value;
}

using Rows = std::vector<std::vector<std::pair<std::string, std::string>>>;

Rows RandomRows(unsigned seed) {
    std::mt19937 random(seed);
    Rows rows;
    std::vector<std::string> columns;
    for (unsigned i = 0; i < 1 + seed % 19; ++i)
        columns.push_back("C" + std::string(random() % 20, 'o') + std::to_string(i));
    for (int i = 0; i < 300; ++i) {
        if (random() % 50 == 0) std::shuffle(columns.begin(), columns.end(), random);
        auto& row = rows.emplace_back();
        const std::size_t width = random() % 40 == 0 ? random() % columns.size() : columns.size();
        for (std::size_t k = 0; k < width; ++k) row.emplace_back(columns[k], RandomValue(random));
    }
    return rows;
}

std::string Written(const Rows& rows, const Style& style) {
    std::string text = "<WebTable Name='T'>\n";
    for (const auto& row : rows) {
        text += "<row";
        for (const auto& [name, value] : row) {
            text.append(style.before).append(name).append(style.equals);
            text += style.quote;
            text.append(value) += style.quote;
        }
        text += style.end;
    }
    return text + "</WebTable>";
}

TEST(RowScanner, StyleOfWritingMakesNoDifference) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        const Rows rows = RandomRows(seed);
        QZWebTable plain;
        plain.LoadText(Written(rows, kStyles[1]));
        const std::string expected = RowsOf(plain);
        ASSERT_EQ(plain.RowCount(), rows.size());
        for (const Style& style : kStyles) {
            QZWebTable table;
            table.LoadText(Written(rows, style));
            EXPECT_TRUE(RowsOf(table) == expected) << style.name << ", seed " << seed;
        }
    }
}

struct FaultCase {
    const char* name;
    std::string instead;  // of  B="5"
    std::string error;    // behind the line
};

class FaultInARow : public testing::TestWithParam<FaultCase> {};

TEST_P(FaultInARow, IsFoundWhereverTheRowStands) {
    for (const int place : {0, 1, 2, 50, 98, 99}) {
        std::string text = "<WebTable Name=\"T\">\n";
        for (int row = 0; row < 100; ++row) {
            text += "<row A=\"1\" " + (row == place ? GetParam().instead : "B=\"5\"") + " C=\"text\"/>\n";
        }
        QZWebTable table;
        EXPECT_EQ(
            ErrorOf([&] { table.LoadText(text + "</WebTable>"); }),
            "1003 Document error at line " + std::to_string(place + 2) + ", column " + GetParam().error);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Faults, FaultInARow,
    testing::Values(FaultCase{"less_than", "B=\"<\"", "15: '<' in a value"},
                    FaultCase{"control", "B=\"\x02\"", "15: a character that XML does not allow"},
                    FaultCase{"control_behind_digits", "B=\"12\x02\"",
                              "17: a character that XML does not allow"},
                    FaultCase{"not_utf8", "B=\"\xFF\"", "15: the text is not valid UTF-8"},
                    FaultCase{"surrogate", "B=\"\xED\xA0\x80\"", "15: a character that XML does not allow"},
                    FaultCase{"ampersand", "B=\"a & b\"", "17: '&' that starts no reference"},
                    FaultCase{"entity", "B=\"&b;\"", "15: the entity b is unknown"},
                    FaultCase{"twice", "A=\"5\"", "12: the attribute A occurs twice"},
                    FaultCase{"no_blank", "B=\"5\"D=\"6\"", "17: a blank or the end of the tag is expected"},
                    FaultCase{"extra_quote", "B=\"5\"\"", "17: a blank or the end of the tag is expected"},
                    FaultCase{"other_quote", "B=\"5'", "21: a blank or the end of the tag is expected"},
                    FaultCase{"bad_name", "5=\"5\"", "12: a name is expected"},
                    FaultCase{"wrong_end", "></raw>", "15: the end tag raw does not close the element row"}),
    [](const auto& test) { return test.param.name; });

TEST(RowScanner, RowsThatOnlyDifferInTheirTagAreNotTakenForRows) {
    std::string text = "<WebTable Name=\"T\">";
    for (int i = 0; i < 50; ++i)
        text += i % 10 == 9 ? "<raw A=\"x\"/>\n" : "<row A=\"" + std::to_string(i) + "\"/>\n";
    QZWebTable table;
    table.LoadText(text + "</WebTable>");
    EXPECT_EQ(table.RowCount(), 45u);
}

TEST(RowScanner, RowsInACommentAreNotTakenForRows) {
    std::string rows;
    for (int i = 0; i < 50; ++i) rows += "<row A=\"" + std::to_string(i) + "\"/>\n";
    QZWebTable table;
    table.LoadText("<WebTable Name=\"T\">" + rows + "<!--" + rows + "-->" + rows + "<![CDATA[" + rows +
                   "]]></WebTable>");
    EXPECT_EQ(table.RowCount(), 100u);
}

}  // namespace
}  // namespace dlv::test
