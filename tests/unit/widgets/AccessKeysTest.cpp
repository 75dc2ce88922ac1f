// Keys chosen from captions, and what they lead to.
#include "widgets/AccessKeys.h"

#include <gtest/gtest.h>

namespace dlv {
namespace {

struct ChoiceCase {
    const char* what;
    std::vector<std::string> captions;
    /// Each caption's letter as it stands there; a blank for none.
    std::string letters;
    friend void PrintTo(const ChoiceCase& test, std::ostream* out) { *out << test.what; }
};

class AccessKeyChoice : public testing::TestWithParam<ChoiceCase> {};

TEST_P(AccessKeyChoice, TakesTheBestLetterThatIsLeft) {
    const std::vector<AccessKey> keys = ChooseAccessKeys(GetParam().captions);
    std::string letters;
    for (std::size_t i = 0; i < keys.size(); ++i)
        letters += keys[i] ? GetParam().captions[i].at(*keys[i]) : ' ';
    EXPECT_EQ(letters, GetParam().letters);
}

INSTANTIATE_TEST_SUITE_P(
    Captions, AccessKeyChoice,
    testing::Values(ChoiceCase{"first letters", {"View", "Points", "Work Orders"}, "VPW"},
                    ChoiceCase{"the next word", {"Show summary", "Show aggregate"}, "Sa"},
                    ChoiceCase{"inside a word", {"Sun", "Sea", "S"}, "ueS"},
                    ChoiceCase{"the case does not count", {"ab", "A"}, "bA"},
                    ChoiceCase{"room is made for the short ones", {"abc", "ab", "a"}, "cba"},
                    ChoiceCase{"none is left", {"aa", "AA", "a"}, "a  "},
                    ChoiceCase{"digits", {"1st", "1"}, "s1"},
                    ChoiceCase{"accented letters have no key", {"\xC3\x93rdenes", "\xC3\xA9"}, "r "},
                    ChoiceCase{"other writings have none", {"\xE4\xB8\xAD\xE6\x96\x87", "", " & "}, "   "}));

class KeyForm : public Form {
public:
    KeyForm() : Form("keys") {
        Place(frame, {});
        Place(button, {}, frame);
        Place(tabs, {});
        button.SetCaption("Press");
        button.SetKey(0);
        tabs.SetTabs({{"One", "", 0}, {"Two", "", std::nullopt}, {"Three", "", 3}});
    }
    std::string Letters() const {
        std::string letters;
        for (const AccessTarget& target : AccessTargets(*this)) letters += target.letter;
        return letters;
    }

    Frame frame{"frame"};
    Button button{"button"};
    TabStrip tabs{"tabs"};
};

TEST(AccessTargets, AreTheUsableControlsWithAKey) {
    KeyForm form;
    EXPECT_EQ(form.Letters(), "POE");
    const std::vector<AccessTarget> targets = AccessTargets(form);
    EXPECT_EQ(targets[0].control, &form.button);
    EXPECT_EQ(targets[2].control, &form.tabs);
    EXPECT_EQ(targets[2].tab, 3);
    form.frame.SetEnabled(false);
    EXPECT_EQ(form.Letters(), "OE");
    form.frame.SetEnabled(true);
    form.button.SetVisible(false);
    EXPECT_EQ(form.Letters(), "OE");
    form.button.SetVisible(true);
    form.button.SetCaption("");
    EXPECT_EQ(form.Letters(), "OE") << "a key behind its caption's end";
}

}  // namespace
}  // namespace dlv
