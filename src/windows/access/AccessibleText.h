// A label for a reader of the screen: a figure is told with the heading that names it, a label that answers
// clicks as a link, one whose text is to be announced as an alert.
#pragma once

#include "windows/access/AccessibleObject.h"

namespace dlv {

/// What a label tells of itself.
class TextScreen {
public:
    virtual ~TextScreen() = default;
    virtual LONG TextRole() const = 0;
    /// What the label is about; empty for one that is about nothing but itself.
    virtual std::string Heading() const = 0;
    virtual std::string Text() const = 0;
    /// What a click does; empty when it does nothing.
    virtual std::string ClickText() const = 0;
};

class AccessibleText final : public AccessibleObject {
public:
    /// `screen` is there while the anchor holds.
    AccessibleText(std::shared_ptr<AccessAnchor> anchor, const TextScreen& screen)
        : AccessibleObject(std::move(anchor)), screen_(screen) {}

    std::string Name() override;
    std::string Value() override { return screen_.Heading().empty() ? std::string() : screen_.Text(); }
    LONG Role() override { return screen_.TextRole(); }
    LONG State() override { return WindowState() | STATE_SYSTEM_READONLY; }
    RECT Area() override { return WindowArea(); }
    Object Copy() const override { return MakeObject<AccessibleText>(SharedAnchor(), screen_); }
    ComPtr<IDispatch> Parent() override { return WindowObject(); }
    std::string ActionText() override { return screen_.ClickText(); }
    HRESULT Act() override;

private:
    const TextScreen& screen_;
};

}  // namespace dlv
