#include "windows/access/AccessibleToolbar.h"

#include "windows/com/ComError.h"

namespace dlv {

namespace {

/// One button, which stays that button while others come and go.
class AccessibleTool final : public AccessibleObject {
public:
    AccessibleTool(std::shared_ptr<AccessAnchor> anchor, const ToolbarScreen& screen, int id)
        : AccessibleObject(std::move(anchor)), screen_(screen), id_(id) {}

    std::string Name() override { return Here().name; }
    LONG Role() override { return Here().role; }
    LONG State() override {
        static_cast<void>(Here());
        const LONG focused = screen_.FocusedTool() == id_ ? STATE_SYSTEM_FOCUSED : 0;
        return WindowState() | STATE_SYSTEM_FOCUSABLE | focused;
    }
    RECT Area() override {
        RECT area = Here().area;
        MapWindowPoints(Surface(), HWND_DESKTOP, reinterpret_cast<POINT*>(&area), 2);
        return area;
    }
    Object Copy() const override { return MakeObject<AccessibleTool>(SharedAnchor(), screen_, id_); }
    ComPtr<IDispatch> Parent() override { return MakeObject<AccessibleToolbar>(SharedAnchor(), screen_); }
    std::string ActionText() override { return Here().name; }
    // Once this call has returned: a tool may open a dialog.
    HRESULT Act() override {
        static_cast<void>(Here());
        PostMessageW(Surface(), kAccessAction, static_cast<WPARAM>(id_), 0);
        return S_OK;
    }

private:
    ToolbarScreen::Tool Here() const {
        for (ToolbarScreen::Tool& tool : screen_.Tools())
            if (tool.id == id_) return std::move(tool);
        throw ComError(CO_E_OBJNOTCONNECTED);
    }

    const ToolbarScreen& screen_;
    const int id_;
};

}  // namespace

AccessibleObject::Object AccessibleToolbar::Child(LONG id) {
    const std::vector<ToolbarScreen::Tool> tools = screen_.Tools();
    if (id < 1 || id > std::ssize(tools)) return nullptr;
    return MakeObject<AccessibleTool>(SharedAnchor(), screen_, tools[static_cast<std::size_t>(id - 1)].id);
}

AccessibleObject::Object AccessibleToolbar::ChildAt(POINT point) {
    ScreenToClient(Surface(), &point);
    for (const ToolbarScreen::Tool& tool : screen_.Tools())
        if (PtInRect(&tool.area, point)) return MakeObject<AccessibleTool>(SharedAnchor(), screen_, tool.id);
    return nullptr;
}

bool AccessibleToolbar::HasFocus(Object& child) {
    const int id = screen_.FocusedTool();
    if (id != 0) child = MakeObject<AccessibleTool>(SharedAnchor(), screen_, id);
    return GetFocus() == Surface();
}

}  // namespace dlv
