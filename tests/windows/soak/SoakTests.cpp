// Thousands of lives and refreshes of the control, after which the process holds what it held before. Each
// detector is shown to detect.
#include "tests/windows/Resources.h"
#include "tests/windows/Support.h"
#include "tests/windows/soak/Ledger.h"

namespace dlv::test {
namespace {

/// A number that ./dev soak sets, or the one for every run of the tests.
int Count(const char* variable, int otherwise) {
    const char* text = std::getenv(variable);
    return text == nullptr ? otherwise : std::atoi(text);
}

const int kLives = Count("DLV_SOAK_LIVES", 2'000);
const int kRefreshes = Count("DLV_SOAK_REFRESHES", 20'000);
/// One in so many lives and refreshes happens in a window, which takes many times as long.
const int kShareInWindow = Count("DLV_SOAK_WINDOWS", 10);
constexpr int kLoads = 1'000;

/// What may be left behind.
struct Residue {
    std::size_t blocks = 0;
    std::size_t bytes = 0;
    std::size_t handles = 0;
};

/// Compares what the process holds at its making and now, to the byte.
class Growth {
public:
    Growth() : before_(Resources::Now()), hidden_(HiddenUse::Now()) {}

    std::string SinceThen(const Residue& forgiven = {}) {
        const Resources now = Resources::Now();
        Resources before = before_;
        before.Forgive(labels_.Blocks() + forgiven.blocks, labels_.Bytes() + forgiven.bytes);
        std::string grown = now.LeakedSince(before);
        const HiddenUse hidden = HiddenUse::Now();
        const auto add = [&](std::size_t earlier, std::size_t later, const char* what) {
            if (later > earlier)
                grown += std::string(what) + " from " + std::to_string(earlier) + " to " +
                         std::to_string(later) + "; ";
        };
        // Handles are numbered by fours.
        add(hidden_.nextThreadSlot, hidden.nextThreadSlot, "thread slots");
        add(hidden_.nextHandle + 4 * forgiven.handles, hidden.nextHandle, "handles");
        return grown;
    }

private:
    LabelResidue labels_;
    Resources before_;
    HiddenUse hidden_;
};

std::wstring MessageText(int figure) {
    std::wstring text = kSampleMessage;
    const std::wstring field = L"TechCount=\"4\"";
    const std::size_t at = text.find(field);
    text.replace(at, field.size(), L"TechCount=\"" + std::to_wstring(figure) + L"\"");
    return text;
}

void Refresh(_DLViewer* viewer, int figure) {
    const ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    ASSERT_EQ(message->LoadText(_bstr_t(MessageText(figure).c_str())), S_OK);
    ASSERT_EQ(Receive(viewer, message.Get()), S_OK);
    PumpMessages();
}

void StartUp(_DLViewer* viewer) {
    ASSERT_EQ(Initialize(viewer), S_OK);
    ASSERT_EQ(SetSessionUnits(viewer, {L"12", L"40"}), S_OK);
    ASSERT_EQ(AnswerProfiles(viewer, L"<WebData><ProfileIDs></ProfileIDs></WebData>", L"GetProfileList"),
              S_OK);
    ASSERT_EQ(AnswerProfiles(viewer, L"<WebData></WebData>", L"GetProfiles"), S_OK);
}

bool LibraryIsFreed() {
    CoFreeUnusedLibrariesEx(0, 0);
    return GetModuleHandleW(L"DashlonViewer.ocx") == nullptr;
}

/// From the making of a control to its release, with all that a container does to it in between.
void Live(HostWindow* window) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_NE(viewer, nullptr);
    std::optional<Container> container;
    if (window != nullptr) {
        container.emplace(window->Handle(), window->Handle(), kPlace);
        ASSERT_EQ(container->Insert(viewer.Get()), S_OK);
        ASSERT_EQ(container->Activate(), S_OK);
    }
    StartUp(viewer.Get());
    Refresh(viewer.Get(), 4);
    if (container) {
        ASSERT_EQ(container->ActivateUI(), S_OK);
        ASSERT_EQ(container->Deactivate(), S_OK);
    }
    ASSERT_EQ(viewer->StopControl(), S_OK);
}

/// What is left of the rounds of `play`, after some to warm up, with the library loaded all the time.
template <class Play>
void ExpectNothingLeft(int warmUp, int rounds, Play play) {
    const auto held = New<_QZWebMessage>(L"QZWebMessage");
    const Ledger ledger(GetModuleHandleW(L"DashlonViewer.ocx"));
    EXPECT_GT(ledger.Watched(), 20);
    for (int i = 0; i < warmUp; ++i) ASSERT_NO_FATAL_FAILURE(play(i));
    const std::string open = Ledger::Open();
    Growth growth;
    for (int i = 0; i < rounds; ++i) ASSERT_NO_FATAL_FAILURE(play(i));
    PumpMessages();
    // First: the ledger forgets what is gone, which takes memory too.
    EXPECT_EQ(Ledger::Open(), open);
    EXPECT_EQ(growth.SinceThen(), "");
}

TEST(Soak, TwoThousandLivesLeaveNothing) {
    HostWindow window;
    ExpectNothingLeft(40, kLives, [&](int i) { Live(i % kShareInWindow == 0 ? &window : nullptr); });
    EXPECT_EQ(container::liveObjects, 0);
    EXPECT_EQ(CanUnload(), S_OK);
}

TEST(Soak, TwentyThousandRefreshesLeaveNothing) {
    HostedControl shown;
    shown.StartUp();
    const ComPtr<_DLViewer> hidden = New<_DLViewer>(L"DLViewer");
    StartUp(hidden.Get());
    ExpectNothingLeft(500, kRefreshes,
                      [&](int i) { Refresh(i % kShareInWindow == 0 ? shown.Viewer() : hidden.Get(), i); });
    EXPECT_EQ(shown.ListedUnits(), 2u);
}

TEST(Soak, AThousandLoadsLeaveAlmostNothing) {
    // The run-time library keeps its mutexes when it is unloaded; slots of the threads' storage, of which
    // there are about a thousand, and the memory for exceptions it must not keep. The 32-bit one keeps one
    // more.
    constexpr std::size_t kBlocksEach = sizeof(void*) == 8 ? 12 : 13;
    constexpr std::size_t kBytesEach = 1'000;
    constexpr std::size_t kHandlesEach = 2;
    const auto load = [](int times) {
        for (int i = 0; i < times; ++i) {
            ASSERT_NO_FATAL_FAILURE(Live(nullptr));
            ASSERT_TRUE(PumpUntil(LibraryIsFreed));
        }
    };
    ASSERT_TRUE(PumpUntil(LibraryIsFreed));
    load(10);
    Growth growth;
    load(kLoads);
    EXPECT_EQ(growth.SinceThen({kLoads * kBlocksEach, kLoads * kBytesEach, kLoads * kHandlesEach}), "");
}

LRESULT CALLBACK DoNothing(int, WPARAM, LPARAM) { return 0; }

struct Taken {
    const char* told;
    std::function<std::function<void()>()> take;
};

// What this program takes for itself, one thing of each kind, and how it is given back.
const Taken kTaken[] = {
    {"1 hooks; ",
     [] {
         const HHOOK hook = SetWindowsHookExW(WH_CBT, DoNothing, nullptr, GetCurrentThreadId());
         return [=] { UnhookWindowsHookEx(hook); };
     }},
    {"1 timers; ",
     [] {
         const UINT_PTR timer = SetTimer(nullptr, 0, 60'000, nullptr);
         return [=] { KillTimer(nullptr, timer); };
     }},
    {"1 window contexts; ",
     [] {
         const HDC screen = GetDC(nullptr);
         return [=] { ReleaseDC(nullptr, screen); };
     }},
    {"1 GDI objects; ",
     [] {
         const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
         return [=] { DeleteObject(brush); };
     }},
    {"1 libraries; ",
     [] {
         const HMODULE library = LoadLibraryW(L"comctl32.dll");
         return [=] { FreeLibrary(library); };
     }},
    {"1 global memory; ",
     [] {
         const HGLOBAL memory = GlobalAlloc(GMEM_FIXED, 10);
         return [=] { GlobalFree(memory); };
     }},
};

TEST(SoakDetection, TheLedgerSeesOneThingOfEachKind) {
    const Ledger ledger(GetModuleHandleW(nullptr));
    for (const Taken& taken : kTaken) {
        const auto giveBack = taken.take();
        EXPECT_NE(Ledger::Open().find(taken.told), std::string::npos) << taken.told;
        giveBack();
        EXPECT_EQ(Ledger::Open().find(taken.told), std::string::npos) << taken.told;
    }
}

TEST(SoakDetection, WhatNothingTellsOfIsSeenToo) {
    Growth growth;
    EXPECT_EQ(growth.SinceThen(), "");
    const DWORD slot = TlsAlloc();
    EXPECT_NE(growth.SinceThen().find("thread slots"), std::string::npos);
    TlsFree(slot);
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    EXPECT_NE(growth.SinceThen().find("handles"), std::string::npos);
    CloseHandle(event);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_NE(growth.SinceThen().find("GDI"), std::string::npos);
    DeleteObject(brush);
    EXPECT_EQ(growth.SinceThen(), "");
}

}  // namespace
}  // namespace dlv::test
