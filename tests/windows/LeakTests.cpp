// Nothing is left behind: GDI objects, windows, memory, references. Each detector is shown to detect.
#include "tests/windows/Dialogs.h"
#include "tests/windows/LateCall.h"
#include "tests/windows/Resources.h"

namespace dlv::test {
namespace {

// What is made once per process (window classes, themes, fonts of the system, tables of members) is made by
// then.
constexpr int kWarmUp = 4;
constexpr int kRounds = 10;

struct Activity {
    const char* name;
    std::function<void()> round;
    friend void PrintTo(const Activity& activity, std::ostream* out) { *out << activity.name; }
};

void WholeLife() {
    HostedControl control;
    control.StartUp();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    PumpMessages();
    control.container.SetPlace({0, 0, 700, 500});
    PumpMessages();
    control.container.Deactivate();
    control.container.Activate();
    PumpMessages();
    EXPECT_EQ(control.Viewer()->StopControl(), S_OK);
}

void ErrorDialog() {
    HostedControl control;
    control.StartUp();
    const DialogCloser closer;
    EXPECT_EQ(Receive(control.Viewer(), BrokenMessage().Get()), S_OK);
    EXPECT_EQ(closer.Closed(), 1);
}

void EndInsideDialog() {
    HostedControl control;
    control.StartUp();
    _DLViewer* const viewer = control.Viewer();
    const DialogWatch watch([&](HWND) {
        control.window.Destroy();
        control.sink->Disconnect();
        control.container.Remove();
        control.viewer.Reset();
    });
    EXPECT_EQ(Receive(viewer, BrokenMessage().Get()), S_OK);
}

void FailingCalls() {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    EXPECT_TRUE(FAILED(SetSessionUnits(viewer.Get(), {L"1"})));
    Initialize(viewer.Get());
    EXPECT_TRUE(FAILED(SetSessionUnits(viewer.Get(), {L"1", L"1"})));
    EXPECT_TRUE(FAILED(Call(viewer.Get(), L"ReceiveMessage", {_variant_t(1L)}).result));
    const ComPtr<_QZWebMessage> message = New<_QZWebMessage>(L"QZWebMessage");
    EXPECT_TRUE(FAILED(message->LoadText(_bstr_t(L"<WebMessage Name='x'><WebData>"))));
    TakeErrorText();
}

void Drawing() {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    Initialize(viewer.Get());
    Receive(viewer.Get(), SampleMessage().Get());
    // Into a bitmap: a metafile of some systems keeps the pictures that are copied into it.
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 960, 640);
    ReleaseDC(nullptr, screen);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    const RECTL bounds{0, 0, 960, 640};
    EXPECT_EQ(As<IViewObject>(viewer.Get())
                  ->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0),
              S_OK);
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
}

class LeavesNothing : public testing::TestWithParam<Activity> {};

TEST_P(LeavesNothing, HoweverOften) {
    for (int i = 0; i < kWarmUp; ++i) GetParam().round();
    PumpMessages();
    const LabelResidue labels;
    Resources before = Resources::Now();
    for (int i = 0; i < kRounds; ++i) GetParam().round();
    PumpMessages();
    EXPECT_EQ(Resources::Now().LeakedSince(before.Forgive(labels.Blocks(), labels.Bytes())), "");
    EXPECT_EQ(container::liveObjects, 0);
    EXPECT_EQ(CanUnload(), S_OK);
}

INSTANTIATE_TEST_SUITE_P(Activities, LeavesNothing,
                         testing::Values(Activity{"whole life", WholeLife},
                                         Activity{"error dialog", ErrorDialog},
                                         Activity{"end inside a dialog", EndInsideDialog},
                                         Activity{"failing calls", FailingCalls},
                                         Activity{"drawing", Drawing}));

TEST(LeakDetection, SeesOneObjectOfEachKind) {
    Resources::Now();
    const Resources before = Resources::Now();
    EXPECT_EQ(Resources::Now().LeakedSince(before), "");

    const HBRUSH brush = CreateSolidBrush(RGB(9, 8, 7));
    EXPECT_NE(Resources::Now().LeakedSince(before).find("1 GDI objects"), std::string::npos);
    DeleteObject(brush);

    const HWND window =
        CreateWindowExW(0, L"BUTTON", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    EXPECT_NE(Resources::Now().LeakedSince(before).find(" windows"), std::string::npos);
    DestroyWindow(window);

    void* const block = HeapAlloc(GetProcessHeap(), 0, 1000);
    EXPECT_NE(Resources::Now().LeakedSince(before).find(" heap blocks; 1"), std::string::npos);
    HeapFree(GetProcessHeap(), 0, block);
}

TEST(LeakDetection, SeesAControlThatIsNotReleased) {
    HostedControl* const forgotten = std::make_unique<HostedControl>().release();
    EXPECT_GT(container::liveObjects, 0);
    EXPECT_EQ(CanUnload(), S_FALSE);
    const std::unique_ptr<HostedControl> found(forgotten);
}

}  // namespace
}  // namespace dlv::test
