#include "windows/hwnd/GridWindow.h"

#include <algorithm>

namespace dlv {

void GridWindow::Make(HWND parent) {
    Making making;
    making.style = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP;
    making.parent = parent;
    MakeOwn(kGridClass, making);
}

void GridWindow::LookChanged() {
    snapshot_ = {};
    InvalidateRect(Handle(), nullptr, FALSE);
}

GridLayout GridWindow::Layout() const {
    RECT outer{};
    GetWindowRect(Handle(), &outer);
    const int bar = GetSystemMetricsForDpi(SM_CXVSCROLL, GetDpiForWindow(Handle()));
    return GridLayout(grid_, Kept().scale, {outer.right - outer.left, outer.bottom - outer.top}, bar);
}

GridSight GridWindow::Sight(const GridLayout& layout) const {
    const int width = layout.HasHorizontalBar() ? static_cast<int>(layout.Inner().cx) : layout.ColumnsWidth();
    // Without a scroll bar all columns are in sight, however far apart they are drawn.
    return {layout.FullRows(), layout.HasHorizontalBar() ? Kept().scale.ToTwips(width) : 1e9};
}

GridFocus GridWindow::FocusNow() const {
    if (GetFocus() != Handle()) return GridFocus::None;
    const bool hidden = (SendMessageW(Handle(), WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) != 0;
    return hidden ? GridFocus::Held : GridFocus::HeldWithCue;
}

// While redrawing is off, the old picture stands; what changed meanwhile shows when it is on again.
void GridWindow::Apply() {
    if (!grid_.Redraw()) return;
    mouse_.HideTip();
    const GridLayout layout = Layout();
    UpdateBars(layout);
    InvalidateChanges(layout);
    access_.Events().Tell();
}

void GridWindow::UpdateBars(const GridLayout& layout) {
    if (updatingBars_) return;
    updatingBars_ = true;
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    if (layout.HasVerticalBar()) {
        bar.nMax = static_cast<int>(grid_.DisplayedRows().size()) - grid_.FixedRows() - 1;
        bar.nPage = static_cast<UINT>(layout.FullRows());
        bar.nPos = layout.TopIndex() - grid_.FixedRows();
    }
    SetScrollInfo(Handle(), SB_VERT, &bar, TRUE);
    bar.nMax = 0;
    bar.nPage = 0;
    bar.nPos = 0;
    if (layout.HasHorizontalBar()) {
        bar.nMax = layout.ColumnsWidth() - 1;
        bar.nPage = static_cast<UINT>(layout.Inner().cx);
        bar.nPos = layout.Scrolled();
    }
    SetScrollInfo(Handle(), SB_HORZ, &bar, TRUE);
    updatingBars_ = false;
}

void GridWindow::InvalidateChanges(const GridLayout& layout) {
    Snapshot now;
    now.inner = layout.Inner();
    now.scrolled = layout.Scrolled();
    now.treeColumn = grid_.TreeColumn();
    for (int column = 0; column < grid_.Columns(); ++column) {
        now.edges.push_back(layout.ColumnRight(column));
        now.bold.push_back(grid_.ColumnBold(column));
    }
    now.header = HeaderFingerprint(grid_);
    for (int index = layout.TopIndex(); index < layout.EndIndex(); ++index)
        now.rows.push_back(RowFingerprint(grid_, index));

    const bool moved = now.inner.cx != snapshot_.inner.cx || now.inner.cy != snapshot_.inner.cy ||
                       now.scrolled != snapshot_.scrolled || now.edges != snapshot_.edges ||
                       now.bold != snapshot_.bold || now.treeColumn != snapshot_.treeColumn;
    if (moved) {
        InvalidateRect(Handle(), nullptr, FALSE);
    } else {
        if (now.header != snapshot_.header) {
            const RECT header{0, 0, now.inner.cx, layout.HeaderHeight()};
            InvalidateRect(Handle(), &header, FALSE);
        }
        const std::size_t count = std::max(now.rows.size(), snapshot_.rows.size());
        for (std::size_t i = 0; i < count; ++i) {
            if (i < now.rows.size() && i < snapshot_.rows.size() && now.rows[i] == snapshot_.rows[i])
                continue;
            RECT area = layout.RowArea(layout.TopIndex() + static_cast<int>(i));
            area.left = 0;
            area.right = now.inner.cx;
            InvalidateRect(Handle(), &area, FALSE);
        }
    }
    snapshot_ = std::move(now);
}

void GridWindow::InvalidateSelection() {
    const std::optional<OutlineGrid::Block> selection = grid_.Selection();
    if (!selection) return;
    const GridLayout layout = Layout();
    const int last = std::min(grid_.DisplayedIndex(selection->lastRow), layout.EndIndex() - 1);
    for (int index = std::max(grid_.DisplayedIndex(selection->firstRow), layout.TopIndex()); index <= last;
         ++index) {
        const RECT area = layout.RowArea(index);
        InvalidateRect(Handle(), &area, FALSE);
    }
}

void GridWindow::PaintInto(HDC dc, const RECT& clip) const {
    const Canvas canvas(dc, Kept());
    const GridLayout layout = Layout();
    GridPainter(canvas, grid_, layout, FocusNow()).Paint(clip);
}

void GridWindow::Paint() {
    const PaintScope paint(Handle());
    RECT client{};
    GetClientRect(Handle(), &client);
    if (IsRectEmpty(&client)) return;
    RECT clip = paint.Area();
    const bool fits = picture_ && pictureSize_.cx == client.right && pictureSize_.cy == client.bottom;
    const MemoryDc memory(paint.Dc());
    if (!picture_ || (!fits && grid_.Redraw())) {
        picture_ = Bitmap(CreateCompatibleBitmap(paint.Dc(), client.right, client.bottom));
        pictureSize_ = {client.right, client.bottom};
        clip = client;
        const SelectScope fresh(memory.Get(), picture_.Get());
        Canvas(memory.Get(), Kept()).Fill(client, Kept().palette.window);
    } else if (!fits) {
        Canvas(paint.Dc(), Kept()).Fill(client, Kept().palette.window);
    }
    const SelectScope select(memory.Get(), picture_.Get());
    if (grid_.Redraw()) {
        PaintInto(memory.Get(), clip);
    }
    BitBlt(paint.Dc(), 0, 0, pictureSize_.cx, pictureSize_.cy, memory.Get(), 0, 0, SRCCOPY);
}

LRESULT GridWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: Paint(); return 0;
        case WM_PRINTCLIENT: {
            RECT client{};
            GetClientRect(Handle(), &client);
            PaintInto(reinterpret_cast<HDC>(wParam), client);
            return 0;
        }
        case WM_SIZE:
            if (!updatingBars_) Apply();
            return 0;
        case WM_SETFOCUS: {
            InvalidateSelection();
            const LRESULT result = Mirror::OnMessage(message, wParam, lParam);
            access_.Events().TellFocus();
            return result;
        }
        case WM_KILLFOCUS:
            mouse_.HideTip();
            InvalidateSelection();
            break;
        case kAccessAction: access_.RunAsked(); return 0;
        case WM_UPDATEUISTATE: {
            const LRESULT result = Default(message, wParam, lParam);
            InvalidateSelection();
            return result;
        }
        case WM_DESTROY: mouse_.EndTip(); break;
        default:
            if (const std::optional<LRESULT> result = OnInput(message, wParam, lParam)) return *result;
            break;
    }
    return Mirror::OnMessage(message, wParam, lParam);
}

}  // namespace dlv
