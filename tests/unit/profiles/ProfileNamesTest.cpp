// Names of profiles: read from a host's list, and typed by a person.
#include <gtest/gtest.h>

#include "profiles/ProfileIDList.h"
#include "profiles/frmNewProfile.h"
#include "tests/support/TestHost.h"

namespace dlv {

namespace {

TEST(ProfileIDList, IsReadByItsFourPieces) {
    using Names = std::vector<std::string>;
    const struct {
        std::string text;
        bool holds;
        Names names;
    } rows[] = {
        {"<ProfileIDs><ProfileID>A</ProfileID><ProfileID> b c </ProfileID></ProfileIDs>", true, {"A", "b c"}},
        {"  <x><ProfileIDs n='2'> <ProfileID>A</ProfileID>\n</ProfileIDs></x> ", true, {"A"}},
        {"<ProfileIDs><ProfileID></ProfileID></ProfileIDs>", true, {""}},
        {"<ProfileIDs><ProfileID>&amp;<b></ProfileID></ProfileIDs>", true, {"&amp;<b>"}},
        {"<ProfileIDs><ProfileID>A<ProfileID>B</ProfileID></ProfileIDs>", true, {"A<ProfileID>B"}},
        {"<ProfileIDs><ProfileID>A</ProfileID>1234567890é😀</ProfileID></ProfileIDs>", true, {"A", "é😀"}},
        {"<ProfileIDs><ProfileID>A</ProfileID>short</ProfileID></ProfileIDs>", true, {"A", ""}},
        {"</ProfileIDs></ProfileID><ProfileIDs<ProfileID>", true, {"Ds>"}},
        {"<ProfileIDs><ProfileID>A</ProfileID>B<ProfileID>C</ProfileIDs>", true, {"A"}},
        {"<ProfileIDs><PROFILEID>A</ProfileID><ProfileID "
         "x='1'>B</ProfileID><ProfileID>C</ProfileID></ProfileIDs>",
         true,
         {"s><PROFILEID>A", "x='1'>B", "C"}},
        {"<!--<ProfileIDs>--><ProfileID>A</ProfileID><ProfileID>a</ProfileID></ProfileIDs>",
         true,
         {"A", "a"}},
        {"", false, {}},
        {"<ProfileIDs></ProfileIDs>", false, {}},
        {"<ProfileID>A</ProfileID></ProfileIDs>", false, {}},
        {"<ProfileIDs><ProfileID>A</ProfileID>", false, {}},
        {"<profileIDs><ProfileID>A</ProfileID></ProfileIDs>", false, {}},
        {"<ProfileIDs><ProfileID >A</ProfileID></ProfileIDs>", false, {}}};
    for (const auto& row : rows) {
        EXPECT_EQ(HoldsProfileIDs(row.text), row.holds) << row.text;
        EXPECT_EQ(ParseProfileIDs(row.text), row.names) << row.text;
    }
}

class NewProfile : public testing::Test {
protected:
    /// What comes of a text that is typed and confirmed: the name, or nothing when it was refused.
    std::optional<std::string> Type(const std::string& text) {
        frmNewProfile form(outside_, captions_);
        host_.ways.clear();
        host_.work = [&](ModalForm&) {
            EXPECT_FALSE(form.cmdOK.Enabled()) << "the box starts empty";
            form.txtName.SetText(text);
            form.GotFocus(form.txtName);
            form.Tick();
            if (form.cmdOK.Enabled()) form.Click(form.cmdOK);
            closed_ = form.Closed();
        };
        std::string name = "untouched";
        const bool accepted = form.GetNewProfile(name, "EnterProfileName", "NewProfile", owner_);
        EXPECT_EQ(accepted, closed_);
        EXPECT_EQ(accepted || text.empty(), host_.Shown().back() == "frmNewProfile")
            << "else a box said why: " << text;
        return accepted ? std::optional(name) : std::nullopt;
    }

    test::TestHost host_;
    Outside outside_{host_, host_};
    CaptionCatalogue captions_;
    Frame frame_{"fraDLV"};
    ModalOwner owner_{frame_};
    bool closed_ = false;
};

TEST_F(NewProfile, RefusesTwelveCharactersAndBlanksAlone) {
    for (const char forbidden : std::string("/\\:*?<>\"|&',")) {
        EXPECT_EQ(Type(std::string("a") + forbidden + "b"), std::nullopt) << forbidden;
        EXPECT_EQ(Type(std::string(1, forbidden)), std::nullopt) << forbidden;
        EXPECT_EQ(Type(std::string("a ") + forbidden), std::nullopt) << forbidden;
    }
    EXPECT_EQ(Type(""), std::nullopt);
    EXPECT_EQ(Type("   "), std::nullopt);
    EXPECT_TRUE(frame_.Enabled());
}

TEST_F(NewProfile, TakesEveryOtherNameWithoutBlanksAtItsEnds) {
    EXPECT_EQ(Type("  Night  shift "), "Night  shift");
    EXPECT_EQ(Type("."), ".");
    EXPECT_EQ(Type("\t"), "\t");
    EXPECT_EQ(Type("Ä😀;!§$%()=[]{}~#+-_^`´"), "Ä😀;!§$%()=[]{}~#+-_^`´");
    EXPECT_EQ(Type(std::string(100'000, 'n')), std::string(100'000, 'n'));
}

}  // namespace

}  // namespace dlv
