// Keys, characters, menu, wheel and scroll bars of the grid's window.
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "windows/com/Strings.h"
#include "windows/hwnd/Clipboard.h"
#include "windows/hwnd/GridMenuWindow.h"
#include "windows/hwnd/GridWindow.h"

namespace dlv {

namespace {

constexpr double kBarStep = Pixels(24);

/// Whole steps out of wheel movements that may be finer than one; what is left over waits in `rest`.
int WheelSteps(int& rest, int delta, int perNotch) {
    if ((rest < 0) != (delta < 0)) rest = 0;
    rest += delta * perNotch;
    const int steps = rest / WHEEL_DELTA;
    rest -= steps * WHEEL_DELTA;
    return steps;
}

Modifiers ModifiersDown() {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    if (control) return shift ? Modifiers::ControlShift : Modifiers::Control;
    return shift ? Modifiers::Shift : Modifiers::None;
}

/// What a key does in the grid with the keys that are down beside it. The menu comes from the system itself.
std::optional<GridCommand> OwnCommand(int key) {
    if (GetKeyState(VK_MENU) < 0) return std::nullopt;
    const std::optional<GridCommand> command = CommandForKey(key, ModifiersDown());
    return command == GridCommand::Menu ? std::nullopt : command;
}

std::int64_t Milliseconds() { return static_cast<std::int64_t>(GetTickCount64()); }

}  // namespace

std::optional<LRESULT> GridWindow::OnInput(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const std::optional<LRESULT> result = mouse_.OnMessage(message, wParam, lParam)) return result;
    switch (message) {
        case WM_GETDLGCODE: return OnDialogCode(reinterpret_cast<const MSG*>(lParam));
        case WM_KEYDOWN:
            if (OnKey(static_cast<int>(wParam))) return 0;
            return std::nullopt;
        case WM_CHAR:
            if (OnCharacter(static_cast<wchar_t>(wParam))) return 0;
            return std::nullopt;
        case WM_CONTEXTMENU: OnMenu(MenuPlace(lParam)); return 0;
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
    if (message == nullptr || message->message != WM_KEYDOWN) return code;
    const bool escapes =
        message->wParam == VK_ESCAPE && (mouse_.Dragging() || typed_.Running(Milliseconds()));
    if (escapes || OwnCommand(static_cast<int>(message->wParam))) code |= DLGC_WANTMESSAGE;
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
    mouse_.HideTip();
    if (key == VK_ESCAPE) return OnEscape();
    const std::optional<GridCommand> command = OwnCommand(key);
    skipCharacter_ = command.has_value();
    if (!command) return false;
    SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    if (*command == GridCommand::DrillDown)
        Owner().Listener().GridKeyPressed(grid_, key, shift);
    else
        Run(*command, shift ? Selecting::Block : Selecting::Cell);
    return true;
}

bool GridWindow::OnEscape() {
    const bool typing = typed_.Running(Milliseconds());
    if (!typing && !mouse_.Dragging()) return false;
    typed_.Forget();
    mouse_.CancelDrag();
    return true;
}

// Comes composed: by dead keys, by input methods, in two units beyond the first plane.
bool GridWindow::OnCharacter(wchar_t unit) {
    if (std::exchange(skipCharacter_, false)) return true;
    const wchar_t high = std::exchange(highSurrogate_, wchar_t{0});
    if (IS_HIGH_SURROGATE(unit)) {
        highSurrogate_ = unit;
        return true;
    }
    char32_t character = unit;
    if (IS_LOW_SURROGATE(unit)) {
        if (high == 0) return true;
        character = 0x10000u + ((high - 0xD800u) << 10) + (unit - 0xDC00u);
    }
    constexpr char32_t kDelete = 0x7F;
    if (character < ' ' || character == kDelete) return false;
    const std::int64_t now = Milliseconds();
    if (!typed_.Running(now)) {
        if (const std::optional<GridCommand> command = CommandForCharacter(character)) {
            Run(*command, Selecting::Cell);
            return true;
        }
        if (character == ' ') return false;
    }
    SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    if (const int row = typed_.Type(grid_, character, now); row != OutlineGrid::kNoRow)
        GoTo(row, std::max(grid_.CurrentColumn(), grid_.TreeColumn()), Selecting::Cell);
    return true;
}

void GridWindow::Run(GridCommand command, Selecting selecting) {
    const GridLayout layout = Layout();
    Normalise(layout);
    switch (command) {
        case GridCommand::Copy: return Copy(Headings::Without);
        case GridCommand::CopyWithHeadings: return Copy(Headings::With);
        case GridCommand::FitColumns: return FitColumns(grid_, layout.TopIndex(), Measuring());
        default: return RunGridCommand(grid_, command, Sight(layout), selecting);
    }
}

void GridWindow::GoTo(int row, int column, Selecting selecting) {
    const GridLayout layout = Layout();
    Normalise(layout);
    GoToCell(grid_, row, column, Sight(layout), selecting);
}

void GridWindow::Copy(Headings headings) {
    if (const std::string text = CopyText(grid_, headings); text.empty() || !CopyToClipboard(Handle(), text))
        MessageBeep(MB_ICONWARNING);
}

TextMeasure GridWindow::Measuring() const {
    return [this](const std::string& text, bool bold) {
        const Look& look = Kept();
        return look.scale.ToTwips(look.fonts.TextWidth(Wide(text), bold ? Weight::Bold : Weight::Regular));
    };
}

void GridWindow::FitColumn(int column) {
    const double width = FittingWidth(grid_, column, Layout().TopIndex(), Measuring());
    if (width > 0) grid_.SetColumnWidth(column, width);
}

/// Where the menu pops up: at the mouse, or below the current cell when a key asked for it.
POINT GridWindow::MenuPlace(LPARAM lParam) {
    if (lParam != -1) return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    POINT place{0, 0};
    const int row = grid_.CurrentRow();
    if (row >= grid_.FixedRows() && row < grid_.Rows()) {
        GoTo(row, grid_.CurrentColumn(), Selecting::Block);
        const RECT cell = Layout().CellArea(grid_.DisplayedIndex(row), grid_.CurrentColumn());
        place = {std::max(0L, cell.left), cell.bottom};
    }
    ClientToScreen(Handle(), &place);
    return place;
}

void GridWindow::OnMenu(POINT place) {
    mouse_.EndHover();
    mouse_.CancelDrag();
    const std::optional<GridCommand> command = ChooseGridCommand(grid_, Host(), Owner().Parent(), place);
    if (!command || Handle() == nullptr || Host().Ending()) return;
    if (*command == GridCommand::DrillDown)
        Owner().Listener().GridKeyPressed(grid_, VK_RETURN, false);
    else
        Run(*command, Selecting::Cell);
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
