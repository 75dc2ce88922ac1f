// Every form in which a host's result may come, and what is seen of its error table.
#include "profiles/ResultEnvelope.h"

#include <gtest/gtest.h>

#include "tests/support/TestHost.h"

namespace dlv {

namespace {

std::string ErrorTable(const std::string& number, const std::string& description = "Sorry") {
    return "<WebTable Name=\"Error\"><row ErrorNumber=\"" + number + "\" ErrorDescription=\"" + description +
           "\"/></WebTable>";
}

class Envelope : public testing::Test {
protected:
    bool Parse(const ResultEnvelope::Result& result) {
        reports_.clear();
        return envelope_.ParseResult(result, "here");
    }

    test::TestHost host_;
    Outside outside_{host_, host_};
    std::vector<std::string> reports_;
    ResultEnvelope envelope_{outside_, [this](const RunTimeError& error, std::string_view location) {
                                 reports_.push_back(std::to_string(error.Number()) + ' ' +
                                                    error.Description() + ' ' + std::string(location));
                             }};
};

TEST_F(Envelope, FindsTheErrorTableOfEveryFormOfText) {
    const std::string profile = "<WebProfile>" + ErrorTable("7") + "<Name>n</Name></WebProfile>";
    const struct {
        const char* name;
        std::string text;
        bool recognised;
        int number;
    } rows[] = {
        {"profile set",
         "<WebProfiles>" + ErrorTable("7") + "<WebProfile><Name>n</Name></WebProfile></WebProfiles>", true,
         7},
        {"set whose profile has one", "<WebProfiles>" + profile + "</WebProfiles>", false, 0},
        {"profile", profile, true, 7},
        {"data", "<WebData>" + ErrorTable("7") + "<Other/></WebData>", true, 7},
        {"table", ErrorTable("7"), true, 7},
        {"table of another name", "<WebTable Name=\"error\"><row ErrorNumber=\"7\"/></WebTable>", false, 0},
        {"data without the table", "<WebData></WebData>", false, 0},
        {"marker in another case", "<webdata>" + ErrorTable("7") + "</webdata>", false, 0},
        {"marker with an attribute", "<WebData x=\"1\">" + ErrorTable("7") + "</WebData>", false, 0},
        {"marker in a comment decides", "<WebData><!-- <WebProfiles> -->" + ErrorTable("7") + "</WebData>",
         false, 0},
        {"no document", "oops <WebData>", false, 0},
        {"nothing", "", false, 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(Parse(row.text), row.recognised) << row.name;
        EXPECT_EQ(envelope_.LastErrorNumber(), row.number) << row.name;
        EXPECT_EQ(envelope_.LastErrorDescription(), row.number ? "Sorry" : "") << row.name;
        EXPECT_EQ(reports_,
                  row.number ? std::vector<std::string>{"7 Sorry here"} : std::vector<std::string>{})
            << row.name;
        EXPECT_EQ(host_.ways.back(), "messages") << row.name;
    }
}

TEST_F(Envelope, FindsTheErrorTableOfObjects) {
    const auto table = std::make_shared<QZWebTable>();
    table->LoadText(ErrorTable("5"));
    const auto data = std::make_shared<QZWebData>();
    data->LoadText("<WebData>" + ErrorTable("5") + "</WebData>");
    const auto profiles = std::make_shared<QZWebProfiles>();
    profiles->LoadText("<WebProfiles>" + ErrorTable("5") + "</WebProfiles>");
    const auto profile = std::make_shared<QZWebProfile>();
    profile->LoadText("<WebProfile>" + ErrorTable("5") + "<Name/></WebProfile>");
    const ResultEnvelope::Result results[] = {table, data, profiles, profile};
    for (const auto& result : results) {
        EXPECT_TRUE(Parse(result)) << result.index();
        EXPECT_EQ(envelope_.LastErrorNumber(), 5) << result.index();
    }
    table->SetName("Errors");
    EXPECT_FALSE(Parse(table));
    EXPECT_FALSE(Parse(std::make_shared<QZWebData>()));
    EXPECT_FALSE(Parse(std::make_shared<QZWebProfiles>()));
}

TEST_F(Envelope, ReadsTheNumberFromTheStartOfItsText) {
    const struct {
        const char* text;
        bool recognised;
        int number;
    } rows[] = {{"0", true, 0},         {"", true, 0},     {"abc", true, 0},        {"0.4", true, 0},
                {"0.5", true, 0},       {"0.6", true, 1},  {"12abc", true, 12},     {"-3", true, -3},
                {"&amp;H10", true, 16}, {"1 2", true, 12}, {"99999999999", true, 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(Parse(ErrorTable(row.text)), row.recognised) << row.text;
        EXPECT_EQ(envelope_.LastErrorNumber(), row.number) << row.text;
        EXPECT_EQ(reports_.size(), row.number ? 1u : 0u) << row.text;
    }
    EXPECT_TRUE(Parse("<WebTable Name=\"Error\"></WebTable>")) << "a table without rows is one";
    EXPECT_TRUE(Parse("<WebTable Name=\"Error\"><row x=\"1\"/></WebTable>"));
    EXPECT_TRUE(
        Parse("<WebTable Name=\"Error\"><row ErrorNumber=\"0\" ErrorDescription=\"\"/>"
              "<row ErrorNumber=\"4\" ErrorDescription=\"second row\"/></WebTable>"));
    EXPECT_EQ(envelope_.LastErrorNumber(), 0);
    EXPECT_TRUE(Parse("<WebTable Name=\"Error\"><row ErrorNumber=\"9\"/></WebTable>"));
    EXPECT_EQ(envelope_.LastErrorNumber(), 9) << "an error, though there is nothing to show";
    EXPECT_TRUE(reports_.empty());
}

TEST_F(Envelope, ForgetsTheErrorBefore) {
    Parse(ErrorTable("7"));
    Parse("no result at all");
    EXPECT_EQ(envelope_.LastErrorNumber(), 0);
    EXPECT_EQ(envelope_.LastErrorDescription(), "");
}

}  // namespace

}  // namespace dlv
