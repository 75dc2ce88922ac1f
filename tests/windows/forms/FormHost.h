// What the tests of the control's windows share: a host for them without any COM, a form with one control of
// each kind whose windows can be looked at, and input as a person gives it.
#pragma once

#include "windows/com/PlainWindows.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/TestHost.h"
#include "widgets/ListView.h"
#include "windows/com/WindowHost.h"
#include "windows/gdi/GridLayout.h"
#include "windows/hwnd/FormWindows.h"
#include "windows/hwnd/Mirror.h"
#include "windows/hwnd/Window.h"

namespace dlv::test {

/// Stands for the control: counts what its windows tell it.
class FormHost : public WindowHost {
public:
    DLViewer& Viewer() noexcept override { return viewer; }
    bool Ending() const noexcept override { return ending; }
    HWND DialogOwner() noexcept override { return owner; }
    void SetContainerModeless(Modeless state) override { modeless.push_back(state); }
    void FocusEntered() override { ++entered; }
    void FocusLeft() override { ++left; }
    bool OfferKeyToContainer(MSG&) override { return false; }
    void WindowDestroyed() override { ++destroyed; }
    void ContainerGone() override { ending = true; }

    TestHost outside;
    DLViewer viewer{outside, outside};
    bool ending = false;
    HWND owner = nullptr;
    std::vector<Modeless> modeless;
    int entered = 0;
    int left = 0;
    int destroyed = 0;
    /// What brings the windows up to date at the end of an entry.
    std::function<void()> flush = [] {};

protected:
    void Keep() noexcept override {}
    void LetGo() noexcept override {}
    void BringUpToDate() override { flush(); }
    void AtRest() override {}
};

/// A window of the test's that the control's windows stand in; it shows on the screen.
class OuterWindow : public Window {
public:
    OuterWindow(WindowHost& host, SIZE size);
    ~OuterWindow() override { Destroy(); }

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

/// One control of each kind, in this tab order.
class SampleForm : public Form {
public:
    SampleForm();

    Frame frame{"frame"};
    Label label{"label"};
    ListView list{"list"};
    OptionGroup option{"option"};
    Button button{"button"};
    TabStrip tabs{"tabs"};
    OutlineGrid grid{"grid"};
    Toolbar bar{"bar"};
};

/// The sample form in windows; what a person does to them is written down in words.
class ShownForm : private FormListener {
public:
    explicit ShownForm(int dpi = kDesignDpi);

    HWND Of(const Control& control) const { return windows.Find(control)->Handle(); }
    /// The control's place in its parent in pixels.
    RECT PlaceOf(const Control& control) const;
    std::string TextOf(const Control& control) const;
    /// Changes of state as the control's logic makes them, followed by one flush.
    void Change(const std::function<void()>& change);
    /// Lets Windows paint all that waits for it.
    void Paint() const;
    /// Where the grid's rows and columns stand in its window, at 96 dpi.
    GridLayout Layout() const;
    POINT CellMiddle(int row, int column) const;

    FormHost host;
    SampleForm form;
    OuterWindow outer;
    FormWindows windows;
    std::vector<std::string> done;
    /// What every cell of the grid is explained by.
    std::string explanation;

private:
    void Clicked(Control& control) override;
    void TabChosen(TabStrip& tabs) override;
    void ToolChosen(Toolbar& bar, const std::string& key, const std::optional<RECT>& place) override;
    void GridPressed(OutlineGrid& grid, int button) override;
    void GridDoubleClicked(OutlineGrid& grid, int row, int column) override;
    void GridKeyPressed(OutlineGrid& grid, int key, bool shift) override;
    std::string GridExplanation(OutlineGrid&, int, int) override { return explanation; }
};

/// How thick scroll bars are at 96 dpi.
inline constexpr int kBar = 17;

/// A key as it arrives at the window with the focus.
void Press(HWND window, WPARAM key);
/// A click in client pixels.
void Click(HWND window, POINT point, UINT down = WM_LBUTTONDOWN);
POINT Middle(const RECT& area);

/// Two header rows, a tree of `units` nodes under a root, five columns of 60 pixels beside it.
void FillGrid(OutlineGrid& grid, int units);

}  // namespace dlv::test
