// A tool bar for a reader of the screen. Its buttons show pictures alone; here they have the names that their
// tool tips tell.
#pragma once

#include <vector>

#include "windows/access/AccessibleObject.h"

namespace dlv {

class ToolbarScreen {
public:
    virtual ~ToolbarScreen() = default;
    struct Tool {
        /// The command that the button gives.
        int id = 0;
        std::string name;
        LONG role = ROLE_SYSTEM_PUSHBUTTON;
        /// In client pixels.
        RECT area{};
    };
    /// The buttons that are to be seen.
    virtual std::vector<Tool> Tools() const = 0;
    /// The command of the button that the keyboard is on; 0 for none.
    virtual int FocusedTool() const = 0;
};

class AccessibleToolbar final : public AccessibleObject {
public:
    /// `screen` is there while the anchor holds.
    AccessibleToolbar(std::shared_ptr<AccessAnchor> anchor, const ToolbarScreen& screen)
        : AccessibleObject(std::move(anchor)), screen_(screen) {}

    LONG Role() override { return ROLE_SYSTEM_TOOLBAR; }
    LONG State() override { return WindowState() | STATE_SYSTEM_FOCUSABLE; }
    RECT Area() override { return WindowArea(); }
    Object Copy() const override { return MakeObject<AccessibleToolbar>(SharedAnchor(), screen_); }
    ComPtr<IDispatch> Parent() override { return WindowObject(); }
    LONG ChildCount() override { return static_cast<LONG>(screen_.Tools().size()); }
    Object Child(LONG id) override;
    Object ChildAt(POINT point) override;
    bool HasFocus(Object& child) override;

private:
    const ToolbarScreen& screen_;
};

}  // namespace dlv
