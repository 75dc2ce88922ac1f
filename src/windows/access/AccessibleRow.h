// A row of a grid for a reader of the screen: named by its text in the tree column, with its level, from 0,
// as its value and its place among its like as its description; its children are the cells that are read. It
// stays the same row when rows come, go or are filled anew, and once it is gone answers CO_E_OBJNOTCONNECTED.
#pragma once

#include "windows/access/AccessibleObject.h"
#include "windows/access/GridScreen.h"

namespace dlv {

class AccessibleRow final : public AccessibleObject {
public:
    AccessibleRow(std::shared_ptr<AccessAnchor> anchor, GridScreen& screen, int row)
        : AccessibleRow(std::move(anchor), screen, RowReference(screen.Grid(), row)) {}
    AccessibleRow(std::shared_ptr<AccessAnchor> anchor, GridScreen& screen, RowReference reference)
        : AccessibleObject(std::move(anchor)), screen_(screen), reference_(std::move(reference)) {}

    std::string Name() override;
    std::string Value() override;
    std::string Description() override;
    LONG Role() override { return screen_.IsData(Row()) ? ROLE_SYSTEM_OUTLINEITEM : ROLE_SYSTEM_ROW; }
    LONG State() override;
    RECT Area() override;
    Object Copy() const override { return MakeObject<AccessibleRow>(SharedAnchor(), screen_, reference_); }
    ComPtr<IDispatch> Parent() override;
    LONG ChildCount() override;
    Object Child(LONG id) override;
    Object ChildAt(POINT point) override;
    Object Neighbour(LONG direction) override;
    bool HasFocus(Object& child) override;
    HRESULT Select(LONG flags) override;
    std::string ActionText() override;
    HRESULT Act() override;

private:
    int Row();
    bool IsOpenable(int row) const;

    GridScreen& screen_;
    RowReference reference_;
};

/// The states of a row and its cells: in sight or not, current or not.
LONG RowState(GridScreen& screen, int row);
/// The part of a row's or cell's area that is inside the grid, on the screen; empty when it is out of sight.
RECT InsideGrid(const GridScreen& screen, RECT area);

}  // namespace dlv
