#include "windows/access/AccessibleCell.h"

#include <algorithm>

#include "windows/access/AccessibleRow.h"
#include "windows/com/ComError.h"

namespace dlv {

int AccessibleCell::Row() {
    const int row = reference_.Find(screen_.Grid());
    if (row == OutlineGrid::kNoRow || column_ >= screen_.Grid().Columns())
        throw ComError(CO_E_OBJNOTCONNECTED);
    return row;
}

bool AccessibleCell::IsCurrent(int row) const {
    return screen_.CurrentRow() == row && screen_.CurrentColumn() == column_;
}

std::string AccessibleCell::Name() {
    const int row = Row();
    return screen_.IsData(row) ? ColumnHeading(screen_.Grid(), column_)
                               : screen_.Grid().CellText(row, column_);
}

std::string AccessibleCell::Value() {
    const int row = Row();
    return screen_.IsData(row) ? ShownText(screen_.Grid(), row, column_) : std::string();
}

std::string AccessibleCell::Description() {
    const int row = Row();
    if (!screen_.IsData(row) || column_ == screen_.Grid().TreeColumn()) return {};
    const std::string name = ShownText(screen_.Grid(), row, screen_.Grid().TreeColumn());
    const std::string reason = screen_.Reason(row, column_);
    return name.empty() || reason.empty() ? name + reason : name + ". " + reason;
}

LONG AccessibleCell::State() {
    const int row = Row();
    LONG state = WindowState() | RowState(screen_, row);
    if (screen_.IsSelected(row, column_)) state |= STATE_SYSTEM_SELECTED;
    if (screen_.HasFocus() && IsCurrent(row)) state |= STATE_SYSTEM_FOCUSED;
    const RECT area = Area();
    if ((state & STATE_SYSTEM_INVISIBLE) == 0 && IsRectEmpty(&area))
        state |= STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
    return state;
}

RECT AccessibleCell::Area() {
    const int row = Row();
    if (!screen_.IsDisplayed(row) || (RowState(screen_, row) & STATE_SYSTEM_OFFSCREEN) != 0) return {};
    return InsideGrid(screen_, screen_.Layout().CellArea(screen_.Grid().DisplayedIndex(row), column_));
}

ComPtr<IDispatch> AccessibleCell::Parent() {
    return MakeObject<AccessibleRow>(SharedAnchor(), screen_, Row());
}

AccessibleObject::Object AccessibleCell::Beside(int row, int step) const {
    const std::vector<int> columns = ReadColumns(screen_.Grid());
    const auto here = std::ranges::find(columns, column_) - columns.begin();
    const auto there = here + step;
    if (here == std::ssize(columns) || there < 0 || there >= std::ssize(columns)) return nullptr;
    return MakeObject<AccessibleCell>(SharedAnchor(), screen_, row, columns[static_cast<std::size_t>(there)]);
}

AccessibleObject::Object AccessibleCell::Neighbour(LONG direction) {
    const int row = Row();
    switch (direction) {
        case NAVDIR_NEXT:
        case NAVDIR_RIGHT: return Beside(row, 1);
        case NAVDIR_PREVIOUS:
        case NAVDIR_LEFT: return Beside(row, -1);
        case NAVDIR_UP:
        case NAVDIR_DOWN: {
            const std::vector<int>& rows = screen_.Grid().DisplayedRows();
            const int index = screen_.Grid().DisplayedIndex(row) + (direction == NAVDIR_UP ? -1 : 1);
            if (index < 0 || index >= static_cast<int>(rows.size())) return nullptr;
            return MakeObject<AccessibleCell>(SharedAnchor(), screen_, rows[static_cast<std::size_t>(index)],
                                              column_);
        }
        default: return nullptr;
    }
}

bool AccessibleCell::HasFocus(Object&) {
    const int row = Row();
    return screen_.HasFocus() && IsCurrent(row);
}

HRESULT AccessibleCell::Select(LONG flags) {
    const int row = Row();
    if (flags == 0 || (flags & ~(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION)) != 0) return E_INVALIDARG;
    if (!screen_.IsData(row) || !screen_.IsDisplayed(row)) return DISP_E_MEMBERNOTFOUND;
    if ((flags & SELFLAG_TAKEFOCUS) != 0) SetFocus(Surface());
    screen_.GoTo(row, column_);
    return S_OK;
}

std::string AccessibleCell::ActionText() {
    return screen_.IsData(Row()) ? screen_.Caption("ViewDetails") : std::string();
}

HRESULT AccessibleCell::Act() {
    const int row = Row();
    if (!screen_.IsData(row) || !screen_.IsDisplayed(row)) return DISP_E_MEMBERNOTFOUND;
    screen_.AskForRecords(row, column_);
    return S_OK;
}

}  // namespace dlv
