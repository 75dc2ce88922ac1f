// A cell of a grid for a reader of the screen: named by its column's heading, with its text as its value and
// its row's name and the reason for the figure as its description, so that who moves up and down hears where.
// It belongs to its row, as AccessibleRow has it, and to its column.
#pragma once

#include "windows/access/AccessibleObject.h"
#include "windows/access/GridScreen.h"

namespace dlv {

class AccessibleCell final : public AccessibleObject {
public:
    AccessibleCell(std::shared_ptr<AccessAnchor> anchor, GridScreen& screen, int row, int column)
        : AccessibleCell(std::move(anchor), screen, RowReference(screen.Grid(), row), column) {}
    AccessibleCell(std::shared_ptr<AccessAnchor> anchor, GridScreen& screen, RowReference row, int column)
        : AccessibleObject(std::move(anchor)), screen_(screen), reference_(std::move(row)), column_(column) {}

    std::string Name() override;
    std::string Value() override;
    std::string Description() override;
    LONG Role() override { return screen_.IsData(Row()) ? ROLE_SYSTEM_CELL : ROLE_SYSTEM_COLUMNHEADER; }
    LONG State() override;
    RECT Area() override;
    Object Copy() const override {
        return MakeObject<AccessibleCell>(SharedAnchor(), screen_, reference_, column_);
    }
    ComPtr<IDispatch> Parent() override;
    Object Neighbour(LONG direction) override;
    bool HasFocus(Object& child) override;
    HRESULT Select(LONG flags) override;
    std::string ActionText() override;
    HRESULT Act() override;

private:
    /// CO_E_OBJNOTCONNECTED when row or column have gone.
    int Row();
    bool IsCurrent(int row) const;
    Object Beside(int row, int step) const;

    GridScreen& screen_;
    RowReference reference_;
    const int column_;
};

}  // namespace dlv
