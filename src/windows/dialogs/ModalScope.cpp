#include "windows/dialogs/ModalScope.h"

namespace dlv {

namespace {

/// The window that the next dialog stands before: the dialog that is open over `window`, else itself.
HWND TopmostOver(HWND window) {
    if (window == nullptr) return nullptr;
    const HWND popup = GetLastActivePopup(window);
    const bool usable = popup != nullptr && IsWindowVisible(popup) && IsWindowEnabled(popup) &&
                        GetWindowThreadProcessId(popup, nullptr) == GetCurrentThreadId();
    return usable ? popup : window;
}

}  // namespace

ModalScope::ModalScope(WindowHost& host)
    : host_(host), owner_(TopmostOver(host.DialogOwner())), focus_(GetFocus()) {
    // A menu that is open would keep the mouse from the dialog.
    EndMenu();
    ReleaseCapture();
    host_.SetContainerModeless(Modeless::Disabled);
    if (owner_ != nullptr && IsWindowEnabled(owner_)) {
        EnableWindow(owner_, FALSE);
        disabled_ = true;
    }
}

void ModalScope::ReleaseOwner() {
    if (disabled_ && IsWindow(owner_)) EnableWindow(owner_, TRUE);
    disabled_ = false;
}

ModalScope::~ModalScope() {
    ReleaseOwner();
    host_.Window([this] { host_.SetContainerModeless(Modeless::Enabled); });
    if (focus_ != nullptr && IsWindow(focus_) && IsWindowVisible(focus_)) SetFocus(focus_);
}

}  // namespace dlv
