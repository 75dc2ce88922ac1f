// What a screen reader is told of the control, by a program that reads it from a process of its own.
#include <commctrl.h>

#include <algorithm>

#include "tests/windows/Dialogs.h"
#include "tests/windows/Keyboard.h"
#include "tests/windows/access/ReaderProgram.h"

namespace dlv::test {
namespace {

constexpr wchar_t kGrid[] = L"DashlonViewerGrid";
constexpr wchar_t kDialogClass[] = L"#32770";

/// Each wanted line begins one that was said, in this order; "..." at the front lets others stand before it.
void ExpectSaid(const Lines& said, const Lines& wanted) {
    std::string all;
    for (const std::string& line : said) all += line + "\n";
    std::size_t next = 0;
    for (const std::string& line : wanted) {
        const bool anywhere = line.starts_with("...");
        const std::string text = anywhere ? line.substr(3) : line;
        while (anywhere && next < said.size() && !said[next].starts_with(text)) ++next;
        ASSERT_TRUE(next < said.size() && said[next].starts_with(text)) << text << "\nin\n" << all;
        ++next;
    }
    if (wanted.front().starts_with("...")) return;
    EXPECT_EQ(next, said.size()) << all;
}

ComPtr<_QZWebMessage> MessageOf(const std::wstring& text) {
    ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    EXPECT_EQ(message->LoadText(_bstr_t(text.c_str())), S_OK);
    return message;
}

std::wstring Replaced(std::wstring text, const std::wstring& old, const std::wstring& with) {
    for (std::size_t at = 0; (at = text.find(old, at)) != std::wstring::npos; at += with.size())
        text.replace(at, old.size(), with);
    return text;
}

/// The sample: "North" and, below it, "South".
class AccessTest : public testing::Test {
protected:
    void SetUp() override {
        control_.StartUp();
        Refill(kSampleMessage);
    }
    void Refill(const std::wstring& message) {
        ASSERT_EQ(Receive(control_.Viewer(), MessageOf(message).Get()), S_OK);
        PumpMessages();
    }
    void StopServer() { Refill(L"<WebMessage Name=\"DLVServerStopped\"><WebData></WebData></WebMessage>"); }
    void ShowHierarchy() {
        SendMessageW(control_.WindowOf(WC_TABCONTROLW), TCM_SETCURFOCUS, 1, 0);
        PumpMessages();
    }
    void ShowPoints() {
        ShowHierarchy();
        Click(FindCaption(Surface(), L"Points"));
        PumpMessages();
    }
    HWND Surface() const { return control_.container.ControlWindow(); }
    HWND Grid() const { return FindClass(Surface(), kGrid); }
    void Press(WPARAM key) const { SendMessageW(Grid(), WM_KEYDOWN, key, 1); }
    Lines Said(const std::string& commands) const { return Read(Surface(), commands); }
    Lines Heard(const std::function<void()>& change) const {
        ReaderProgram reader(Surface(), "events");
        reader.Meanwhile(change);
        return reader.Said();
    }

    HostedControl control_;
};

TEST_F(AccessTest, TheSummaryIsAnOutlineOfItsRows) {
    ExpectSaid(
        Said("grid"),
        {"grid Business Unit Summary", "heading |  | Work Orders | Work Orders |",
         "heading | Job Types and Classes | Open | Warning | Jeopardy | Late |",
         "Total (L1, 1 of 2 with 1) expanded; Job Types and Classes = Total; Work Orders: Open = 1; Work "
         "Orders: Warning = 2;",
         "  Residential (L2, 1 of 1 with 0); Job Types and Classes = Residential; Work Orders: Open = 1;",
         "Install (L1, 2 of 2 with 1) expanded; Job Types and Classes = Install;",
         "  Residential (L2, 1 of 1 with 0);"});
}

TEST_F(AccessTest, TheHierarchyIsAnOutlineOfItsUnits) {
    ShowHierarchy();
    ExpectSaid(
        Said("grid"),
        {"grid Business Unit Hierarchy, Work Orders", "heading |  |  |  |  | Work Orders |",
         "heading | Business Units | Technicians | Hours Remaining | Hours Completed | Open |",
         "Business Units (L1, 1 of 1 with 1) expanded; Business Units = Business Units; Technicians = ;",
         "  North (L2, 1 of 1 with 1) expanded; Business Units = North; Technicians = 7;",
         "    South (L3, 1 of 1 with 0); Business Units = South;"});
    ShowPoints();
    ExpectSaid(Said("grid act 4 grid"),
               {"...grid Business Unit Hierarchy, Points", "...  North (L2, 1 of 1 with 1) expanded;",
                "    South (L3,", "act done", "...  North (L2, 1 of 1 with 1) collapsed;"});
    EXPECT_EQ(Said("grid").size(), 5u) << "what is below a closed node is not displayed";
}

TEST_F(AccessTest, RowsAndCellsLeadToOneAnother) {
    ShowHierarchy();
    ExpectSaid(
        Said("walk hit 4 2"),
        {"first: header", "next: header Business Units", "next: item Business Units = 0 (L1,",
         "right: item North = 1 (L2,", "left: item Business Units = 0", "last: cell Productivity",
         "previous: cell Work Orders: Not Done (Business Units. Not among the chosen units.)",
         "parent: item Business Units = 0 (L1, 1 of 1 with 1) [Collapse] expanded",
         "parent: outline Business Unit Hierarchy, Work Orders", "hit: item North = 1",
         "hit: cell Technicians = 7 (North. Sum over 2 units: North, South.) [View Details]", "hit: itself"});
}

TEST_F(AccessTest, FiguresTellTheirHeadingsAndToolsTheirNames) {
    ExpectSaid(Said("tools windows"),
               {"...button Save [Save]", "button Print [Print]", "menu button Profiles",
                "button About Dashlon Viewer",
                "...Static: text Last refresh time: ", "...DashlonViewerFrame: client Selection Criteria",
                "...SysListView32: client Business Units", "...Button: client Show summary",
                "...Button: client View", "...Static: link Technicians: 4 = 4 [View the technicians]",
                "...Static: text Hours Worked: 16 = 16", "...Static: text Work Orders Done: 5 = 5",
                "...Static: text Work Orders per Hour, Current: 0.31 = 0.31",
                "...Static: text Points per Hour, Required: 1 = 1",
                "...DashlonViewerGrid: outline Business Unit Summary",
                "...Static: text Current profile: Default = Default"});
}

TEST_F(AccessTest, TheStatusLineIsAnnounced) {
    const std::string text = "The data server has stopped. The figures shown are the last ones received.";
    const Lines heard = Heard([&] { StopServer(); });
    EXPECT_EQ(std::ranges::count(heard, "alert alert " + text), 1) << testing::PrintToString(heard);
    ExpectSaid(Said("grid windows"), {"...Total (L1, 1 of 2 with 1) expanded;", "...Static: alert " + text});
    EXPECT_EQ(std::ranges::count(Heard([&] { StopServer(); }), "alert alert " + text), 0)
        << "what stands there already is no news";
}

TEST_F(AccessTest, EveryMoveIsToldOnce) {
    ShowHierarchy();
    control_.container.ActivateUI();
    SetFocus(Grid());
    PumpMessages();
    const auto refill = [&](const wchar_t* technicians) {
        Refill(Replaced(kSampleMessage, L"TechCount=\"4\"", technicians));
    };
    const struct {
        const char* name;
        std::function<void()> change;
        Lines told;
    } moves[] = {
        {"the first row",
         [&] { Press(VK_DOWN); },
         {"selection item Business Units (expanded selected focused)",
          "focus item Business Units (expanded selected focused)"}},
        {"the next row",
         [&] { Press(VK_DOWN); },
         {"selection item North (expanded selected focused)",
          "focus item North (expanded selected focused)"}},
        {"the next column", [&] { Press(VK_RIGHT); }, {"focus cell Technicians = 7 (selected focused)"}},
        {"a node is closed",
         [&] { Press(VK_SUBTRACT); },
         {"reorder outline Business Unit Hierarchy, Work Orders (focused)",
          "state item North (collapsed selected focused)"}},
        {"other figures",
         [&] { refill(L"TechCount=\"9\""); },
         {"reorder outline Business Unit Hierarchy, Work Orders (focused)",
          "value cell Technicians = 12 (selected focused)"}},
        {"no other figures",
         [&] { refill(L"TechCount=\"9\""); },
         {"reorder outline Business Unit Hierarchy, Work Orders (focused)"}},
    };
    for (const auto& move : moves) {
        SCOPED_TRACE(move.name);
        Lines grid;
        for (const std::string& line : Heard(move.change))
            if (line.find(" item ") != std::string::npos || line.find(" cell ") != std::string::npos ||
                line.find(" outline ") != std::string::npos)
                grid.push_back(line);
        EXPECT_EQ(grid, move.told);
    }
    ExpectSaid(Said("focus selection"),
               {"focus: cell Technicians = 12", "selection: item North = 1 (L2, 1 of 1 with 1)"});
}

TEST_F(AccessTest, SeveralSelectedRowsAreToldAsSuch) {
    ShowHierarchy();
    SetFocus(Grid());
    Press(VK_DOWN);
    const Lines heard = Heard([&] {
        const HeldKeys shift(kShift);
        Press(VK_DOWN);
        Press(VK_DOWN);
    });
    ExpectSaid(heard, {"...selection within outline", "...focus item South (selected focused)"});
    ExpectSaid(Said("selection"), {"selection from: item Business Units", "selection of 3"});
    ExpectSaid(Heard([&] { Press(VK_UP); }), {"selection item North", "focus item North"});
    ExpectSaid(Heard([&] {
                   const HeldKeys control(kCtrl);
                   Press('A');
               }),
               {"selection within outline"});
}

TEST(AccessibleLibrary, IsFreeAgainOnceReaderAndControlHaveGone) {
    auto control = std::make_unique<HostedControl>();
    control->StartUp();
    const HWND surface = control->container.ControlWindow();
    ReaderProgram reader(surface, "windows hold 1 1 pause held");
    reader.Meanwhile([&] {
        EXPECT_EQ(control->Viewer()->StopControl(), S_OK);
        control->sink->Disconnect();
        control->viewer.Reset();
        control->container.Remove();
        EXPECT_EQ(CanUnload(), S_FALSE) << "a reader holds objects";
        control.reset();
    });
    ExpectSaid(reader.Said(), {"...held: failed", "held: failed", "held: failed 0x800401FD"});
    EXPECT_TRUE(PumpUntil([] { return CanUnload() == S_OK; }, std::chrono::seconds(2)));
}

TEST_F(AccessTest, AReaderSelectsAndDrillsDown) {
    ShowHierarchy();
    int asked = 0;
    control_.sink->On(2, [&](DISPPARAMS&) { ++asked; });
    ExpectSaid(Said("select 4 2 selection act 4 2 act 4 1 act 3"),
               {"select done", "selection: item North = 1", "act done", "act done", "act done"});
    PumpMessages();
    EXPECT_EQ(asked, 1) << "a name stands for no records";
    ExpectSaid(Said("grid"), {"...Business Units (L1, 1 of 1 with 1) collapsed"});
}

TEST_F(AccessTest, AHeldRowStaysThatRowOrSaysThatItHasGone) {
    ShowHierarchy();
    ReaderProgram reader(Surface(), "hold 4 2 held pause held pause held pause held");
    // Another unit comes in before North; then North goes; then the control itself.
    reader.Meanwhile([&] {
        Refill(Replaced(
            Replaced(kSampleMessage, L"<row BUID=\"40\" BUDesc=\"South\"",
                     L"<row BUID=\"7\" BUDesc=\"East\" ParentBUID=\"#\"/><row BUID=\"40\" BUDesc=\"South\""),
            L"<row BUID=\"40\" BUDesc=\"South\" TechCount",
            L"<row BUID=\"7\" BUDesc=\"East\" TechCount=\"1\" HoursWorked=\"1\" HoursRemaining=\"1\"/>"
            L"<row BUID=\"40\" BUDesc=\"South\" TechCount"));
    });
    reader.Meanwhile([&] { Refill(Replaced(kSampleMessage, L"\"12\"", L"\"13\"")); });
    reader.Meanwhile([&] { control_.container.Deactivate(); });
    ExpectSaid(reader.Said(),
               {"held: item North = 1 (L2, 1 of 1 with 1)", "held: cell Technicians = 7", "held: outline",
                "held: item North = 1 (L2, 2 of 2 with 1)", "held: cell Technicians = 7", "held: outline",
                "held: failed 0x800401FD", "held: failed 0x800401FD", "held: outline",
                "held: failed 0x800401FD", "held: failed 0x800401FD", "held: failed 0x800401FD"});
}

TEST_F(AccessTest, DialogsAreRead) {
    Lines said;
    const DialogWatch watch([&](HWND dialog) {
        said = Read(dialog, "windows");
        EXPECT_EQ(Said("act 3 select 3"), (Lines{"act failed", "select failed"})) << "behind a dialog";
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(Receive(control_.Viewer(), BrokenMessage().Get()), S_OK);
    ExpectSaid(said, {"...Static: text Dashlon Viewer has experienced the following problem:",
                      "...Button: client Continue"});
}

// Every row would be a call and an object each; only those that are asked for are.
TEST_F(AccessTest, OfAHundredThousandRowsOnlyThoseAskedForAreFetched) {
    constexpr int kUnits = 100'000;
    std::wstring units, figures;
    for (int i = 0; i < kUnits; ++i) {
        const std::wstring id = std::to_wstring(100'000 + i);
        units += L"<row BUID=\"" + id + L"\" BUDesc=\"Unit " + id + L"\" ParentBUID=\"#\"/>";
        figures +=
            L"<row BUID=\"" + id + L"\" BUDesc=\"\" TechCount=\"1\" HoursWorked=\"2\" HoursRemaining=\"3\"/>";
    }
    Refill(Replaced(Replaced(kSampleMessage, L"<WebTable Name=\"BusinessUnits\">",
                             L"<WebTable Name=\"BusinessUnits\">" + units),
                    L"<WebTable Name=\"BUGeneralInfo\">", L"<WebTable Name=\"BUGeneralInfo\">" + figures));
    ShowHierarchy();
    // Two header rows, the root, North with its South, and the units: each row that is read with its 12
    // cells.
    ExpectSaid(Said("rows 50000 2 rows 100005 1"),
               {"of 100005", "  Unit 149994 (L2, 49996 of 100001 with 0)",
                "  Unit 149995 (L2, 49997 of 100001 with 0)", "fetched 26", "of 100005",
                "  Unit 199999 (L2, 100001 of 100001 with 0)", "fetched 13"});
    const Lines heard = Heard([&] {
        SetFocus(Grid());
        const HeldKeys control(kCtrl);
        Press(VK_END);
    });
    EXPECT_LE(heard.size(), 4u) << testing::PrintToString(heard);
}

}  // namespace
}  // namespace dlv::test
