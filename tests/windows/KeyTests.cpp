// Who gets a key: the control, its container, or nobody. S_OK means used up, S_FALSE that the host dispatches
// the message as if there were no control.
#include <windows.h>

#include <commctrl.h>
#include <olectl.h>

#include "tests/windows/Keyboard.h"
#include "tests/windows/LateCall.h"

namespace dlv::test {
namespace {

constexpr wchar_t kGrid[] = L"DashlonViewerGrid";

bool IsKeyChange(std::string_view call) { return call == "IOleControlSite.OnControlInfoChanged"; }

/// A control with figures on the screen, active, and what it tells and offers its container.
class KeyTest : public testing::Test {
protected:
    KeyTest() {
        control.container.ControlSite().SetKeyFilter([this](const MSG& message) {
            offered.push_back(message.wParam);
            return takeOffered;
        });
        control.StartUp();
        EXPECT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
        EXPECT_EQ(control.container.ActivateUI(), S_OK);
        offered.clear();
        told = 0;
    }

    HWND Window() const { return control.container.ControlWindow(); }
    void Focus(const wchar_t* name) const {
        const HWND window =
            FindClass(Window(), name) ? FindClass(Window(), name) : FindCaption(Window(), name);
        ASSERT_NE(window, nullptr) << testing::PrintToString(std::wstring(name));
        SetFocus(window);
        ASSERT_EQ(GetFocus(), window);
    }
    HRESULT Translate(MSG message) const {
        return As<IOleInPlaceActiveObject>(control.Viewer())->TranslateAccelerator(&message);
    }
    HRESULT Press(WPARAM key, unsigned held = kNone) const {
        const HeldKeys keys(held);
        return Translate(KeyMessage(held & kAlt ? WM_SYSKEYDOWN : WM_KEYDOWN, key));
    }
    /// Alt and a letter, as a message loop without menus makes it of them.
    HRESULT PressAlt(char letter) const {
        const HRESULT down = Press(static_cast<WPARAM>(letter), kAlt);
        const HeldKeys keys(kAlt);
        return down == S_OK ? down
                            : Translate(KeyMessage(WM_SYSCHAR, static_cast<WPARAM>(letter - 'A' + 'a')));
    }
    std::vector<WPARAM> offered;
    bool takeOffered = false;
    /// How often the container heard that the access keys are others.
    int told = 0;
    CallListener listener{[this](std::string_view call) { told += IsKeyChange(call); }};
    HostedControl control{listener.Recorder()};
};

struct KeyCase {
    const wchar_t* where;
    WPARAM key;
    unsigned held;
    bool used;
    friend std::ostream& operator<<(std::ostream& out, const KeyCase& test) {
        return out << "key " << test.key << " held " << test.held << " in "
                   << testing::PrintToString(std::wstring(test.where));
    }
};

std::vector<KeyCase> AllKeys() {
    std::vector<KeyCase> cases;
    const wchar_t* const everywhere[] = {TOOLBARCLASSNAMEW, WC_LISTVIEWW,   L"Show summary",
                                         L"View",           WC_TABCONTROLW, kGrid};
    for (const wchar_t* where : everywhere) {
        // The tool bar stands first, the grid last.
        cases.push_back({where, VK_TAB, kNone, where != kGrid});
        cases.push_back({where, VK_TAB, kShift, where != everywhere[0]});
        for (const unsigned held : {0u + kCtrl, kCtrl | kShift})
            cases.push_back({where, VK_TAB, held, false});
        for (const WPARAM key : {VK_ESCAPE, VK_F1, VK_F5, VK_F12, VK_SPACE, VK_DELETE})
            cases.push_back({where, key, kNone, false});
        cases.push_back({where, 'S', kCtrl, false});
        cases.push_back({where, 'Q', kNone, false});
        cases.push_back({where, VK_F4, kAlt, false});
    }
    for (const WPARAM key : {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT})
        for (const wchar_t* where : {WC_LISTVIEWW, L"Show summary", WC_TABCONTROLW, kGrid})
            cases.push_back({where, key, kNone, true});
    for (const WPARAM key : {VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_ADD, VK_SUBTRACT, VK_MULTIPLY, VK_BACK})
        cases.push_back({kGrid, key, kNone, true});
    for (const WPARAM key : {VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_UP, VK_DOWN})
        cases.push_back({kGrid, key, kCtrl, true});
    for (const WPARAM key : {VK_LEFT, VK_RIGHT, VK_RETURN})
        cases.push_back({TOOLBARCLASSNAMEW, key, kNone, true});
    cases.push_back({kGrid, VK_RETURN, kNone, true});
    cases.push_back({kGrid, VK_RETURN, kCtrl, false});
    cases.push_back({L"View", VK_RETURN, kNone, true});
    for (const wchar_t* where : {WC_LISTVIEWW, L"Show summary", WC_TABCONTROLW})
        cases.push_back({where, VK_RETURN, kNone, false});
    return cases;
}

TEST_F(KeyTest, EveryKeyIsUsedUpOrOfferedToTheContainerAndThenLeftToTheHost) {
    for (const KeyCase& row : AllKeys()) {
        SCOPED_TRACE(row);
        offered.clear();
        takeOffered = false;
        Focus(row.where);
        EXPECT_EQ(Press(row.key, row.held), row.used ? S_OK : S_FALSE);
        EXPECT_EQ(offered.size(), row.used ? 0u : 1u);
        takeOffered = true;
        Focus(row.where);
        EXPECT_EQ(Press(row.key, row.held), S_OK) << "a key that the container takes is used up";
    }
}

TEST_F(KeyTest, TabWalksThroughInBothDirectionsAndLeavesAtTheEnds) {
    SetFocus(FindClass(Window(), TOOLBARCLASSNAMEW));
    std::vector<HWND> forward{GetFocus()};
    while (Press(VK_TAB) == S_OK && forward.size() < 20) forward.push_back(GetFocus());
    ASSERT_EQ(forward.size(), 6u);
    EXPECT_EQ(forward.back(), FindClass(Window(), kGrid));
    EXPECT_EQ(GetFocus(), forward.back()) << "where it leaves it stays until the host moves it";
    std::vector<HWND> backward{GetFocus()};
    while (Press(VK_TAB, kShift) == S_OK && backward.size() < 20) backward.push_back(GetFocus());
    EXPECT_TRUE(std::equal(forward.rbegin(), forward.rend(), backward.begin(), backward.end()));
}

TEST_F(KeyTest, TheContainerTakesTheFocusOnWhereTabLeaves) {
    std::vector<container::Direction> left;
    control.container.SetTabOut([&](container::Direction direction) {
        left.push_back(direction);
        return true;
    });
    Focus(kGrid);
    MSG message = KeyMessage(WM_KEYDOWN, VK_TAB);
    EXPECT_TRUE(control.container.TranslateKey(message));
    Focus(TOOLBARCLASSNAMEW);
    {
        const HeldKeys keys(kShift);
        message = KeyMessage(WM_KEYDOWN, VK_TAB);
        EXPECT_TRUE(control.container.TranslateKey(message));
    }
    EXPECT_EQ(left, (std::vector{container::Direction::Forward, container::Direction::Backward}));
}

TEST_F(KeyTest, AMessageThatTheContainerRefusedIsNotOfferedAgainWhenItIsDispatched) {
    Focus(kGrid);
    const MSG message = KeyMessage(WM_KEYDOWN, VK_TAB);
    EXPECT_EQ(Translate(message), S_FALSE);
    EXPECT_EQ(offered, (std::vector<WPARAM>{VK_TAB}));
    // As if it went its way without anybody asking the control before.
    SendMessageW(message.hwnd, message.message, VK_TAB, 0x000F0001);
    EXPECT_EQ(offered.size(), 2u);
    EXPECT_EQ(GetFocus(), FindClass(Window(), TOOLBARCLASSNAMEW)) << "with nowhere else to go, around";
}

TEST_F(KeyTest, OnlyKeyMessagesOfItsOwnWindowsAreTheControls) {
    Focus(kGrid);
    MSG message = KeyMessage(WM_KEYDOWN, VK_DOWN);
    message.hwnd = control.window.Handle();
    EXPECT_EQ(Translate(message), S_FALSE);
    offered.clear();
    EXPECT_EQ(Translate({GetFocus(), WM_MOUSEMOVE, 0, 0, 1, {}}), S_FALSE);
    EXPECT_EQ(Translate({GetFocus(), WM_KEYUP, VK_DOWN, 1, 2, {}}), S_FALSE);
    EXPECT_TRUE(offered.size() <= 1);
    EXPECT_EQ(As<IOleInPlaceActiveObject>(control.Viewer())->TranslateAccelerator(nullptr), E_POINTER);
}

/// The letters that GetControlInfo gives out.
std::wstring AccessKeysOf(_DLViewer* viewer) {
    CONTROLINFO info{};
    info.cb = sizeof info;
    EXPECT_EQ(As<IOleControl>(viewer)->GetControlInfo(&info), S_OK);
    std::wstring letters;
    std::vector<ACCEL> table(info.cAccel);
    const int copied =
        info.hAccel == nullptr ? 0 : CopyAcceleratorTableW(info.hAccel, table.data(), info.cAccel);
    EXPECT_EQ(copied, static_cast<int>(info.cAccel));
    for (const ACCEL& entry : table)
        if (entry.fVirt == (FVIRTKEY | FALT)) letters += static_cast<wchar_t>(entry.key);
    return letters;
}

struct LanguageCase {
    const wchar_t* language;
    const wchar_t* letters;  // on the first tab: list, options, View, technicians, tabs
    friend void PrintTo(const LanguageCase& test, std::ostream* out) {
        *out << testing::PrintToString(std::wstring(test.language));
    }
};

class AccessKeysIn : public testing::TestWithParam<LanguageCase> {};

TEST_P(AccessKeysIn, AreLettersOfTheCaptionsThatAreShown) {
    int told = 0;
    const CallListener listener([&](std::string_view call) { told += IsKeyChange(call); });
    HostedControl control(listener.Recorder());
    EXPECT_EQ(AccessKeysOf(control.Viewer()), L"") << "before there are captions";
    const auto transport = container::Make<ScriptObject>();
    transport->On(L"LanguageID",
                  [](auto&, VARIANT& result) { return Return(result, _variant_t(GetParam().language)); });
    ASSERT_EQ(Initialize(control.Viewer(), transport.Get()), S_OK);
    EXPECT_EQ(told, 1);
    std::wstring letters = AccessKeysOf(control.Viewer());
    // View works only once there are data.
    EXPECT_EQ(letters.size(), 6u);
    ASSERT_EQ(SetSessionUnits(control.Viewer(), {L"12", L"40"}), S_OK);
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    EXPECT_EQ(told, 2);
    letters = AccessKeysOf(control.Viewer());
    EXPECT_EQ(letters, GetParam().letters);
    EXPECT_EQ(control.Viewer()->StopControl(), S_OK);
    EXPECT_EQ(told, 3);
    EXPECT_EQ(AccessKeysOf(control.Viewer()), L"") << "and behind the stop";
}

INSTANTIATE_TEST_SUITE_P(Languages, AccessKeysIn,
                         testing::Values(LanguageCase{L"EN", L"BSAVTUH"}, LanguageCase{L"PO", L"UMRETDH"},
                                         LanguageCase{L"SP", L"UMRVTNJ"}));

struct PressCase {
    char letter;
    const wchar_t* focus;  // caption or class of the window with the focus afterwards
    DISPID event;          // 0: none
    friend void PrintTo(const PressCase& test, std::ostream* out) { *out << test.letter; }
};

class AccessKeyPressed : public KeyTest, public testing::WithParamInterface<PressCase> {
protected:
    void ExpectDone(DISPID event) const {
        EXPECT_EQ(event, GetParam().event);
        const std::wstring focus = GetParam().focus;
        if (focus.empty()) return;
        const HWND wanted = FindClass(Window(), focus.c_str()) ? FindClass(Window(), focus.c_str())
                                                               : FindCaption(Window(), focus);
        EXPECT_EQ(GetFocus(), wanted);
    }
};

TEST_P(AccessKeyPressed, DoesWhatItLeadsTo) {
    DISPID event = 0;
    control.sink->On(2, [&](DISPPARAMS&) { event = 2; });
    EXPECT_EQ(PressAlt(GetParam().letter), S_OK);
    ExpectDone(event);
}

TEST_P(AccessKeyPressed, DoesSoWhenTheContainerFindsItWhileTheControlIsNotActive) {
    DISPID event = 0;
    control.sink->On(2, [&](DISPPARAMS&) { event = 2; });
    ASSERT_EQ(As<IOleInPlaceObject>(control.Viewer())->UIDeactivate(), S_OK);
    SetFocus(control.window.Handle());
    const HeldKeys keys(kAlt);
    MSG message = KeyMessage(WM_SYSKEYDOWN, static_cast<WPARAM>(GetParam().letter));
    EXPECT_TRUE(control.container.TranslateKey(message));
    ExpectDone(event);
}

INSTANTIATE_TEST_SUITE_P(Letters, AccessKeyPressed,
                         testing::Values(PressCase{'B', WC_LISTVIEWW, 0}, PressCase{'S', L"Show summary", 0},
                                         PressCase{'A', L"Show aggregate summary", 0},
                                         PressCase{'V', L"View", 0}, PressCase{'T', L"", 2},
                                         PressCase{'H', WC_TABCONTROLW, 0}));

TEST_F(KeyTest, ATabsKeyShowsItsPageWhoseKeysTheContainerHearsOf) {
    EXPECT_EQ(AccessKeysOf(control.Viewer()), L"BSAVTUH");
    EXPECT_EQ(PressAlt('H'), S_OK);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(AccessKeysOf(control.Viewer()), L"BSAVTUHWP");
    EXPECT_EQ(PressAlt('P'), S_OK);
    EXPECT_EQ(GetFocus(), FindCaption(Window(), L"Points"));
    EXPECT_EQ(SendMessageW(GetFocus(), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(PressAlt('X'), S_FALSE);
}

TEST_F(KeyTest, KeysThatLeadNowhereAreNotTheControls) {
    const auto oleControl = As<IOleControl>(control.Viewer());
    MSG message = KeyMessage(WM_SYSKEYDOWN, 'X');
    EXPECT_EQ(oleControl->OnMnemonic(&message), S_FALSE);
    message = KeyMessage(WM_SYSKEYDOWN, 'P');
    EXPECT_EQ(oleControl->OnMnemonic(&message), S_FALSE) << "on the other tab";
    message = KeyMessage(WM_LBUTTONDOWN, 'B');
    EXPECT_EQ(oleControl->OnMnemonic(&message), S_FALSE);
    EXPECT_EQ(oleControl->OnMnemonic(nullptr), E_POINTER);
    EXPECT_EQ(oleControl->GetControlInfo(nullptr), E_POINTER);
}

TEST_F(KeyTest, EnterBelongsToTheControlAndEscToTheContainer) {
    CONTROLINFO info{};
    info.cb = sizeof info;
    ASSERT_EQ(As<IOleControl>(control.Viewer())->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.dwFlags, static_cast<DWORD>(CTRLINFO_EATS_RETURN));
}

}  // namespace
}  // namespace dlv::test
