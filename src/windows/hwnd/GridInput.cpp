// Keys, mouse, wheel and scroll bars of the grid's window.
#include <windowsx.h>

#include <algorithm>

#include "windows/hwnd/GridWindow.h"

namespace dlv {

namespace {

constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kMiddleButton = 4;
constexpr double kBarStep = Pixels(24);

int ButtonOf(UINT message) {
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) return kLeftButton;
    return message == WM_RBUTTONDOWN || message == WM_RBUTTONDBLCLK ? kRightButton : kMiddleButton;
}

bool IsDoubleClick(UINT message) {
    return message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDBLCLK || message == WM_MBUTTONDBLCLK;
}

/// Whole steps out of wheel movements that may be finer than one; what is left over waits in `rest`.
int WheelSteps(int& rest, int delta, int perNotch) {
    if ((rest < 0) != (delta < 0)) rest = 0;
    rest += delta * perNotch;
    const int steps = rest / WHEEL_DELTA;
    rest -= steps * WHEEL_DELTA;
    return steps;
}

/// What a key does in the grid with the keys that are down beside it.
std::optional<GridCommand> OwnCommand(int key) {
    if (GetKeyState(VK_MENU) < 0) return std::nullopt;
    return CommandForKey(key, GetKeyState(VK_CONTROL) < 0 ? ControlKey::Down : ControlKey::Up);
}

}  // namespace

std::optional<LRESULT> GridWindow::OnInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE: return OnDialogCode(reinterpret_cast<const MSG*>(lParam));
        case WM_KEYDOWN:
            if (OnKey(static_cast<int>(wParam))) return 0;
            return std::nullopt;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK: OnButton(message, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}); return 0;
        case WM_VSCROLL: OnVerticalBar(LOWORD(wParam)); return 0;
        case WM_HSCROLL: OnHorizontalBar(LOWORD(wParam)); return 0;
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            if (OnWheel(message, GET_WHEEL_DELTA_WPARAM(wParam))) return 0;
            return std::nullopt;
        default: return std::nullopt;
    }
}

LRESULT GridWindow::OnDialogCode(const MSG* message) const {
    LRESULT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
    if (message != nullptr && message->message == WM_KEYDOWN && OwnCommand(static_cast<int>(message->wParam)))
        code |= DLGC_WANTMESSAGE;
    return code;
}

// The state may ask for more than the window can show; steps are counted from what is shown.
void GridWindow::Normalise(const GridLayout& layout) {
    grid_.SetTopIndex(layout.TopIndex());
    if (layout.HasHorizontalBar()) {
        const double shown = Kept().scale.ToTwips(layout.Scrolled());
        if (Kept().scale.ToPixels(grid_.ScrollLeft()) != layout.Scrolled()) grid_.SetScrollLeft(shown);
    } else {
        grid_.SetScrollLeft(0);
    }
}

bool GridWindow::OnKey(int key) {
    const std::optional<GridCommand> command = OwnCommand(key);
    if (!command) return false;
    SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    if (*command == GridCommand::DrillDown) {
        Owner().Listener().GridKeyPressed(grid_, key, GetKeyState(VK_SHIFT) < 0);
        return true;
    }
    const GridLayout layout = Layout();
    Normalise(layout);
    RunGridCommand(grid_, *command, Sight(layout));
    return true;
}

// A click on a node's box is for the node alone.
void GridWindow::OnButton(UINT message, POINT point) {
    SetFocus(Handle());
    const std::optional<GridLayout::Hit> hit = Layout().HitTest(point);
    const int button = ButtonOf(message);
    if (hit && hit->onNodeBox && button == kLeftButton) {
        ToggleNode(grid_, hit->row);
        return;
    }
    if (hit && hit->row >= grid_.FixedRows() && button == kLeftButton)
        grid_.SetCurrentCell(hit->row, hit->column);
    Owner().Listener().GridPressed(grid_, button);
    if (!IsDoubleClick(message)) return;
    if (hit)
        Owner().Listener().GridDoubleClicked(grid_, hit->row, hit->column);
    else
        Owner().Listener().GridDoubleClicked(grid_, -1, -1);
}

void GridWindow::OnVerticalBar(int request) {
    const GridLayout layout = Layout();
    const GridSight sight = Sight(layout);
    Normalise(layout);
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_TRACKPOS;
    const int rows = static_cast<int>(grid_.DisplayedRows().size());
    switch (request) {
        case SB_LINEUP: return ScrollRows(grid_, -1, sight);
        case SB_LINEDOWN: return ScrollRows(grid_, 1, sight);
        case SB_PAGEUP: return ScrollRows(grid_, -sight.fullRows, sight);
        case SB_PAGEDOWN: return ScrollRows(grid_, sight.fullRows, sight);
        case SB_TOP: return ScrollRows(grid_, -rows, sight);
        case SB_BOTTOM: return ScrollRows(grid_, rows, sight);
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK:
            if (GetScrollInfo(Handle(), SB_VERT, &bar))
                ScrollRows(grid_, bar.nTrackPos + grid_.FixedRows() - grid_.TopIndex(), sight);
            return;
        default: return;
    }
}

void GridWindow::OnHorizontalBar(int request) {
    const GridLayout layout = Layout();
    const GridSight sight = Sight(layout);
    Normalise(layout);
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_TRACKPOS;
    switch (request) {
        case SB_LINELEFT: return ScrollColumns(grid_, -kBarStep, sight);
        case SB_LINERIGHT: return ScrollColumns(grid_, kBarStep, sight);
        case SB_PAGELEFT: return ScrollColumns(grid_, -sight.width, sight);
        case SB_PAGERIGHT: return ScrollColumns(grid_, sight.width, sight);
        case SB_LEFT: return grid_.SetScrollLeft(0);
        case SB_RIGHT: return ScrollColumns(grid_, 1e9, sight);
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK:
            if (GetScrollInfo(Handle(), SB_HORZ, &bar))
                ScrollColumns(grid_, Kept().scale.ToTwips(bar.nTrackPos) - grid_.ScrollLeft(), sight);
            return;
        default: return;
    }
}

// A grid that is wholly in sight leaves the wheel to what it stands in.
bool GridWindow::OnWheel(UINT message, int delta) {
    const GridLayout layout = Layout();
    const GridSight sight = Sight(layout);
    const bool sideways = message == WM_MOUSEHWHEEL;
    if (!(sideways ? layout.HasHorizontalBar() : layout.HasVerticalBar())) return false;
    Normalise(layout);
    UINT perNotch = 3;
    SystemParametersInfoW(sideways ? SPI_GETWHEELSCROLLCHARS : SPI_GETWHEELSCROLLLINES, 0, &perNotch, 0);
    if (sideways) {
        const int steps = WheelSteps(sideWheelRest_, delta, static_cast<int>(std::min(perNotch, 100u)));
        ScrollColumns(grid_, steps * kBarStep, sight);
        return true;
    }
    const int page = std::max(1, sight.fullRows - 1);
    const int lines = perNotch == WHEEL_PAGESCROLL ? page : std::min(page, static_cast<int>(perNotch));
    ScrollRows(grid_, -WheelSteps(wheelRest_, delta, lines), sight);
    return true;
}

}  // namespace dlv
