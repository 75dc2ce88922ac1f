// In-place activation: the control's window in the container's, and the dealings with the container's site,
// frame and document window that go with it.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oleidl.h>
#include <wrl/client.h>

#include <memory>
#include <vector>

#include "windows/com/Ambience.h"
#include "windows/com/ClientSite.h"
#include "windows/com/Extent.h"
#include "windows/com/WindowHost.h"
#include "windows/hwnd/ControlWindow.h"

namespace dlv {

class Activation {
public:
    /// `active` is what frames get as their active object.
    Activation(WindowHost& host, ClientSite& site, const Ambience& ambience, Extent& extent,
               IOleInPlaceActiveObject& active)
        : host_(host), site_(site), ambience_(ambience), extent_(extent), active_(active) {}

    bool IsInPlaceActive() const { return state_ != State::Inactive; }
    bool IsUIActive() const { return state_ == State::UIActive; }

    HRESULT ActivateInPlace();
    HRESULT ActivateUI();
    void DeactivateUI();
    void Deactivate();
    void Hide();

    /// The container has placed the control: `place` in its window, of which `clip` shows.
    HRESULT SetObjectRects(const RECT& place, const RECT* clip);
    /// The extent was set from outside: asks the container for a place of the new size.
    void RequestSizeOfExtent();

    /// Null while there is none.
    ControlWindow* Window() const { return window_.get(); }
    HWND WindowHandle() const { return window_ ? window_->Handle() : nullptr; }
    int Dpi() const { return window_ ? window_->Dpi() : ScreenDpi(); }
    Zoom CurrentZoom() const;

    HWND DialogOwner() const noexcept;
    void SetContainerModeless(Modeless state);

    void FocusEntered();
    void FocusLeft();

    /// The ambient properties are others now.
    void AmbienceChanged();
    /// The container's document window became the active one, or another did.
    void DocumentActivated(bool active);

    enum class Loss { Own, FromOutside };
    /// The window is going down; says whether somebody else had it destroyed.
    Loss WindowDestroyed();
    /// Only while no entry is under way but the one that is being left.
    void DropRetiredWindows();

private:
    enum class State { Inactive, InPlaceActive, UIActive };

    void CreateWindowIn(IOleInPlaceSite& site);
    void RetireWindow();
    /// To the container's window: a window that is hidden or gone is to have no focus.
    void GiveFocusBack();
    void ClipTo(const RECT& place, const RECT* clip);
    void SetActiveObject(IOleInPlaceActiveObject* object);
    void FollowAmbience();

    WindowHost& host_;
    ClientSite& site_;
    const Ambience& ambience_;
    Extent& extent_;
    IOleInPlaceActiveObject& active_;

    State state_ = State::Inactive;
    Microsoft::WRL::ComPtr<IOleInPlaceSite> inPlaceSite_;
    Microsoft::WRL::ComPtr<IOleInPlaceFrame> frame_;
    Microsoft::WRL::ComPtr<IOleInPlaceUIWindow> document_;
    Microsoft::WRL::ComPtr<IOleInPlaceFrame> modalFrame_;
    int modalDepth_ = 0;
    bool requestingSize_ = false;
    bool placing_ = false;
    bool leaving_ = false;
    bool clipped_ = false;
    bool destroying_ = false;
    std::unique_ptr<ControlWindow> window_;
    /// Windows that were given up while code of theirs was running.
    std::vector<std::unique_ptr<ControlWindow>> retired_;
};

}  // namespace dlv
