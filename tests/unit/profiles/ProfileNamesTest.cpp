// Names of profiles: read from a host's list, and what a person does with them in the two dialogs.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "profiles/ProfileIDList.h"
#include "profiles/frmNewProfile.h"
#include "profiles/frmProfiles.h"
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

class ProfileDialog : public testing::Test {
protected:
    test::TestHost host_;
    Outside outside_{host_, host_};
    CaptionCatalogue captions_;  // gives keys
    Frame frame_{"fraDLV"};
    ModalOwner owner_{frame_};
};

class NewProfile : public ProfileDialog {
protected:
    /// What comes of a text that is typed and confirmed: the name, or nothing when it was refused.
    std::optional<std::string> Type(const std::string& text) {
        frmNewProfile form(outside_, captions_);
        host_.ways.clear();
        host_.work = [&](ModalForm&) {
            EXPECT_FALSE(form.cmdOK.Enabled()) << "the box starts empty";
            EXPECT_FALSE(frame_.Enabled());
            EXPECT_EQ(
                form.Caption() + form.lblIntro.Caption() + form.cmdOK.Caption() + form.cmdCancel.Caption(),
                "NewProfileEnterProfileNameOKCancel");
            form.txtName.SetText(text);
            form.txtName.Select(1, 0);
            form.GotFocus(form.txtName);
            EXPECT_EQ(form.txtName.SelectionStart(), 0u);
            EXPECT_EQ(form.txtName.SelectionLength(), ToUtf16(text).size());
            form.Tick();
            if (form.cmdOK.Enabled()) form.Click(form.cmdOK);
            closed_ = form.Closed();
        };
        std::string name = "untouched";
        const bool accepted = form.GetNewProfile(name, "EnterProfileName", "NewProfile", owner_);
        EXPECT_EQ(accepted, closed_);
        EXPECT_TRUE(frame_.Enabled());
        EXPECT_EQ(accepted || text.empty(), host_.Shown().back() == "frmNewProfile")
            << "else a box said why: " << text;
        return accepted ? std::optional(name) : std::nullopt;
    }

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
}

TEST_F(NewProfile, TakesEveryOtherNameWithoutBlanksAtItsEnds) {
    EXPECT_EQ(Type("  Night  shift "), "Night  shift");
    EXPECT_EQ(Type("."), ".");
    EXPECT_EQ(Type("\t"), "\t");
    EXPECT_EQ(Type("Ä😀;!§$%()=[]{}~#+-_^`´"), "Ä😀;!§$%()=[]{}~#+-_^`´");
    EXPECT_EQ(Type(std::string(100'000, 'n')), std::string(100'000, 'n'));
}

class ManageProfiles : public ProfileDialog {};

TEST_F(ManageProfiles, TellsOneDecisionAndClosesOrSaysInABoxWhyNot) {
    using Names = std::vector<std::string>;
    using Press = Button frmProfiles::*;
    const auto ask = MessageBox::Buttons::YesNo;
    const struct {
        Names names;
        const char* current;
        int selected;
        Press press;
        const char* told = "";
        const char* box = "";
        MessageBox::Icon icon = MessageBox::Icon::None;
        MessageBox::Buttons buttons = MessageBox::Buttons::Ok;
        Answer answer = Answer::Yes;
    } rows[] = {{{"b", "Day"}, "Day", 1, &frmProfiles::cmdChoose, "choose Day"},
                {{"b", "Day"}, "day", 0, &frmProfiles::cmdChoose, "choose b"},
                {{"b", "Day"}, "", 0, &frmProfiles::cmdClose},
                {{"Day"}, "x", 0, &frmProfiles::cmdNew, "add New one"},
                {{"dEFAULT"}, "", 0, &frmProfiles::cmdRemove, "", "CannotRemoveProfile"},
                {{"Day"}, "Day", 0, &frmProfiles::cmdRemove, "", "CannotRemoveProfile"},
                {{"new ONE"}, "x", 0, &frmProfiles::cmdNew, "", "ProfileExists"},
                {{"Day"},
                 "day",
                 0,
                 &frmProfiles::cmdRemove,
                 "remove Day",
                 "CheckRemoveProfile",
                 MessageBox::Icon::Question,
                 ask},
                {{"Day"},
                 "x",
                 0,
                 &frmProfiles::cmdRemove,
                 "",
                 "CheckRemoveProfile",
                 MessageBox::Icon::Question,
                 ask,
                 Answer::No},
                {{}, "x", -1, &frmProfiles::cmdClose, "", "CreateOneProfile", MessageBox::Icon::Information}};
    for (const auto& row : rows) {
        std::string told;
        frmProfiles form(outside_, captions_,
                         {[&](const std::string& name) { told = "add " + name; },
                          [&](const std::string& name) { told = "remove " + name; },
                          [&](const std::string& name) { told = "choose " + name; }});
        Dictionary names(KeyCompare::IgnoreCase);
        for (const std::string& name : row.names) names.Add(name);
        host_.lastBox = {};
        host_.answer = row.answer;
        host_.work = [&](ModalForm& shown) {
            EXPECT_FALSE(frame_.Enabled());
            if (&shown != &form) {
                static_cast<TextBox&>(*shown.Find("txtName")).SetText("New one");
                shown.Click(static_cast<Button&>(*shown.Find("cmdOK")));
                return;
            }
            EXPECT_EQ(form.Caption() + form.cmdChoose.Caption() + form.cmdNew.Caption() +
                          form.cmdRemove.Caption() + form.cmdClose.Caption(),
                      "ProfilesChooseNewRemoveClose");
            EXPECT_EQ(form.lstProfiles.ListIndex(), row.selected);
            for (const int index : {-1, row.selected}) {
                form.lstProfiles.SetListIndex(index);
                form.Tick();
                EXPECT_EQ(form.cmdChoose.Enabled(), index >= 0);
                EXPECT_EQ(form.cmdRemove.Enabled(), index >= 0);
            }
            form.Click(form.*row.press);
        };
        form.GetProfile(names, row.current, owner_);
        EXPECT_EQ(told, row.told);
        EXPECT_EQ(form.Closed(), *row.told != '\0' || row.press == &frmProfiles::cmdClose) << row.box;
        EXPECT_EQ(host_.lastBox.text, row.box);
        EXPECT_EQ(host_.lastBox.icon, row.icon) << row.box;
        EXPECT_EQ(host_.lastBox.buttons, row.buttons) << row.box;
        EXPECT_TRUE(frame_.Enabled());
    }
}

}  // namespace

}  // namespace dlv
