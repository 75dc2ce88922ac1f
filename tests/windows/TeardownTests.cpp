// A host that ends things at the worst moment: inside an event, and while a dialog of the control is open.
#include <commctrl.h>

#include "tests/windows/Dialogs.h"

namespace dlv::test {
namespace {

constexpr wchar_t kBothNames[] =
    L"<WebData><ProfileIDs><ProfileID>Default</ProfileID><ProfileID>Other</ProfileID></ProfileIDs></WebData>";

/// What the host does.
struct Ending {
    const char* name;
    std::function<void(HostedControl& control)> act;
    friend void PrintTo(const Ending& ending, std::ostream* out) { *out << ending.name; }
};

const Ending kEndings[] = {
    {"StopControl", [](HostedControl& c) { EXPECT_EQ(c.Viewer()->StopControl(), S_OK); }},
    {"Release",
     [](HostedControl& c) {
         c.sink->Disconnect();
         c.container.Remove();
         c.viewer.Reset();
     }},
    {"ReleaseWithoutClosing",
     [](HostedControl& c) {
         c.sink->Disconnect();
         As<IOleObject>(c.Viewer())->SetClientSite(nullptr);
         c.container.Remove();
         c.viewer.Reset();
     }},
    {"SetClientSiteNull",
     [](HostedControl& c) { EXPECT_EQ(As<IOleObject>(c.Viewer())->SetClientSite(nullptr), S_OK); }},
    {"CloseAndLeave", [](HostedControl& c) { c.container.Remove(); }},
    {"DestroyParentWindow", [](HostedControl& c) { c.window.Destroy(); }},
    {"DestroyParentWindowAndRelease",
     [](HostedControl& c) {
         c.window.Destroy();
         c.sink->Disconnect();
         c.container.Remove();
         c.viewer.Reset();
     }},
};

/// What the host does, step by step; each on its own, as the control may be gone after any.
const std::function<void(HostedControl&)> kSteps[] = {
    [](HostedControl& c) { Initialize(c.Viewer()); },
    [](HostedControl& c) {
        SetSessionUnits(c.Viewer(), {L"12", L"40"});
    },
    [](HostedControl& c) {
        AnswerProfiles(c.Viewer(), L"<WebData><ProfileIDs></ProfileIDs></WebData>", L"GetProfileList");
    },
    [](HostedControl& c) { AnswerProfiles(c.Viewer(), L"<WebData></WebData>", L"GetProfiles"); },
    [](HostedControl& c) { Receive(c.Viewer(), SampleMessage().Get()); },
    [](HostedControl& c) {
        const HWND window = c.container.ControlWindow();
        const HWND label = window == nullptr ? nullptr : FindChild(window, L"Technicians");
        if (label != nullptr) Click(label);
    },
};

/// A host that does not end the control, but uses it when it does not expect that.
const Ending kMeddlings[] = {
    {"Nothing", [](HostedControl&) {}},
    {"SendData",
     [](HostedControl& c) {
         Receive(c.Viewer(), SampleMessage().Get());
         Receive(c.Viewer(), BrokenMessage().Get());
     }},
    {"AnswerEverything",
     [](HostedControl& c) {
         for (const wchar_t* function : {L"GetProfileList", L"GetProfiles", L"PutProfiles", L"SaveProfileAs",
                                         L"AddProfiles", L"RemoveProfiles"})
             for (const wchar_t* result :
                  {kBothNames, L"<WebProfiles><WebProfile Name=\"Other\"/></WebProfiles>", L"<WebData>", L""})
                 AnswerProfiles(c.Viewer(), result, function);
     }},
    {"CallEverything",
     [](HostedControl& c) {
         Initialize(c.Viewer());
         SetSessionUnits(c.Viewer(), {L"12"});
         c.Viewer()->ResizeControls();
         _bstr_t language(L"PO");
         BSTR text = language.GetBSTR();
         c.Viewer()->SetRegionalFormatInfo(&text);
         c.container.SetPlace({0, 0, 500, 300});
     }},
};

/// Where a host may do so: inside the event of that number, or else, once the acts have been done, when the
/// next menu or dialog opens.
struct Moment {
    const char* name;
    void (*begin)(HostedControl& control);
    std::vector<Person::Act> acts;
    DISPID event = 0;
    friend void PrintTo(const Moment& moment, std::ostream* out) { *out << moment.name; }
};

void StartUpStepByStep(HostedControl& control) {
    for (const auto& step : kSteps)
        if (control.viewer) step(control);
}

void OpenProfiles(HostedControl& control) {
    control.StartUp();
    Receive(control.Viewer(), SampleMessage().Get());
    AnswerProfiles(control.Viewer(), kBothNames, L"AddProfiles");
    SetFocus(control.WindowOf(WC_LISTVIEWW));
    Press(control, Tool::Profiles);
}

void OpenProfilesWithoutAny(HostedControl& control) {
    control.StartUp();
    Receive(control.Viewer(), SampleMessage().Get());
    AnswerProfiles(control.Viewer(), kBothNames, L"RemoveProfiles");
    SetFocus(control.WindowOf(WC_LISTVIEWW));
    Press(control, Tool::Profiles);
}

void FailToLoad(HostedControl& control) {
    control.StartUp();
    SetFocus(control.WindowOf(WC_LISTVIEWW));
    Receive(control.Viewer(), BrokenMessage().Get());
}

void OpenAboutBox(HostedControl& control) {
    control.StartUp();
    Receive(control.Viewer(), SampleMessage().Get());
    SetFocus(control.WindowOf(WC_LISTVIEWW));
    Press(control, Tool::About);
}

const Person::Act kManage = Person::Keys({VK_UP, VK_RETURN});
const Person::Act kSaveAs = Person::Keys({VK_UP, VK_UP, VK_RETURN});
const Person::Act kSave = Person::Keys({VK_UP, VK_UP, VK_UP, VK_RETURN});
const Person::Act kNew = Person::Press(L"New");

constexpr DISPID kPostRequest = 1, kGetDetails = 2, kGetProfiles = 3, kGetProfileList = 4, kPutProfiles = 5,
                 kAddProfiles = 6, kRemoveProfiles = 7, kSaveProfileAs = 8;

const Moment kMoments[] = {
    {"PostRequest", StartUpStepByStep, {}, kPostRequest},
    {"GetDetails", StartUpStepByStep, {}, kGetDetails},
    {"GetProfiles", StartUpStepByStep, {}, kGetProfiles},
    {"GetProfileList", StartUpStepByStep, {}, kGetProfileList},
    {"PutProfiles", StartUpStepByStep, {}, kPutProfiles},
    {"SaveFromMenu", OpenProfiles, {kSave}, kPutProfiles},
    {"ChooseFromMenu", OpenProfiles, {Person::Keys({VK_DOWN, VK_RIGHT, VK_DOWN, VK_RETURN})}, kGetProfiles},
    {"SaveAs", OpenProfiles, {kSaveAs, Person::Name(L"New one")}, kSaveProfileAs},
    {"Choose", OpenProfiles, {kManage, Person::Line(1, L"Choose")}, kGetProfiles},
    {"Add", OpenProfiles, {kManage, kNew, Person::Name(L"New one")}, kAddProfiles},
    {"Remove", OpenProfiles, {kManage, Person::Line(1, L"Remove"), Person::Press(L"Yes")}, kRemoveProfiles},
    {"ErrorDialog", FailToLoad, {}},
    {"AboutBox", OpenAboutBox, {}},
    {"Menu", OpenProfiles, {}},
    {"SaveAsDialog", OpenProfiles, {kSaveAs}},
    {"BadNameBox", OpenProfiles, {kSaveAs, Person::Name(L"a:b")}},
    {"OverwriteBox", OpenProfiles, {kSaveAs, Person::Name(L"other")}},
    {"ManageDialog", OpenProfiles, {kManage}},
    {"NoProfilesBox", OpenProfilesWithoutAny, {kManage}},
    {"NewDialog", OpenProfiles, {kManage, kNew}},
    {"BadNewNameBox", OpenProfiles, {kManage, kNew, Person::Name(L"?")}},
    {"ExistsBox", OpenProfiles, {kManage, kNew, Person::Name(L"OTHER")}},
    {"CannotRemoveBox", OpenProfiles, {kManage, Person::Line(0, L"Remove")}},
    {"RemoveBox", OpenProfiles, {kManage, Person::Line(1, L"Remove")}},
};

HANDLE ActiveContext() {
    HANDLE context = nullptr;
    GetCurrentActCtx(&context);
    ReleaseActCtx(context);
    return context;
}

constexpr std::chrono::seconds kBound{10};

/// Lets the host act at the moment, and looks whether all comes back.
class HostAt : public testing::TestWithParam<std::tuple<Moment, Ending>> {
protected:
    enum class Then { Gone, Usable };
    void ActAtTheMoment(Then then);
    void LookAtWhatIsLeft(HostedControl& control, Then then) const;
};

void HostAt::LookAtWhatIsLeft(HostedControl& control, Then then) const {
    EXPECT_EQ(OpenDialog(), nullptr);
    EXPECT_EQ(OpenMenu(), nullptr);
    EXPECT_FALSE(control.container.HostFrame().IsModal());
    const HWND host = control.window.Handle();
    EXPECT_TRUE(host == nullptr || IsWindowEnabled(host) != FALSE);
    if (then == Then::Gone) return;
    const HWND list = control.WindowOf(WC_LISTVIEWW);
    for (HWND window = list; window != nullptr; window = GetAncestor(window, GA_PARENT))
        EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_TRUE(std::get<Moment>(GetParam()).begin == StartUpStepByStep || GetFocus() == list);
}

void HostAt::ActAtTheMoment(Then then) {
    const auto started = std::chrono::steady_clock::now();
    const auto& [moment, act] = GetParam();
    const HANDLE context = ActiveContext();
    int eventsAfter = 0;
    bool acted = false;
    {
        HostedControl control;
        Person* user = nullptr;
        const auto now = [&, &ending = act] {
            acted = true;
            EXPECT_EQ(ActiveContext(), context) << "the host is called in a context of the control's";
            if (then == Then::Usable) user->CloseAll();
            ending.act(control);
        };
        for (DISPID id = 1; id <= 8; ++id)
            control.sink->On(id, [&, id, wanted = moment.event](DISPPARAMS&) {
                if (acted) ++eventsAfter;
                if (!acted && id == wanted && user->Done()) now();
            });
        std::vector<Person::Act> acts = moment.acts;
        if (moment.event == 0)
            acts.emplace_back([&](HWND) {
                now();
                return true;
            });
        Person person(acts);
        user = &person;
        moment.begin(control);
        EXPECT_TRUE(acted) << "the moment never came";
        LookAtWhatIsLeft(control, then);
        EXPECT_TRUE(then == Then::Usable || eventsAfter == 0);
        PumpMessages();
    }
    PumpMessages();
    EXPECT_EQ(CanUnload(), S_OK);
    EXPECT_EQ(container::liveObjects, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - started, kBound);
}

class HostEndsAt : public HostAt {};
TEST_P(HostEndsAt, EverythingEndsAndNothingIsLeft) { ActAtTheMoment(Then::Gone); }
INSTANTIATE_TEST_SUITE_P(Endings, HostEndsAt,
                         testing::Combine(testing::ValuesIn(kMoments), testing::ValuesIn(kEndings)));

class HostMeddlesAt : public HostAt {};
TEST_P(HostMeddlesAt, TheControlStaysUsable) { ActAtTheMoment(Then::Usable); }
INSTANTIATE_TEST_SUITE_P(Meddlings, HostMeddlesAt,
                         testing::Combine(testing::ValuesIn(kMoments), testing::ValuesIn(kMeddlings)));

TEST(Teardown, ADialogDisablesTheHostAndTellsItsFrameForAsLongAsItIsOpen) {
    HostedControl control;
    control.StartUp();
    bool modal = false;
    bool enabled = true;
    const DialogWatch watch([&](HWND dialog) {
        modal = control.container.HostFrame().IsModal();
        enabled = IsWindowEnabled(control.window.Handle()) != FALSE;
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), control.window.Handle());
        // Messages that arrive meanwhile are dropped while the control is busy.
        EXPECT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    ASSERT_EQ(Receive(control.Viewer(), BrokenMessage().Get()), S_OK);
    EXPECT_TRUE(modal);
    EXPECT_FALSE(enabled);
    EXPECT_FALSE(control.container.HostFrame().IsModal());
    EXPECT_TRUE(IsWindowEnabled(control.window.Handle()));
    EXPECT_EQ(control.ListedUnits(), 0u);
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    EXPECT_EQ(control.ListedUnits(), 2u);
}

}  // namespace
}  // namespace dlv::test
