// A host that ends things at the worst moment: inside an event, and while a dialog of the control is open.
#include "tests/windows/Dialogs.h"

namespace dlv::test {
namespace {

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

constexpr std::chrono::seconds kBound{10};

class InsideEvent : public testing::TestWithParam<std::tuple<Ending, DISPID>> {};

TEST_P(InsideEvent, EndsWhatRunsAndLeavesNothingBehind) {
    const auto started = std::chrono::steady_clock::now();
    const auto& [ending, event] = GetParam();
    int eventsAfter = 0;
    bool ended = false;
    {
        HostedControl control;
        for (DISPID id = 1; id <= 8; ++id)
            control.sink->On(id, [&, id](DISPPARAMS&) {
                if (ended) ++eventsAfter;
                if (ended || id != event) return;
                ended = true;
                ending.act(control);
            });
        for (const auto& step : kSteps) {
            if (ended || !control.viewer) break;
            step(control);
        }
        EXPECT_TRUE(ended) << "the event never came";
        EXPECT_EQ(eventsAfter, 0);
        PumpMessages();
    }
    PumpMessages();
    EXPECT_EQ(CanUnload(), S_OK);
    EXPECT_EQ(container::liveObjects, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - started, kBound);
}

constexpr DISPID kPostRequest = 1, kGetDetails = 2, kGetProfiles = 3, kGetProfileList = 4, kPutProfiles = 5;
INSTANTIATE_TEST_SUITE_P(Endings, InsideEvent,
                         testing::Combine(testing::ValuesIn(kEndings),
                                          testing::Values(kPostRequest, kGetDetails, kGetProfiles,
                                                          kGetProfileList, kPutProfiles)));

class InsideDialog : public testing::TestWithParam<Ending> {};

TEST_P(InsideDialog, ClosesItAndReturns) {
    const auto started = std::chrono::steady_clock::now();
    int dialogs = 0;
    {
        HostedControl control;
        control.StartUp();
        _DLViewer* const viewer = control.Viewer();
        const ComPtr<_QZWebMessage> message = BrokenMessage();
        const DialogWatch watch([&](HWND) {
            if (++dialogs == 1) GetParam().act(control);
        });
        EXPECT_EQ(Receive(viewer, message.Get()), S_OK);
        EXPECT_EQ(OpenDialog(), nullptr);
        EXPECT_FALSE(control.container.HostFrame().IsModal());
        PumpMessages();
    }
    EXPECT_EQ(dialogs, 1);
    PumpMessages();
    EXPECT_EQ(CanUnload(), S_OK);
    EXPECT_EQ(container::liveObjects, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - started, kBound);
}

INSTANTIATE_TEST_SUITE_P(Endings, InsideDialog, testing::ValuesIn(kEndings));

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
