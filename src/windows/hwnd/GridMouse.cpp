#include "windows/hwnd/GridMouse.h"

#include <windowsx.h>

#include <algorithm>

#include "widgets/GridText.h"
#include "windows/com/Strings.h"
#include "windows/hwnd/GridWindow.h"

namespace dlv {

namespace {

constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kMiddleButton = 4;
constexpr double kLeastWidth = Pixels(12);

int ButtonOf(UINT message) {
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) return kLeftButton;
    return message == WM_RBUTTONDOWN || message == WM_RBUTTONDBLCLK ? kRightButton : kMiddleButton;
}

bool IsDoubleClick(UINT message) {
    return message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDBLCLK || message == WM_MBUTTONDBLCLK;
}

bool SameCell(const std::optional<GridLayout::Hit>& a, const std::optional<GridLayout::Hit>& b) {
    if (!a || !b) return a.has_value() == b.has_value();
    return a->row == b->row && a->column == b->column;
}

}  // namespace

GridMouse::GridMouse(GridWindow& window, OutlineGrid& grid)
    : window_(window), grid_(grid), tip_(window.Form().Host()) {}

std::optional<LRESULT> GridMouse::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK: OnPressed(message, point, wParam); return 0;
        case WM_MOUSEMOVE: OnMoved(point); return 0;
        case WM_LBUTTONUP: OnReleased(); return 0;
        case WM_CAPTURECHANGED: drag_ = Drag::None; return 0;
        case WM_CANCELMODE: CancelDrag(); return std::nullopt;
        case WM_MOUSEHOVER: OnRest(); return 0;
        case WM_MOUSELEAVE:
            hovered_.reset();
            HideTip();
            return 0;
        case WM_SETCURSOR:
            if (LOWORD(lParam) == HTCLIENT && OnCursor()) return TRUE;
            return std::nullopt;
        default: return std::nullopt;
    }
}

void GridMouse::OnPressed(UINT message, POINT point, WPARAM keys) {
    EndHover();
    SetFocus(window_.Handle());
    const int button = ButtonOf(message);
    const GridLayout layout = window_.Layout();
    const std::optional<GridLayout::Hit> hit = layout.HitTest(point);
    if (button == kLeftButton) {
        // A click on an edge or on a node's box is for that alone.
        if (OnEdge(layout, message, point)) return;
        if (hit && hit->onNodeBox) return ToggleNode(grid_, hit->row);
        if (hit && hit->row >= grid_.FixedRows()) ChooseCell(*hit, message, keys);
    } else if (hit && hit->row >= grid_.FixedRows()) {
        const auto selection = grid_.Selection();
        if (!selection || !selection->Holds(hit->row, hit->column))
            grid_.SetCurrentCell(hit->row, hit->column);
    }
    FormListener& listener = window_.Form().Listener();
    listener.GridPressed(grid_, button);
    if (!IsDoubleClick(message)) return;
    if (hit)
        listener.GridDoubleClicked(grid_, hit->row, hit->column);
    else if (const std::optional<int> column = layout.ColumnBelowRows(point))
        listener.GridDoubleClicked(grid_, grid_.Rows() - 1, *column);
    else
        listener.GridDoubleClicked(grid_, -1, -1);
}

void GridMouse::ChooseCell(const GridLayout::Hit& hit, UINT message, WPARAM keys) {
    if ((keys & MK_SHIFT) != 0 && grid_.CurrentRow() >= grid_.FixedRows())
        grid_.ExtendSelection(hit.row, hit.column);
    else
        grid_.SetCurrentCell(hit.row, hit.column);
    if (!IsDoubleClick(message)) Begin(Drag::Cells);
}

bool GridMouse::OnEdge(const GridLayout& layout, UINT message, POINT point) {
    const std::optional<int> column = layout.EdgeAt(point);
    if (!column) return false;
    if (IsDoubleClick(message)) {
        window_.FitColumn(*column);
        return true;
    }
    edgeColumn_ = *column;
    edgeStart_ = static_cast<int>(point.x);
    edgeWidth_ = grid_.ColumnWidth(*column);
    Begin(Drag::Edge);
    return true;
}

void GridMouse::Begin(Drag drag) {
    SetCapture(window_.Handle());
    drag_ = drag;
}

void GridMouse::OnReleased() {
    if (Dragging()) ReleaseCapture();
}

void GridMouse::CancelDrag() {
    if (!Dragging()) return;
    if (drag_ == Drag::Edge) grid_.SetColumnWidth(edgeColumn_, edgeWidth_);
    ReleaseCapture();
}

void GridMouse::OnMoved(POINT point) {
    if (Dragging()) return OnDragged(point);
    Hover(window_.Layout(), point);
}

void GridMouse::OnDragged(POINT point) {
    const GridLayout layout = window_.Layout();
    if (drag_ == Drag::Edge) {
        const double moved = window_.Measure().ToTwips(static_cast<int>(point.x) - edgeStart_);
        grid_.SetColumnWidth(edgeColumn_, std::max(kLeastWidth, edgeWidth_ + moved));
        return;
    }
    const std::optional<GridLayout::Hit> hit = layout.NearestCell(point);
    if (!hit || (hit->row == grid_.CurrentRow() && hit->column == grid_.CurrentColumn())) return;
    window_.GoTo(hit->row, hit->column, Selecting::Block);
}

bool GridMouse::OnCursor() {
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(window_.Handle(), &point);
    if (drag_ != Drag::Edge && !window_.Layout().EdgeAt(point)) return false;
    SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
    return true;
}

void GridMouse::Hover(const GridLayout& layout, POINT point) {
    const std::optional<GridLayout::Hit> hit = layout.HitTest(point);
    if (SameCell(hit, hovered_)) return;
    hovered_ = hit;
    HideTip();
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = hit ? TME_HOVER | TME_LEAVE : TME_LEAVE;
    track.hwndTrack = window_.Handle();
    track.dwHoverTime = HOVER_DEFAULT;
    TrackMouseEvent(&track);
}

void GridMouse::EndHover() {
    HideTip();
    hovered_.reset();
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_CANCEL | TME_HOVER | TME_LEAVE;
    track.hwndTrack = window_.Handle();
    TrackMouseEvent(&track);
}

void GridMouse::OnRest() {
    if (!hovered_ || hovered_->row < grid_.FixedRows() || hovered_->row >= grid_.Rows() || Dragging()) return;
    const auto [row, column, onBox] = *hovered_;
    const RECT area = window_.Layout().TextArea(grid_.DisplayedIndex(row), column);
    const std::string text = ShownText(grid_, row, column);
    const Weight weight = grid_.RowBold(row) || grid_.ColumnBold(column) ? Weight::Bold : Weight::Regular;
    const Fonts& fonts = window_.Faces();
    const bool clipped = fonts.TextWidth(Wide(text), weight) > area.right - area.left;
    const std::string why = window_.Form().Listener().GridExplanation(grid_, row, column);
    if (!why.empty())
        tip_.Show(window_.Handle(), clipped ? text + "\r\n" + why : why, area, CellTip::Where::Below,
                  fonts.Get(Weight::Regular));
    else if (clipped)
        tip_.Show(window_.Handle(), text, area, CellTip::Where::Over, fonts.Get(weight));
}

}  // namespace dlv
