#include "tests/windows/forms/FormHost.h"
#include "windows/gdi/PaintBuffer.h"

namespace dlv::test {
namespace {

constexpr COLORREF kGrey = RGB(0xD0, 0xD0, 0xD0);

class GridWindowTest : public testing::Test {
protected:
    void Fill(int units) {
        shown.Change([&] { FillGrid(grid, units); });
        shown.Paint();
    }
    GridLayout Layout() const { return shown.Layout(); }
    POINT CellMiddle(int row, int column) const { return shown.CellMiddle(row, column); }
    COLORREF PixelAt(POINT point) const {
        const WindowDc dc(window);
        return GetPixel(dc.Get(), point.x, point.y);
    }
    /// How many pixels wait to be painted.
    LONG Waiting() const {
        const Region region(CreateRectRgn(0, 0, 0, 0));
        GetUpdateRgn(window, region.Get(), FALSE);
        RECT box{};
        GetRgnBox(region.Get(), &box);
        return (box.right - box.left) * (box.bottom - box.top);
    }

    ShownForm shown;
    OutlineGrid& grid = shown.form.grid;
    HWND window = shown.Of(grid);
};

TEST_F(GridWindowTest, PaintsColoursOfTheState) {
    Fill(5);
    RECT header = Layout().CellArea(0, 3);
    EXPECT_EQ(PixelAt({header.left + 3, header.top + 2}), RGB(0xC6, 0xFD, 0xFA));
    RECT root = Layout().CellArea(2, 3);
    EXPECT_EQ(PixelAt({root.left + 3, root.top + 3}), kGrey);
    RECT unit = Layout().CellArea(3, 3);
    EXPECT_EQ(PixelAt({unit.left + 3, unit.top + 3}), GetSysColor(COLOR_WINDOW));
    shown.Change([&] { grid.SetRowBackColour(2, 0xD0D0D0, 4); });
    shown.Paint();
    EXPECT_EQ(PixelAt({root.left + 3, root.top + 3}), GetSysColor(COLOR_WINDOW)) << "only column 4 on";
}

TEST_F(GridWindowTest, MergesEqualCaptionsOfTheFirstHeaderRow) {
    Fill(5);
    const GridLayout layout = Layout();
    const RECT first = layout.CellArea(0, 1);
    // No line stands between the merged cells; one does in the row below.
    EXPECT_EQ(PixelAt({first.right - 1, first.top + 2}), RGB(0xC6, 0xFD, 0xFA));
    const RECT below = layout.CellArea(1, 1);
    EXPECT_NE(PixelAt({below.right - 1, below.top + 2}), PixelAt({below.right - 4, below.top + 2}));
}

TEST_F(GridWindowTest, PaintsNothingWhenNothingChanged) {
    Fill(500);
    ASSERT_EQ(Waiting(), 0);
    shown.Change([&] { grid.SetText(4, 1, grid.CellText(4, 1)); });
    EXPECT_EQ(Waiting(), 0);
}

TEST_F(GridWindowTest, PaintsOnlyTheRowThatChanged) {
    Fill(500);
    shown.Change([&] { grid.SetText(4, 1, "new"); });
    const RECT row = Layout().RowArea(4);
    EXPECT_EQ(Waiting(), Layout().Inner().cx * (row.bottom - row.top));
    shown.Paint();
    shown.Change([&] { grid.SetText(400, 1, "out of sight"); });
    EXPECT_EQ(Waiting(), 0);
}

TEST_F(GridWindowTest, KeepsTheOldPictureWhileRedrawingIsOff) {
    Fill(5);
    const RECT root = Layout().CellArea(2, 3);
    const POINT point{root.left + 3, root.top + 3};
    shown.Change([&] {
        grid.SetRedraw(false);
        grid.SetRowBackColour(2, 0x0000FF);
    });
    InvalidateRect(window, nullptr, FALSE);
    shown.Paint();
    EXPECT_EQ(PixelAt(point), kGrey);
    shown.Change([&] { grid.SetRedraw(true); });
    shown.Paint();
    EXPECT_EQ(PixelAt(point), RGB(255, 0, 0));
}

TEST_F(GridWindowTest, ANodeBoxOpensAndClosesAndIsNoDoubleClick) {
    Fill(5);
    const POINT box = Middle(*Layout().NodeBox(2));
    Click(window, box);
    EXPECT_TRUE(grid.IsCollapsed(2));
    Click(window, box, WM_LBUTTONDBLCLK);
    EXPECT_FALSE(grid.IsCollapsed(2));
    EXPECT_TRUE(shown.done.empty());
}

TEST_F(GridWindowTest, ADoubleClickNamesTheCellUnderTheMouse) {
    Fill(5);
    Click(window, CellMiddle(4, 2));
    EXPECT_EQ(grid.CurrentRow(), 4);
    EXPECT_EQ(grid.CurrentColumn(), 2);
    Click(window, CellMiddle(4, 2), WM_LBUTTONDBLCLK);
    Click(window, {Layout().ColumnsWidth() + 5, 100}, WM_RBUTTONDBLCLK);
    EXPECT_EQ(shown.done,
              (std::vector<std::string>{"press 1", "press 1", "double 4 2", "press 2", "double -1 -1"}));
}

TEST_F(GridWindowTest, ADoubleClickBelowTheRowsNamesTheLastRow) {
    Fill(5);
    shown.Change([&] { grid.SetCollapsed(2, true); });
    const POINT below{CellMiddle(2, 3).x, CellMiddle(2, 3).y + 40};
    Click(window, below);
    EXPECT_EQ(grid.CurrentRow(), 2) << "the current cell stays";
    Click(window, below, WM_LBUTTONDBLCLK);
    EXPECT_EQ(shown.done, (std::vector<std::string>{"press 1", "press 1", "double 7 3"}));
}

TEST_F(GridWindowTest, AClickOnTheHeaderLeavesTheCurrentCell) {
    Fill(5);
    Click(window, Middle(Layout().CellArea(1, 2)));
    EXPECT_EQ(grid.CurrentRow(), 2);
}

TEST_F(GridWindowTest, EnterDrillsDownAndArrowsWalk) {
    Fill(5);
    SetFocus(window);
    Press(window, VK_DOWN);
    Press(window, VK_RIGHT);
    Press(window, VK_RETURN);
    EXPECT_EQ(grid.CurrentRow(), 3);
    EXPECT_EQ(grid.CurrentColumn(), 1);
    EXPECT_EQ(shown.done, (std::vector<std::string>{"key 13"}));
}

TEST_F(GridWindowTest, TheWheelAddsUpFineMovements) {
    Fill(500);
    const auto wheel = [&](int delta) { SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0); };
    wheel(-WHEEL_DELTA);
    const int notch = grid.TopIndex() - 2;
    EXPECT_GT(notch, 0);
    for (int i = 0; i < 12; ++i) wheel(-WHEEL_DELTA / 12);
    EXPECT_EQ(grid.TopIndex() - 2, 2 * notch);
    wheel(WHEEL_DELTA * 100);
    EXPECT_EQ(grid.TopIndex(), 2);
}

TEST_F(GridWindowTest, ScrollBarsFollowTheStateAndMoveIt) {
    Fill(500);
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_ALL;
    ASSERT_TRUE(GetScrollInfo(window, SB_VERT, &bar));
    EXPECT_EQ(bar.nMax, 500);
    EXPECT_EQ(static_cast<int>(bar.nPage), Layout().FullRows());
    SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(grid.TopIndex(), Layout().LastTopIndex());
    GetScrollInfo(window, SB_VERT, &bar);
    EXPECT_EQ(bar.nPos, Layout().LastTopIndex() - 2);
    EXPECT_EQ(grid.CurrentRow(), 2);
}

TEST_F(GridWindowTest, PaintingDoesNotDependOnTheNumberOfRows) {
    const auto timed = [&](int units) {
        Fill(units);
        LARGE_INTEGER begin;
        LARGE_INTEGER end;
        QueryPerformanceCounter(&begin);
        for (int i = 0; i < 20; ++i) {
            InvalidateRect(window, nullptr, FALSE);
            UpdateWindow(window);
        }
        QueryPerformanceCounter(&end);
        return static_cast<double>(end.QuadPart - begin.QuadPart);
    };
    const double few = timed(1000);
    EXPECT_LT(timed(100000), few * 4);
}

TEST(GridLayoutTest, ColumnsThatOnlyTheScrollBarStopsFromFittingMoveTogether) {
    OutlineGrid grid("grid");
    FillGrid(grid, 100);
    const GridLayout wide(grid, Scale(), {460, 200}, kBar);
    EXPECT_TRUE(wide.HasVerticalBar());
    EXPECT_FALSE(wide.HasHorizontalBar());
    EXPECT_EQ(wide.ColumnsWidth(), 460 - kBar);
    const GridLayout narrow(grid, Scale(), {400, 200}, kBar);
    EXPECT_TRUE(narrow.HasHorizontalBar());
    EXPECT_EQ(narrow.ColumnsWidth(), 450);
}

TEST(GridLayoutTest, ADeepRowStillHasRoomForItsText) {
    OutlineGrid grid("grid");
    FillGrid(grid, 50);
    for (int row = 3; row < grid.Rows(); ++row) grid.MakeNode(row, row - 2);
    const GridLayout layout(grid, Scale(), {460, 200}, kBar);
    EXPECT_LT(layout.TextPosition(layout.Depth(grid.Rows() - 1)), layout.ColumnRight(0) - 20);
}

struct Measure {
    int dpi;
    int row;
    int header;
};

class GridMeasure : public testing::TestWithParam<Measure> {};

TEST_P(GridMeasure, FollowsTheResolution) {
    OutlineGrid grid("grid");
    FillGrid(grid, 5);
    const GridLayout layout(grid, Scale(GetParam().dpi), {4000, 2000}, kBar);
    EXPECT_EQ(layout.RowHeight(), GetParam().row);
    EXPECT_EQ(layout.HeaderHeight(), GetParam().header);
    EXPECT_EQ(layout.ColumnRight(0), MulDiv(150, GetParam().dpi, 96));
}

INSTANTIATE_TEST_SUITE_P(Resolutions, GridMeasure,
                         testing::Values(Measure{96, 17, 51}, Measure{120, 21, 64}, Measure{144, 26, 77},
                                         Measure{192, 34, 102}));

}  // namespace
}  // namespace dlv::test
