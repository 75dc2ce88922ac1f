// What holds while a dialog is open: its owner is disabled, the container knows, and at the end the focus
// goes back to where it was. Scopes may be nested: the window on top is the owner of the next one.
#pragma once

#include "windows/com/PlainWindows.h"

#include "windows/com/WindowHost.h"

namespace dlv {

class ModalScope {
public:
    explicit ModalScope(WindowHost& host);
    ~ModalScope();
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

    /// Null when there is no window to stand before.
    HWND Owner() const { return owner_; }
    /// Enables the owner; called before the dialog's window goes, so that Windows activates the owner and no
    /// other program's window.
    void ReleaseOwner();

private:
    WindowHost& host_;
    HWND owner_;
    HWND focus_;
    bool disabled_ = false;
};

}  // namespace dlv
