#include "hosts/recorder/TextMask.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "base/Text.h"
#include "hosts/recorder/SessionMask.h"

namespace dlv::recorder {
namespace {

using Texts = std::vector<std::string>;

TEST(TextMask, KeepsWhatMeansSomethingToTheControl) {
    TextMask mask;
    const Texts kept{"",     "#",     "12",    "-3.5", "Default", "DEFAULT",
                     "True", "false", "TOTAL", "  ",   "12|#|7",  "||"};
    mask.Learn(kept);
    for (const std::string& text : kept) EXPECT_EQ(mask(text), text);
    const Texts changed{"1a", ".5", "12.", "-", "Defaults", "x", "&amp;", "12|north", " é "};
    mask.Learn(changed);
    for (const std::string& text : changed) EXPECT_NE(mask(text), text) << text;
    EXPECT_EQ(mask(" é ").front(), ' ');
    EXPECT_EQ(mask(" é ").back(), ' ');
    EXPECT_EQ(mask("12|north"), "12|" + mask("north")) << "parts between bars are texts of their own";
    EXPECT_EQ(mask("&amp;").find_first_of("&<>\"'"), std::string::npos);
}

/// Names as people give them, some alike but for letter case, with what has a meaning of its own left out.
Texts SomeTexts(unsigned seed, std::size_t count) {
    std::mt19937 random(seed);
    const Texts pieces{"a", "b", "ab", "é", "É", "z", " ", "-", "1", "mill", "pond"};
    Texts texts;
    for (std::size_t i = 0; i < count; ++i) {
        std::string text(1, "ABNZabnz"[random() % 8]);
        for (unsigned n = random() % 4; n > 0; --n) text += pieces[random() % pieces.size()];
        texts.push_back(text + "e");
        if (random() % 4 == 0) texts.push_back(texts.back().substr(0, texts.back().size() - 1) + "E");
    }
    return texts;
}

TEST(TextMask, KeepsEqualityLetterCaseAndOrder) {
    for (unsigned seed = 0; seed < 6; ++seed) {
        const Texts texts = SomeTexts(seed, 60);
        TextMask mask;
        // In three messages: what comes later goes in between.
        mask.Learn({texts.begin(), texts.begin() + 30});
        mask.Learn({texts.begin() + 20, texts.begin() + 40});
        mask.Learn({texts.begin() + 40, texts.end()});
        for (const std::string& one : texts) {
            for (const std::string& other : texts) {
                const std::string shown = one + " / " + other + " as " + mask(one) + " / " + mask(other);
                ASSERT_EQ(one == other, mask(one) == mask(other)) << shown;
                ASSERT_EQ(EqualFolded(one, other), EqualFolded(mask(one), mask(other))) << shown;
                ASSERT_EQ(FoldCase(one) < FoldCase(other), FoldCase(mask(one)) < FoldCase(mask(other)))
                    << shown;
                const bool bothGreat = one.front() <= 'Z' && other.front() <= 'Z';
                const bool bothSmall = one.front() > 'Z' && other.front() > 'Z';
                ASSERT_TRUE(bothGreat || bothSmall || (one < other) == (mask(one) < mask(other))) << shown;
            }
        }
    }
}

TEST(TextMask, StaysAsLongAsTheTextsAlsoWithTenThousand) {
    TextMask mask;
    Texts texts;
    for (int i = 0; i < 10000; ++i) texts.push_back("Unit number " + std::to_string(10000 + i));
    mask.Learn(texts);
    mask.Learn({"I", "R"});
    for (const std::string& text : texts) ASSERT_EQ(mask(text).size(), text.size());
    EXPECT_LE(mask("I").size(), 6u);
    EXPECT_TRUE(std::ranges::is_sorted(texts, {}, [&](const std::string& text) { return mask(text); }));
}

struct Document {
    const char* name;
    std::string given;
    std::string masked;
};

class MaskedDocument : public testing::TestWithParam<Document> {};

TEST_P(MaskedDocument, KeepsItsMarkupAndLosesItsTexts) {
    const auto star = [](const std::string& text) { return "*" + text + "&"; };
    EXPECT_EQ(WithTexts(GetParam().given, star), GetParam().masked);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, MaskedDocument,
    testing::Values(
        Document{
            "Error",
            R"(<WebTable Name="Error"><row ErrorNumber="7" ErrorDescription="a &lt; b"/></WebTable>)",
            R"(<WebTable Name="Error"><row ErrorNumber="7" ErrorDescription="*a &lt; b&amp;"/></WebTable>)"},
        Document{"List", "<WebData><ProfileIDs>\n<ProfileID>A &amp; B</ProfileID></ProfileIDs></WebData>",
                 "<WebData><ProfileIDs>\n<ProfileID>*A &amp; B&</ProfileID></ProfileIDs></WebData>"},
        Document{
            "Profile",
            R"(<WebProfile><Name>N</Name><Section Name="DLVSelect" Fields="BUList"><row BUList='1|2' SummaryOption="odd"/></Section><Own at="x">y</Own></WebProfile>)",
            R"(<WebProfile><Name>*N&amp;</Name><Section Name="DLVSelect" Fields="BUList"><row BUList='*1|2&amp;' SummaryOption="odd"/></Section><Own at="*x&amp;">*y&amp;</Own></WebProfile>)"},
        Document{"NoXml", R"(<WebData><ProfileID>A & B</ProfileID><row a="b>c">text)",
                 R"(<WebData><ProfileID>*A & B&</ProfileID><row a="x>x">xxxx)"},
        Document{"Words", "no such user", "xx xxxx xxxx"}, Document{"Nothing", "", ""}),
    [](const auto& document) { return std::string(document.param.name); });

}  // namespace
}  // namespace dlv::recorder
