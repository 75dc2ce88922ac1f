// What the control's windows and dialogs need of the control that they belong to. The control implements it;
// windows call it on its own thread, from inside an entry.
#pragma once

#include "windows/com/PlainWindows.h"

#include "control/DLViewer.h"
#include "windows/com/Entry.h"

namespace dlv {

enum class Modeless { Disabled, Enabled };

class WindowHost : public EntryGate {
public:
    virtual DLViewer& Viewer() noexcept = 0;

    /// The control was stopped, let go of or has lost its window: modal loops return at once, and nothing is
    /// shown any more. A loop that sleeps is woken by a WM_NULL to its thread when this becomes true.
    virtual bool Ending() const noexcept = 0;

    /// The window that a dialog stands before: the container's top-level window, else the control's own; null
    /// when there is neither. Looked up anew for each dialog.
    virtual HWND DialogOwner() noexcept = 0;
    /// Tells the container that a dialog opens (Disabled) or has closed (Enabled). Calls may nest; the
    /// container hears of the outermost pair only.
    virtual void SetContainerModeless(Modeless state) = 0;

    /// The focus came into one of the control's windows, or left them all.
    virtual void FocusEntered() = 0;
    virtual void FocusLeft() = 0;
    /// Offers a key that leads out of the control to the container, unless it was offered already. True when
    /// the container took it.
    virtual bool OfferKeyToContainer(MSG& message) = 0;

    /// The control's outer window is being destroyed, by the control itself or with its parent. Sent once,
    /// from WM_NCDESTROY; the ControlWindow object lives on until no entry is under way.
    virtual void WindowDestroyed() = 0;
    /// The container has let the control go: what is still running ends.
    virtual void ContainerGone() = 0;
};

}  // namespace dlv
