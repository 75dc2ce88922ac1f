#include "windows/access/AccessibleGrid.h"

#include "windows/access/AccessibleCell.h"
#include "windows/access/AccessibleRow.h"

namespace dlv {

namespace {

/// Rows by their ids.
struct Range {
    LONG first = 0;
    LONG count = 0;
};

Range SelectedRows(const GridScreen& screen) {
    const auto block = screen.Grid().Selection();
    if (!block) return {};
    const LONG first = screen.IdOfRow(block->firstRow);
    return {first, screen.IdOfRow(block->lastRow) - first + 1};
}

/// What enumerates the selected rows.
class SelectedRowsList final : public AccessibleObject {
public:
    SelectedRowsList(std::shared_ptr<AccessAnchor> anchor, GridScreen& screen)
        : AccessibleObject(std::move(anchor)), screen_(screen) {}

    LONG Role() override { return ROLE_SYSTEM_GROUPING; }
    LONG State() override { return WindowState(); }
    RECT Area() override { return WindowArea(); }
    Object Copy() const override { return MakeObject<SelectedRowsList>(SharedAnchor(), screen_); }
    ComPtr<IDispatch> Parent() override { return MakeObject<AccessibleGrid>(SharedAnchor(), screen_); }
    LONG ChildCount() override { return SelectedRows(screen_).count; }
    Object Child(LONG id) override {
        const auto place = screen_.PlaceOfId(SelectedRows(screen_).first + id - 1);
        return place ? MakeObject<AccessibleRow>(SharedAnchor(), screen_, place->row) : nullptr;
    }

private:
    GridScreen& screen_;
};

}  // namespace

LONG AccessibleGrid::State() {
    return WindowState() | STATE_SYSTEM_FOCUSABLE | (screen_.HasFocus() ? STATE_SYSTEM_FOCUSED : 0);
}

AccessibleObject::Object AccessibleGrid::Copy() const {
    return MakeObject<AccessibleGrid>(SharedAnchor(), screen_);
}

LONG AccessibleGrid::ChildCount() { return static_cast<LONG>(screen_.Grid().DisplayedRows().size()); }

AccessibleObject::Object AccessibleGrid::Child(LONG id) {
    const auto place = screen_.PlaceOfId(id);
    if (!place) return nullptr;
    if (place->column) return MakeObject<AccessibleCell>(SharedAnchor(), screen_, place->row, *place->column);
    return MakeObject<AccessibleRow>(SharedAnchor(), screen_, place->row);
}

AccessibleObject::Object AccessibleGrid::ChildAt(POINT point) {
    ScreenToClient(Surface(), &point);
    const auto hit = screen_.Layout().HitTest(point);
    return hit ? MakeObject<AccessibleRow>(SharedAnchor(), screen_, hit->row) : nullptr;
}

// In the tree column the row itself has the focus.
bool AccessibleGrid::HasFocus(Object& child) {
    if (!screen_.HasFocus()) return false;
    const int row = screen_.CurrentRow();
    if (row == OutlineGrid::kNoRow) return true;
    const int column = screen_.CurrentColumn();
    child =
        Child(column == screen_.Grid().TreeColumn() ? screen_.IdOfRow(row) : screen_.IdOfCell(row, column));
    return true;
}

AccessibleObject::Selection AccessibleGrid::Selected() {
    const Range range = SelectedRows(screen_);
    if (range.count <= 0) return {};
    if (range.count == 1) return {Child(range.first)};
    return {MakeObject<SelectedRowsList>(SharedAnchor(), screen_), true};
}

HRESULT AccessibleGrid::Select(LONG flags) {
    if (flags != SELFLAG_TAKEFOCUS) return E_INVALIDARG;
    SetFocus(Surface());
    return S_OK;
}

}  // namespace dlv
