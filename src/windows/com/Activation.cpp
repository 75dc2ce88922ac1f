#include "windows/com/Activation.h"

#include <ocidl.h>
#include <olectl.h>

#include "windows/com/ComError.h"

namespace dlv {

using Microsoft::WRL::ComPtr;

namespace {

/// Sets a flag for as long as it lives.
class Flagged {
public:
    explicit Flagged(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Flagged() { flag_ = before_; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;

private:
    bool& flag_;
    bool before_;
};

SIZE SizeOf(const RECT& rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }

HWND WindowOf(IOleWindow* object) {
    HWND window = nullptr;
    return object != nullptr && SUCCEEDED(object->GetWindow(&window)) && IsWindow(window) ? window : nullptr;
}

}  // namespace

Zoom Activation::CurrentZoom() const {
    if (window_) return window_->CurrentZoom();
    return ZoomFor(ambience_.Look(), ScreenDpi(), extent_.Pixels(ScreenDpi()), kLeastControlSize);
}

HRESULT Activation::ActivateInPlace() {
    // A window that goes gives the focus to the container's, which may want to hand it straight back.
    if (leaving_) return OLEOBJ_S_CANNOT_DOVERB_NOW;
    if (IsInPlaceActive() && window_) {
        window_->Show(Shown::Visible);
        return S_OK;
    }
    Deactivate();
    const ComPtr<IOleInPlaceSite> site = site_.As<IOleInPlaceSite>();
    if (!site || site->CanInPlaceActivate() != S_OK) return E_FAIL;
    const HRESULT activated = site->OnInPlaceActivate();
    if (FAILED(activated)) return activated;
    state_ = State::InPlaceActive;
    inPlaceSite_ = site;
    const HRESULT created = GuardMethod(IID_NULL, [&] { CreateWindowIn(*site.Get()); });
    if (FAILED(created)) {
        Deactivate();
        return created;
    }
    // The container may have thought better of it meanwhile.
    if (!IsInPlaceActive()) return E_FAIL;
    const ComPtr<IOleClientSite> client = site_.Get();
    if (client) client->ShowObject();
    return S_OK;
}

void Activation::CreateWindowIn(IOleInPlaceSite& site) {
    HWND parent = nullptr;
    Check(site.GetWindow(&parent));
    RECT place{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    Check(site.GetWindowContext(&frame_, &document_, &place, &clip, &info));
    if (info.haccel != nullptr) DestroyAcceleratorTable(std::exchange(info.haccel, nullptr));
    extent_.SetPixels(SizeOf(place), Dpi());
    window_ = std::make_unique<ControlWindow>(host_, ambience_.Look());
    window_->Create(parent, place);
    FollowAmbience();
    ClipTo(place, &clip);
    host_.Viewer().UserControl_Resize();
    window_->Flush();
    window_->Show(Shown::Visible);
}

HRESULT Activation::ActivateUI() {
    const HRESULT inPlace = ActivateInPlace();
    if (inPlace != S_OK) return inPlace;
    if (!ambience_.IsLive()) return OLEOBJ_S_CANNOT_DOVERB_NOW;
    if (!IsUIActive()) {
        state_ = State::UIActive;
        const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
        const HRESULT activated = site->OnUIActivate();
        if (FAILED(activated)) {
            if (IsUIActive()) state_ = State::InPlaceActive;
            return activated;
        }
        if (!IsUIActive()) return E_FAIL;
        SetActiveObject(&active_);
    }
    if (window_ && !window_->HasFocus()) window_->TakeFocus(FocusFrom::Anywhere);
    return S_OK;
}

void Activation::SetActiveObject(IOleInPlaceActiveObject* object) {
    const ComPtr<IOleInPlaceFrame> frame = frame_;
    const ComPtr<IOleInPlaceUIWindow> document = document_;
    const std::wstring displayName = ambience_.DisplayName();
    const wchar_t* name = object == nullptr ? nullptr : displayName.c_str();
    // No tools of ours go into the container's borders.
    if (frame) {
        frame->SetActiveObject(object, name);
        if (object != nullptr) frame->SetBorderSpace(nullptr);
    }
    if (document) {
        document->SetActiveObject(object, name);
        if (object != nullptr) document->SetBorderSpace(nullptr);
    }
}

void Activation::DeactivateUI() {
    if (!IsUIActive()) return;
    state_ = State::InPlaceActive;
    const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
    SetActiveObject(nullptr);
    if (site) site->OnUIDeactivate(FALSE);
}

void Activation::Deactivate() {
    DeactivateUI();
    if (!IsInPlaceActive()) return;
    const Flagged leaving(leaving_);
    state_ = State::Inactive;
    RetireWindow();
    const ComPtr<IOleInPlaceFrame> frame = std::move(frame_);
    const ComPtr<IOleInPlaceUIWindow> document = std::move(document_);
    const ComPtr<IOleInPlaceSite> site = std::move(inPlaceSite_);
    if (site) site->OnInPlaceDeactivate();
}

void Activation::Hide() {
    DeactivateUI();
    if (!window_) return;
    const Flagged leaving(leaving_);
    GiveFocusBack();
    if (window_) window_->Show(Shown::Hidden);
}

HRESULT Activation::SetObjectRects(const RECT& place, const RECT* clip) {
    if (!window_) return E_UNEXPECTED;
    const Flagged placing(placing_);
    extent_.SetPixels(SizeOf(place), Dpi());
    window_->Move(place);
    ClipTo(place, clip);
    return S_OK;
}

void Activation::ClipTo(const RECT& place, const RECT* clip) {
    RECT visible = place;
    if (clip != nullptr && !IsRectEmpty(clip)) IntersectRect(&visible, &place, clip);
    const bool whole = EqualRect(&visible, &place);
    if (whole && !clipped_) return;
    OffsetRect(&visible, -place.left, -place.top);
    // The window owns the region that it is given.
    SetWindowRgn(window_->Handle(), whole ? nullptr : CreateRectRgnIndirect(&visible), TRUE);
    clipped_ = !whole;
}

void Activation::RequestSizeOfExtent() {
    if (!window_ || !inPlaceSite_ || placing_ || requestingSize_) return;
    RECT place{};
    GetWindowRect(window_->Handle(), &place);
    const SIZE wanted = extent_.Pixels(Dpi());
    const SIZE present = SizeOf(place);
    if (wanted.cx == present.cx && wanted.cy == present.cy) return;
    MapWindowPoints(nullptr, GetParent(window_->Handle()), reinterpret_cast<POINT*>(&place), 2);
    place.right = place.left + wanted.cx;
    place.bottom = place.top + wanted.cy;
    const Flagged requesting(requestingSize_);
    const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
    site->OnPosRectChange(&place);
}

HWND Activation::DialogOwner() const noexcept {
    const ComPtr<IOleInPlaceFrame> frame = frame_;
    HWND owner = WindowOf(frame.Get());
    if (owner == nullptr) owner = WindowOf(inPlaceSite_.Get());
    if (owner == nullptr) owner = WindowOf(site_.As<IOleWindow>().Get());
    if (owner == nullptr) owner = WindowHandle();
    return owner == nullptr ? nullptr : GetAncestor(owner, GA_ROOT);
}

void Activation::SetContainerModeless(Modeless state) {
    if (state == Modeless::Disabled) {
        if (++modalDepth_ > 1) return;
        modalFrame_ = frame_;
        const ComPtr<IOleInPlaceFrame> frame = modalFrame_;
        if (frame) frame->EnableModeless(FALSE);
    } else {
        if (modalDepth_ == 0 || --modalDepth_ > 0) return;
        const ComPtr<IOleInPlaceFrame> frame = std::move(modalFrame_);
        if (frame) frame->EnableModeless(TRUE);
    }
}

void Activation::FocusEntered() {
    site_.TellFocus(Focus::Taken);
    if (IsInPlaceActive() && window_) ActivateUI();
}

void Activation::FollowAmbience() {
    window_->SetAppearance(ambience_.Look());
    window_->SetName(ambience_.DisplayName());
    window_->SetLive(ambience_.IsLive() ? Live::Yes : Live::No);
}

void Activation::AmbienceChanged() {
    if (!ambience_.IsLive()) DeactivateUI();
    if (window_) FollowAmbience();
}

void Activation::DocumentActivated(bool active) {
    const ComPtr<IOleInPlaceFrame> frame = frame_;
    if (!active || !IsUIActive() || !frame) return;
    frame->SetActiveObject(&active_, ambience_.DisplayName().c_str());
    frame->SetBorderSpace(nullptr);
}

void Activation::FocusLeft() { site_.TellFocus(Focus::Lost); }

void Activation::GiveFocusBack() {
    if (window_->HasFocus()) SetFocus(GetParent(window_->Handle()));
}

void Activation::RetireWindow() {
    if (window_) GiveFocusBack();
    if (!window_) return;
    clipped_ = false;
    if (host_.Depth() <= 1) {
        const Flagged destroying(destroying_);
        window_->Destroy();
        window_.reset();
        return;
    }
    // Code of the window's own may be on the stack: it goes out of sight, and out of the container's window,
    // which may be destroyed at once; its end comes when no entry is under way.
    const HWND handle = window_->Handle();
    window_->Show(Shown::Hidden);
    SetParent(handle, HWND_MESSAGE);
    retired_.push_back(std::move(window_));
}

Activation::Loss Activation::WindowDestroyed() {
    if (destroying_) return Loss::Own;
    clipped_ = false;
    if (window_) retired_.push_back(std::move(window_));
    return Loss::FromOutside;
}

void Activation::DropRetiredWindows() {
    const Flagged destroying(destroying_);
    for (const std::unique_ptr<ControlWindow>& window : std::exchange(retired_, {})) window->Destroy();
}

}  // namespace dlv
