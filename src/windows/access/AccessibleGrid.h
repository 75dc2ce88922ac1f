// A grid for a reader of the screen: an outline whose children are its displayed rows, header rows included.
// Rows below a closed node are none of its children until it is opened. Each row is made when it is asked
// for.
#pragma once

#include "windows/access/AccessibleObject.h"
#include "windows/access/GridScreen.h"

namespace dlv {

class AccessibleGrid final : public AccessibleObject {
public:
    /// `screen` is there while the anchor holds, as for rows and cells.
    AccessibleGrid(std::shared_ptr<AccessAnchor> anchor, GridScreen& screen)
        : AccessibleObject(std::move(anchor)), screen_(screen) {}

    std::string Name() override { return screen_.Name(); }
    LONG Role() override { return ROLE_SYSTEM_OUTLINE; }
    LONG State() override;
    RECT Area() override { return WindowArea(); }
    Object Copy() const override;
    ComPtr<IDispatch> Parent() override { return WindowObject(); }
    LONG ChildCount() override;
    Object Child(LONG id) override;
    Object ChildAt(POINT point) override;
    bool HasFocus(Object& child) override;
    Selection Selected() override;
    HRESULT Select(LONG flags) override;

private:
    GridScreen& screen_;
};

}  // namespace dlv
