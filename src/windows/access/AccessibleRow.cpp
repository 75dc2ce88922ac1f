#include "windows/access/AccessibleRow.h"

#include "windows/access/AccessibleCell.h"
#include "windows/access/AccessibleGrid.h"
#include "windows/com/ComError.h"

namespace dlv {

RECT InsideGrid(const GridScreen& screen, RECT area) {
    const SIZE inner = screen.Layout().Inner();
    const RECT inside{0, 0, inner.cx, inner.cy};
    RECT shown{};
    if (!IntersectRect(&shown, &area, &inside)) return {};
    MapWindowPoints(screen.Surface(), HWND_DESKTOP, reinterpret_cast<POINT*>(&shown), 2);
    return shown;
}

LONG RowState(GridScreen& screen, int row) {
    if (!screen.IsData(row)) return STATE_SYSTEM_READONLY;
    LONG state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_READONLY;
    const GridLayout layout = screen.Layout();
    const int index = screen.Grid().DisplayedIndex(row);
    if (!screen.IsDisplayed(row))
        state |= STATE_SYSTEM_INVISIBLE;
    else if (index < layout.TopIndex() || index >= layout.EndIndex())
        state |= STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
    return state;
}

int AccessibleRow::Row() {
    const int row = reference_.Find(screen_.Grid());
    if (row == OutlineGrid::kNoRow) throw ComError(CO_E_OBJNOTCONNECTED);
    return row;
}

bool AccessibleRow::IsOpenable(int row) const {
    const OutlineGrid& grid = screen_.Grid();
    return screen_.IsData(row) && grid.IsNode(row) && grid.HasChildren(row);
}

std::string AccessibleRow::Name() {
    const int row = Row();
    return ShownText(screen_.Grid(), row, screen_.Grid().TreeColumn());
}

std::string AccessibleRow::Value() {
    const int row = Row();
    return screen_.IsData(row) ? std::to_string(screen_.PlaceOf(row).depth) : std::string();
}

// In the form that readers of the screen look for, and tell in their own language.
std::string AccessibleRow::Description() {
    const int row = Row();
    if (!screen_.IsData(row)) return {};
    const OutlinePlaces::Place place = screen_.PlaceOf(row);
    return "L" + std::to_string(place.depth + 1) + ", " + std::to_string(place.place) + " of " +
           std::to_string(place.count) + " with " + std::to_string(place.children);
}

LONG AccessibleRow::State() {
    const int row = Row();
    LONG state = WindowState() | RowState(screen_, row);
    if (IsOpenable(row))
        state |= screen_.Grid().IsCollapsed(row) ? STATE_SYSTEM_COLLAPSED : STATE_SYSTEM_EXPANDED;
    if (screen_.IsSelected(row)) state |= STATE_SYSTEM_SELECTED;
    if (screen_.HasFocus() && screen_.CurrentRow() == row) state |= STATE_SYSTEM_FOCUSED;
    return state;
}

RECT AccessibleRow::Area() {
    const int row = Row();
    if (!screen_.IsDisplayed(row) || (RowState(screen_, row) & STATE_SYSTEM_OFFSCREEN) != 0) return {};
    return InsideGrid(screen_, screen_.Layout().RowArea(screen_.Grid().DisplayedIndex(row)));
}

ComPtr<IDispatch> AccessibleRow::Parent() {
    static_cast<void>(Row());
    return MakeObject<AccessibleGrid>(SharedAnchor(), screen_);
}

LONG AccessibleRow::ChildCount() {
    static_cast<void>(Row());
    return static_cast<LONG>(ReadColumns(screen_.Grid()).size());
}

AccessibleObject::Object AccessibleRow::Child(LONG id) {
    const int row = Row();
    const std::vector<int> columns = ReadColumns(screen_.Grid());
    if (id < 1 || id > static_cast<LONG>(columns.size())) return nullptr;
    return MakeObject<AccessibleCell>(SharedAnchor(), screen_, row,
                                      columns[static_cast<std::size_t>(id - 1)]);
}

AccessibleObject::Object AccessibleRow::ChildAt(POINT point) {
    const int row = Row();
    ScreenToClient(Surface(), &point);
    const auto hit = screen_.Layout().HitTest(point);
    if (!hit || hit->row != row || hit->column < screen_.Grid().TreeColumn()) return nullptr;
    return MakeObject<AccessibleCell>(SharedAnchor(), screen_, row, hit->column);
}

// Left and right walk between a node and what stands below it, as in other outlines.
AccessibleObject::Object AccessibleRow::Neighbour(LONG direction) {
    const int row = Row();
    const OutlineGrid& grid = screen_.Grid();
    const std::vector<int>& rows = grid.DisplayedRows();
    int index = grid.DisplayedIndex(row);
    switch (direction) {
        case NAVDIR_NEXT:
        case NAVDIR_DOWN: ++index; break;
        case NAVDIR_PREVIOUS:
        case NAVDIR_UP: --index; break;
        case NAVDIR_LEFT: {
            const int parent = screen_.IsData(row) ? grid.ParentRow(row) : OutlineGrid::kNoRow;
            if (parent == OutlineGrid::kNoRow) return nullptr;
            return MakeObject<AccessibleRow>(SharedAnchor(), screen_, parent);
        }
        case NAVDIR_RIGHT:
            if (!IsOpenable(row) || grid.IsCollapsed(row)) return nullptr;
            return MakeObject<AccessibleRow>(SharedAnchor(), screen_, row + 1);
        default: return AccessibleObject::Neighbour(direction);
    }
    if (index < 0 || index >= static_cast<int>(rows.size())) return nullptr;
    return MakeObject<AccessibleRow>(SharedAnchor(), screen_, rows[static_cast<std::size_t>(index)]);
}

bool AccessibleRow::HasFocus(Object& child) {
    const int row = Row();
    if (!screen_.HasFocus() || screen_.CurrentRow() != row) return false;
    const int column = screen_.CurrentColumn();
    if (column != screen_.Grid().TreeColumn())
        child = MakeObject<AccessibleCell>(SharedAnchor(), screen_, row, column);
    return true;
}

HRESULT AccessibleRow::Select(LONG flags) {
    const int row = Row();
    if (flags == 0 || (flags & ~(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION)) != 0) return E_INVALIDARG;
    if (!screen_.IsData(row) || !screen_.IsDisplayed(row)) return DISP_E_MEMBERNOTFOUND;
    if ((flags & SELFLAG_TAKEFOCUS) != 0) SetFocus(Surface());
    screen_.GoTo(row, screen_.CurrentColumn());
    return S_OK;
}

std::string AccessibleRow::ActionText() {
    const int row = Row();
    if (!IsOpenable(row)) return {};
    return screen_.Caption(screen_.Grid().IsCollapsed(row) ? CaptionKey("ExpandNode") : "CollapseNode");
}

HRESULT AccessibleRow::Act() {
    const int row = Row();
    if (!IsOpenable(row) || !screen_.IsDisplayed(row)) return DISP_E_MEMBERNOTFOUND;
    ToggleNode(screen_.Grid(), row);
    return S_OK;
}

}  // namespace dlv
