// Whatever a host sends: an error dialog or an error of the call, and the next good message works.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/Random.h"
#include "tests/unit/control/TestViewer.h"

namespace dlv {

namespace {

const std::string kError =
    "<WebTable Name=\"Error\"><row ErrorNumber=\"0\" ErrorDescription=\"\"/></WebTable>";
const std::string kProfiles = "<WebProfiles>" + kError +
                              "<WebProfile><Name>Default</Name><Section Name=\"DLVSelect\" "
                              "Fields=\"BUList,SummaryOption,DisplayByWorkOrders\">"
                              "<row BUList=\"A|B\" SummaryOption=\"False\" "
                              "DisplayByWorkOrders=\"True\"/></Section><Section Name=\"CollapsedNodes\" "
                              "Fields=\"ID,List\"><row ID=\"JobTypes\" List=\"T\"/><row ID=\"BUWorkOrders\" "
                              "List=\"#\"/><row ID=\"BUPoints\" List=\"\"/>"
                              "</Section></WebProfile></WebProfiles>";
const std::string kList =
    "<WebData>" + kError + "<ProfileIDs><ProfileID>Default</ProfileID></ProfileIDs></WebData>";

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) all += text;
    return all;
}

class Hostile : public test::TestViewer, public testing::Test {
protected:
    void SetUp() override {
        Start({"A", "B"});
        Receive(test::GoodTables());
    }

    /// Gives the text as the answer to every request, as the first answer of its kind and as a later one.
    void AnswerAllWith(const std::string& text) {
        for (const bool first : {true, false})
            for (const char* function : {"GetProfileList", "GetProfiles", "PutProfiles", "SaveProfileAs",
                                         "AddProfiles", "RemoveProfiles"}) {
                if (first) viewer.SetSessionBUIDList(std::vector<std::string>{"A", "B"});
                viewer.mnuProfile_Click(0);
                viewer.ReceiveProfileResponse(text, function);
            }
    }
};

TEST_F(Hostile, AnswersAreReportedOrPassedOver) {
    const std::string deep = Repeated("<a>", 100'000);
    const std::string answers[] = {
        "<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b "
        "\"&a;&a;&a;&a;&a;&a;&a;&a;\">]><WebProfiles>&b;</WebProfiles>",
        "<!DOCTYPE x SYSTEM \"file:///etc/passwd\"><WebProfiles>&x;</WebProfiles>",
        "<WebProfiles>" + deep,
        "<WebProfiles>" + deep + Repeated("</a>", 100'000) + "</WebProfiles>",
        "<WebProfiles><WebProfile><Name>" + std::string(10'000'000, 'n') +
            "</Name></WebProfile></WebProfiles>",
        "<WebProfile><Name>\xED\xA0\xBD</Name></WebProfile>",
        "<WebProfiles>\xFF\xFE\xC0</WebProfiles>",
        std::string("<WebProfiles>\0</WebProfiles>", 28),
        "<WebProfiles xmlns:x=\"y\"><x:y/></WebProfiles>",
        "<WebProfiles><WebProfile><Name>a</Name></WebProfile><WebProfile><Name>a</Name></WebProfile></"
        "WebProfiles>",
        "<WebData>" + kError + "<ProfileIDs>" + Repeated("<ProfileID>x</ProfileID>", 20'000) +
            "</ProfileIDs></WebData>",
        Repeated("<ProfileIDs><ProfileID></ProfileIDs></ProfileID>", 5'000),
        std::string(1'000'000, ' '),
        "<",
        "&",
        "]]>"};
    for (const std::string& answer : answers) AnswerAllWith(answer);
    ExpectThatTheNextGoodMessageWorks();
}

TEST_F(Hostile, AnswersMayEndAnywhere) {
    for (const std::string& whole : {kProfiles, kList, kError})
        for (std::size_t length = 0; length < whole.size(); length += 3)
            AnswerAllWith(whole.substr(0, length));
    ExpectThatTheNextGoodMessageWorks();
}

TEST_F(Hostile, AnswersMayBeDamagedAnywhere) {
    test::Random random(1);
    for (int i = 0; i < 300; ++i) {
        std::string text = random.OneIn(2) ? kProfiles : kList;
        for (std::uint32_t damages = 1 + random.Below(4); damages > 0; --damages) {
            const std::size_t at = random.Below(static_cast<std::uint32_t>(text.size()));
            constexpr char kBytes[] = {'<', '>', '"', '&', '/', '\0', '\x80', '\xED', 'x', '|', '='};
            if (random.OneIn(3))
                text.erase(at, 1 + random.Below(9));
            else
                text[at] = kBytes[random.Below(sizeof kBytes)];
        }
        AnswerAllWith(text);
    }
    ExpectThatTheNextGoodMessageWorks();
}

TEST_F(Hostile, FieldsMayHoldAnyText) {
    const std::string lone = FromUtf16(u"\xD83D\x20\xDE00");
    const std::string odd[] = {lone,
                               "",
                               " ",
                               "#",
                               "|",
                               "a|b",
                               "TOTAL",
                               ",",
                               "_A",
                               std::string("\0A", 2),
                               "\x80\xC0",
                               "A\r\n\tB",
                               Repeated("9", 10'000'000)};
    for (const std::string& text : odd) {
        test::Tables tables = test::GoodTables();
        tables.units.push_back({text, text, text});
        tables.types.push_back({text, text});
        tables.classes.push_back({text, text});
        tables.formats.push_back({text, text});
        tables.general.push_back({text, "1", "1", "1", text});
        tables.details.push_back({text, text, text, "1"});
        viewer.SetSessionBUIDList(std::vector<std::string>{"A", text});
        viewer.SetRegionalFormatInfo(text);
        Receive(tables);
        ViewAll(1);
        viewer.mnuSaveProfile_Click();
        if (text.size() > 1000) continue;
        for (const int grid : {0, 1})
            for (int row = 0; row < Grid(grid).Rows(); ++row) {
                Grid(grid).SetCurrentCell(row, 4);
                viewer.vsFlex_KeyDown(grid, 13, false);
            }
    }
    ExpectThatTheNextGoodMessageWorks();
}

TEST_F(Hostile, FieldsMayBeNumbersBeyondAllBounds) {
    for (const std::string& number : {std::string("1e400"), Repeated("9", 1'000'000),
                                      "&H" + Repeated("F", 1'000'000), std::string("-1e400")}) {
        for (const std::size_t column : {1u, 2u, 3u}) {
            test::Tables tables = test::GoodTables();
            tables.general[1][column] = number;
            Receive(tables);
        }
        test::Tables tables = test::GoodTables();
        tables.details[0].resize(17, number);
        Receive(tables);
        const auto message = test::GoodTables().Message();
        message->SetProperty("tqDBRefreshInterval", number);
        Receive(message);
    }
    EXPECT_EQ(host.Shown().size(), 20u) << "each is reported once";
    ExpectThatTheNextGoodMessageWorks();
}

TEST_F(Hostile, MessagesMayBeCutOrOfAnotherKind) {
    const std::string whole = test::GoodTables().Message()->Text();
    for (std::size_t length = 0; length < whole.size(); length += 7) {
        const auto message = std::make_shared<QZWebMessage>("untouched");
        EXPECT_EQ(test::ErrorOf([&] { message->LoadText(whole.substr(0, length)); }), kErrorDocument)
            << length;
        EXPECT_EQ(message->Name(), "untouched");
        Receive(message);
    }
    host.ways.clear();
    viewer.ReceiveMessage({"QZWebMessage", nullptr}, 0, "");
    viewer.ReceiveMessage({"", test::GoodTables().Message()}, 7, "tag");
    EXPECT_EQ(host.ways, std::vector<std::string>{});
    ExpectThatTheNextGoodMessageWorks();
}

/// A host's object of its own that fails wherever it is asked.
class FailingMessage : public MessageSource {
public:
    std::string Name() const override { RaiseInvalidCall(); }
    std::string Property(std::string_view key) const override {
        return key == "Number" ? "77" : "Host is ill";
    }
    std::shared_ptr<const RowTable> Table(std::string_view) const override { RaiseInvalidCall(); }
};

TEST_F(Hostile, MessagesThatFailAreReportedWithTheHostsOwnError) {
    std::string shown;
    host.work = [&](ModalForm& form) {
        EXPECT_FALSE(viewer.Controls().fraDLV.Enabled());
        for (const char* name : {"lblErrNum", "lblErrStr", "lblErrLoc"})
            shown += static_cast<Label*>(form.Find(name))->Caption() + ';';
    };
    Receive(std::make_shared<FailingMessage>());
    EXPECT_EQ(shown, "77;Host is ill;cDLVController.ReceiveMessage;");
    ExpectThatTheNextGoodMessageWorks();
}

}  // namespace

}  // namespace dlv
