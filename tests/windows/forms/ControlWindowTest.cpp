#include "hosts/container/WindowList.h"
#include "windows/hwnd/ControlWindow.h"

#include <commctrl.h>

#include "tests/windows/forms/FormHost.h"

namespace dlv::test {
namespace {

/// The control itself in its window, initialised, 1000 by 700 pixels.
class ControlWindowTest : public testing::Test {
protected:
    ControlWindowTest() {
        host.owner = outer.Handle();
        host.flush = [this] { window.Flush(); };
        host.outside.width = Pixels(1000);
        host.outside.height = Pixels(700);
        host.Window([&] {
            window.Create(outer.Handle(), {0, 0, 1000, 700});
            host.viewer.Initialize(nullptr);
            window.Show(Shown::Visible);
        });
    }

    /// The first visible window of that class and text.
    HWND Find(const wchar_t* className, const wchar_t* text = nullptr) const {
        for (const HWND child : container::VisibleInside(window.Handle(), className)) {
            // Without the mark of an access key.
            std::wstring caption = container::TextOf(child);
            if (const auto mark = caption.find(L'&'); mark != std::wstring::npos) caption.erase(mark, 1);
            if (text == nullptr || caption == text) return child;
        }
        return nullptr;
    }
    RECT PlaceOf(HWND child) const {
        RECT place{};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, window.Handle(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    bool Tab() {
        const MSG message{GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
        bool taken = false;
        host.Window([&] { taken = window.TranslateKey(message); });
        return taken;
    }

    FormHost host;
    OuterWindow outer{host, {1000, 700}};
    ControlWindow window{host};
    ViewerForm& form = host.viewer.Controls();
};

TEST_F(ControlWindowTest, ShowsTheFormAndFollowsItsSize) {
    EXPECT_EQ(window.SurfaceWidth(), Pixels(1000));
    const HWND button = Find(L"Button", L"View");
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(IsWindowEnabled(button));
    host.outside.width = Pixels(1400);
    const int before = PlaceOf(button).left;
    host.Window([&] { window.Move({0, 0, 1400, 700}); });
    EXPECT_GT(PlaceOf(button).left, before + 200);
}

TEST_F(ControlWindowTest, TabsAndOptionsRunTheirHandlers) {
    SendMessageW(Find(WC_TABCONTROLW), TCM_SETCURFOCUS, 1, 0);
    EXPECT_FALSE(form.fraBU[0].Visible());
    EXPECT_TRUE(form.fraBU[1].Visible());
    const HWND points = Find(L"Button", L"Points");
    ASSERT_NE(points, nullptr);
    SendMessageW(points, BM_CLICK, 0, 0);
    EXPECT_EQ(form.optDisplay.Selected(), 1);
    EXPECT_TRUE(form.vsFlex[2].Visible());
    EXPECT_FALSE(form.vsFlex[1].Visible());
}

TEST_F(ControlWindowTest, TheTechnicianLabelAsksForDetails) {
    host.outside.ways.clear();
    Click(Find(L"Static", L"Technicians"), {5, 5});
    EXPECT_EQ(host.outside.Shown(), (std::vector<std::string>{"event 2"}));
}

TEST_F(ControlWindowTest, TabWalksThroughAndLeavesAtTheEnd) {
    host.Window([&] { window.TakeFocus(FocusFrom::Before); });
    ASSERT_TRUE(window.HasFocus());
    EXPECT_EQ(host.entered, 1);
    std::vector<HWND> stops{GetFocus()};
    while (Tab() && stops.size() < 20) stops.push_back(GetFocus());
    // Tool bar, list, option, tabs, grid: the View button is disabled until there are data.
    EXPECT_EQ(stops.size(), 5u);
    EXPECT_EQ(stops.back(), Find(kGridClass));
    SetFocus(outer.Handle());
    EXPECT_EQ(host.left, 1);
    host.Window([&] { window.TakeFocus(FocusFrom::Behind); });
    EXPECT_EQ(GetFocus(), stops.back());
}

TEST_F(ControlWindowTest, TheFirstFocusIsTheUnitList) {
    host.Window([&] { window.TakeFocus(FocusFrom::Anywhere); });
    EXPECT_EQ(GetFocus(), Find(WC_LISTVIEWW));
}

TEST_F(ControlWindowTest, AnotherResolutionScalesEverything) {
    const RECT before = PlaceOf(Find(WC_LISTVIEWW));
    host.outside.width = Pixels(1000 / 1.5);
    host.Window([&] { window.SetDpi(144); });
    const RECT after = PlaceOf(Find(WC_LISTVIEWW));
    EXPECT_EQ(after.left, MulDiv(before.left, 144, 96));
    EXPECT_EQ(after.top, MulDiv(before.top, 144, 96));
    EXPECT_NEAR(window.SurfaceWidth(), Pixels(1000) * 96 / 144, 1);
}

TEST_F(ControlWindowTest, ThePointerIsAnHourglassUntilProfilesHaveCome) {
    const auto pointer = [&] {
        SetCursor(nullptr);
        SendMessageW(window.Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window.Handle()),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    EXPECT_EQ(pointer(), LoadCursorW(nullptr, IDC_WAIT));
    host.Window([&] { host.viewer.ReceiveProfileResponse("", "GetProfiles"); });
    EXPECT_EQ(pointer(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(ControlWindowTest, SaysOnceThatItsWindowIsGone) {
    DestroyWindow(outer.Handle());
    EXPECT_EQ(host.destroyed, 1);
    EXPECT_EQ(window.Handle(), nullptr);
    host.Window([&] {
        form.lblStatus.SetCaption("nobody sees this");
        window.Destroy();
        window.Show(Shown::Visible);
        window.TakeFocus(FocusFrom::Anywhere);
    });
    EXPECT_EQ(host.destroyed, 1);
    EXPECT_EQ(window.SurfaceWidth(), 0);
}

TEST_F(ControlWindowTest, SeparatorsShowOnlyBetweenButtons) {
    const HWND bar = Find(TOOLBARCLASSNAMEW);
    const auto shown = [&] {
        std::string text;
        for (WPARAM id = 100; id < 106; ++id) text += SendMessageW(bar, TB_ISBUTTONHIDDEN, id, 0) ? '0' : '1';
        return text;
    };
    EXPECT_EQ(shown(), "000001");
    host.Window([&] {
        form.tbMain.ShowButton(1, true);
        form.tbMain.ShowButton(2, true);
    });
    EXPECT_EQ(shown(), "111001");
    host.Window([&] { form.tbMain.ShowButton(4, true); });
    EXPECT_EQ(shown(), "111111");
}

}  // namespace
}  // namespace dlv::test
