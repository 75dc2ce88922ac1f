// A window that shows one control of a form. Place, visibility and enabling are applied by the form's
// windows; the rest by the mirror itself, each kind in its own way.
#pragma once

#include "windows/com/PlainWindows.h"

#include <memory>
#include <string>

#include "windows/access/AccessibleObject.h"
#include "windows/hwnd/FormWindows.h"
#include "windows/hwnd/Window.h"

namespace dlv {

class Mirror : public Window {
public:
    Mirror(FormWindows& form, Control& control) : Window(form.Host()), form_(form), control_(control) {}
    ~Mirror() override;

    Control& Shown() const { return control_; }

    /// Makes the window, hidden; its text and the like come with the first Apply.
    virtual void Make(HWND parent) = 0;
    /// Writes into the window what changed of the control's own state.
    virtual void Apply() = 0;
    /// The fonts, measures or colours are others now.
    virtual void LookChanged();

    virtual bool TakesFocus() const { return false; }
    /// The window's place in its parent in pixels.
    virtual RECT PlaceInPixels() const { return form_.Kept().scale.ToRect(control_.Place()); }
    /// Brings place, visibility and enabling up to date, as part of `batch` where it can.
    HDWP ApplyPlace(HDWP batch);

    /// Keeps the name of a control that shows none where readers of windows find it: as its window's text.
    virtual void ApplyName() {}

    /// The text of a tool tip over the window; empty for none.
    virtual std::string ToolTip() const { return control_.ToolTip(); }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    /// What readers of the screen are told of the window; null where the system tells enough.
    virtual ComPtr<AccessibleObject> Accessible() { return nullptr; }
    /// For the objects that readers hold.
    const std::shared_ptr<AccessAnchor>& Anchor();
    /// Sets the window's text where it differs.
    void ApplyText(const std::string& text);

    FormWindows& Owner() const { return form_; }
    const Look& Kept() const { return form_.Kept(); }

private:
    void CutAnchor();
    bool OnUntranslatedKey(WPARAM key, LPARAM lParam);
    LRESULT OnToolTipText(NMHDR& header);

    FormWindows& form_;
    Control& control_;
    std::wstring toolTip_;
    std::shared_ptr<AccessAnchor> anchor_;
};

/// The mirror for a control by its kind; null for one that has no window, like a timer.
std::unique_ptr<Mirror> MakeMirror(FormWindows& form, Control& control);

}  // namespace dlv
