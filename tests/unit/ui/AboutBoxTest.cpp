// The about box in every language: where its parts stand for short and long texts.
#include <gtest/gtest.h>

#include "tests/support/TestHost.h"
#include "ui/frmGenAbout.h"

namespace dlv {

namespace {

constexpr double kCharacter = 6;

/// A place in pixels.
struct Place {
    double left, top, width, height;
    bool operator==(const Place&) const = default;
    friend void PrintTo(const Place& place, std::ostream* out) {
        *out << place.left << ", " << place.top << ", " << place.width << " x " << place.height;
    }
};

Place PlaceOf(const Control& control) {
    return {control.Left() / 15, control.Top() / 15, control.Width() / 15, control.Height() / 15};
}

/// How many characters each text has, in words of four.
struct Texts {
    const char* name;
    std::size_t product, description, comments, rights;
    Place title, about, comment, right, line, picture, word, button;
    double width, height;
    friend void PrintTo(const Texts& texts, std::ostream* out) { *out << texts.name; }
};

std::string Words(std::size_t characters) {
    std::string text;
    while (text.size() < characters) text += "word ";
    text.resize(characters);
    return text;
}

class AboutBox : public testing::TestWithParam<Texts> {};

TEST_P(AboutBox, HasItsPartsWhereTheirSizesPutThem) {
    const Texts& texts = GetParam();
    test::TestHost host;
    Outside outside(host, host);
    Frame frame("fraDLV");
    ModalOwner owner(frame);
    frmGenAbout box(outside, [](std::string_view text, bool) {
        return Pixels(kCharacter) * static_cast<double>(text.size());
    });
    host.work = [&](ModalForm& form) {
        EXPECT_FALSE(frame.Enabled());
        form.Click(box.cmdOK);
    };
    box.ShowAbout("title", Words(texts.product), Words(texts.description), Words(texts.comments),
                  Words(texts.rights), "1.2.3", &owner);
    EXPECT_TRUE(box.Closed());
    EXPECT_TRUE(frame.Enabled());
    EXPECT_EQ(PlaceOf(box.imgLogo), (Place{3, 3, 72, 72}));
    EXPECT_EQ(PlaceOf(box.lblTitle), texts.title);
    EXPECT_EQ(PlaceOf(box.lblDescription), texts.about);
    EXPECT_EQ(PlaceOf(box.lblComments), texts.comment);
    EXPECT_EQ(PlaceOf(box.lblRights), texts.right);
    EXPECT_EQ(PlaceOf(box.linSeparator[0]), texts.line);
    EXPECT_EQ(PlaceOf(box.imgName), texts.picture);
    EXPECT_EQ(PlaceOf(box.lblVerText), texts.word);
    EXPECT_EQ(PlaceOf(box.cmdOK), texts.button);
    EXPECT_EQ(box.lblVersion.Left(), box.lblVerText.Left());
    const Label* const shown[] = {&box.lblTitle, &box.lblDescription, &box.lblComments, &box.lblRights};
    const std::size_t lengths[] = {texts.product, texts.description, texts.comments, texts.rights};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(shown[i]->Caption(), Words(lengths[i])) << shown[i]->Name();
    EXPECT_EQ(box.Width(), Pixels(texts.width));
    EXPECT_EQ(box.Height(), Pixels(texts.height));
}

const Texts kTexts[] = {
    {"short",
     14,
     30,
     50,
     40,
     {75, 3, 250, 18},
     {75, 21, 250, 18},
     {3, 75, 322, 18},
     {3, 93, 322, 18},
     {3, 112, 319, 1},
     {8, 116, 200, 40},
     {241, 116, 82, 18},
     {241, 160, 82, 26},
     330,
     193},
    {"none but the product's",
     14,
     0,
     0,
     0,
     {75, 3, 250, 18},
     {75, 21, 250, 18},
     {3, 75, 322, 0},
     {3, 75, 322, 0},
     {3, 76, 319, 1},
     {8, 80, 200, 40},
     {241, 80, 82, 18},
     {241, 124, 82, 26},
     330,
     157},
    {"a long description",
     14,
     160,
     50,
     40,
     {75, 3, 250, 18},
     {75, 21, 250, 72},
     {3, 93, 322, 18},
     {3, 111, 322, 18},
     {3, 130, 319, 1},
     {8, 134, 200, 40},
     {241, 134, 82, 18},
     {241, 178, 82, 26},
     330,
     211},
    {"a long product and long comments",
     99,
     30,
     300,
     40,
     {75, 3, 596, 18},
     {75, 21, 596, 18},
     {3, 75, 668, 54},
     {3, 129, 668, 18},
     {3, 148, 665, 1},
     {8, 152, 200, 40},
     {587, 152, 82, 18},
     {587, 196, 82, 26},
     676,
     229},
};

TEST(AboutBoxAlone, NeedsNoOwner) {
    test::TestHost host;
    Outside outside(host, host);
    frmGenAbout box(outside, [](std::string_view, bool) { return 0.0; });
    box.ShowAbout("title", "", "", "", "", "1.2.3", nullptr);
    EXPECT_EQ(box.Caption() + box.lblVersion.Caption(), "title1.2.3");
    EXPECT_EQ(host.Shown(), std::vector<std::string>{"frmGenAbout"});
}

TEST(AboutBoxAlone, HasRoomForItsPictures) {
    test::TestHost host;
    Outside outside(host, host);
    frmGenAbout box(outside, [](std::string_view, bool) { return 0.0; });
    box.imgName.SetPlace({0, 0, Pixels(400), Pixels(100)});
    box.ShowAbout("title", "", "", "", "", "1.2.3", nullptr);
    EXPECT_EQ(PlaceOf(box.lblTitle), (Place{242, 3, 250, 18}));
    EXPECT_EQ(PlaceOf(box.lblComments), (Place{3, 75, 489, 0}));
    for (int i = 0; i < 2; ++i) EXPECT_EQ(PlaceOf(box.linSeparator[i]), (Place{3, 76.0 + i, 486, 1}));
    EXPECT_EQ(PlaceOf(box.lblVersion), (Place{408, 102, 82, 18}));
    EXPECT_EQ(box.Width(), Pixels(497));
    EXPECT_EQ(box.Height(), Pixels(187));
}

INSTANTIATE_TEST_SUITE_P(Texts, AboutBox, testing::ValuesIn(kTexts));

}  // namespace

}  // namespace dlv
