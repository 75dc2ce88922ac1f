// The life of a control in a container that keeps to the rules: its place, its focus, its state from one
// activation to the next.
#include "tests/windows/Dialogs.h"

namespace dlv::test {
namespace {

TEST(LifeCycle, TheWindowFillsThePlaceThatTheContainerGives) {
    HostedControl control;
    const auto expectPlace = [&](const RECT& place) {
        RECT found{};
        const HWND window = control.container.ControlWindow();
        ASSERT_NE(window, nullptr);
        GetWindowRect(window, &found);
        MapWindowPoints(nullptr, control.window.Handle(), reinterpret_cast<POINT*>(&found), 2);
        EXPECT_TRUE(EqualRect(&found, &place));
    };
    expectPlace(kPlace);
    for (const RECT place :
         {RECT{5, 6, 705, 406}, RECT{0, 0, 40, 30}, RECT{0, 0, 0, 0}, RECT{0, 0, 1200, 800}}) {
        EXPECT_EQ(control.container.SetPlace(place), S_OK);
        expectPlace(place);
        SIZE extent{};
        EXPECT_EQ(As<IOleObject>(control.Viewer())->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
        EXPECT_EQ(extent.cx, MulDiv(place.right - place.left, 2540, 96));
    }
}

TEST(LifeCycle, AControlThatWasActiveBecomesActiveAgainWithItsState) {
    HostedControl control;
    control.StartUp();
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    EXPECT_EQ(control.ListedUnits(), 2u);
    EXPECT_EQ(control.container.Deactivate(), S_OK);
    EXPECT_EQ(control.container.ControlWindow(), nullptr);
    ASSERT_EQ(Receive(control.Viewer(), SampleMessage().Get()), S_OK);
    ASSERT_EQ(control.container.Activate(), S_OK);
    EXPECT_EQ(control.ListedUnits(), 2u);
}

TEST(LifeCycle, WorksWithoutEverBeingActive) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    ASSERT_EQ(SetSessionUnits(viewer.Get(), {L"12"}), S_OK);
    ASSERT_EQ(Receive(viewer.Get(), SampleMessage().Get()), S_OK);
    DialogCloser closer;
    EXPECT_EQ(Receive(viewer.Get(), BrokenMessage().Get()), S_OK);
    EXPECT_EQ(closer.Closed(), 1);
    EXPECT_EQ(viewer->StopControl(), S_OK);
}

TEST(LifeCycle, TheFocusMakesTheControlTheActiveObjectOfItsFrame) {
    HostedControl control;
    control.StartUp();
    EXPECT_EQ(control.container.HostFrame().ActiveObject(), nullptr);
    EXPECT_EQ(control.container.ActivateUI(), S_OK);
    EXPECT_NE(control.container.HostFrame().ActiveObject(), nullptr);
    EXPECT_TRUE(IsChild(control.container.ControlWindow(), GetFocus()));
    EXPECT_TRUE(control.container.ControlSite().HasFocus());
    EXPECT_EQ(As<IOleInPlaceObject>(control.Viewer())->UIDeactivate(), S_OK);
    EXPECT_EQ(control.container.HostFrame().ActiveObject(), nullptr);
}

}  // namespace
}  // namespace dlv::test
