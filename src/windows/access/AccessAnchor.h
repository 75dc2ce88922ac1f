// What ties the objects that a reader of the screen holds to the window that they tell of. A reader may hold
// them for as long as it likes: once the window has gone, they say no more than that.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oleacc.h>

#include <memory>

#include "windows/com/Entry.h"

namespace dlv {

/// Sent by a window to itself: what a reader of the screen asked for is to be done now that the reader's call
/// has returned, since it may open a dialog.
inline constexpr UINT kAccessAction = WM_APP + 0x61;

/// Whether a person could use the window: it is to be seen, and neither it nor a window that it stands in is
/// disabled, as all are while a dialog is open.
bool TakesInput(HWND window);

class AccessAnchor {
public:
    /// `gate` outlives the window.
    AccessAnchor(EntryGate& gate, HWND window) : gate_(&gate), window_(window) {}
    AccessAnchor(const AccessAnchor&) = delete;
    AccessAnchor& operator=(const AccessAnchor&) = delete;

    HWND Window() const { return window_; }
    bool Holds() const { return gate_ != nullptr; }
    /// The window goes. Nothing behind it is touched again.
    void Cut() { gate_ = nullptr; }

    /// Runs a call of a reader's inside an entry. RPC_E_WRONG_THREAD on another thread than the window's,
    /// CO_E_OBJNOTCONNECTED when the window has gone.
    template <class Body>
    HRESULT Call(Body&& body) noexcept {
        if (GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
        if (gate_ == nullptr) return CO_E_OBJNOTCONNECTED;
        return gate_->Method(__uuidof(IAccessible), body);
    }

private:
    const DWORD thread_ = GetCurrentThreadId();
    EntryGate* gate_;
    const HWND window_;
};

}  // namespace dlv
