#include "hosts/container/Site.h"

#include "hosts/container/Measure.h"

namespace dlv::container {

void* Site::Find(REFIID iid) {
    return IsEqualGUID(iid, IID_IOleWindow) ? static_cast<IOleInPlaceSite*>(this) : Unknown::Find(iid);
}

void Site::SetControl(IUnknown* control) {
    control_ = control;
    const ComPtr<IOleInPlaceObject> gone = std::move(inPlaceObject_);
}

void Site::Note(std::string_view call) const {
    if (listener_) listener_(call);
}

STDMETHODIMP Site::SaveObject() {
    Note("IOleClientSite.SaveObject");
    return S_OK;
}

STDMETHODIMP Site::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    Note("IOleClientSite.GetMoniker");
    if (moniker != nullptr) *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP Site::GetContainer(IOleContainer** container) {
    Note("IOleClientSite.GetContainer");
    if (container != nullptr) *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP Site::ShowObject() {
    Note("IOleClientSite.ShowObject");
    return S_OK;
}

STDMETHODIMP Site::OnShowWindow(BOOL) {
    Note("IOleClientSite.OnShowWindow");
    return S_OK;
}

STDMETHODIMP Site::RequestNewObjectLayout() {
    Note("IOleClientSite.RequestNewObjectLayout");
    return E_NOTIMPL;
}

STDMETHODIMP Site::GetWindow(HWND* window) {
    Note("IOleInPlaceSite.GetWindow");
    if (window == nullptr) return E_POINTER;
    *window = parent_;
    return S_OK;
}

STDMETHODIMP Site::ContextSensitiveHelp(BOOL) { return E_NOTIMPL; }

STDMETHODIMP Site::CanInPlaceActivate() {
    Note("IOleInPlaceSite.CanInPlaceActivate");
    return S_OK;
}

STDMETHODIMP Site::OnInPlaceActivate() {
    Note("IOleInPlaceSite.OnInPlaceActivate");
    if (control_ != nullptr) control_->QueryInterface(IID_PPV_ARGS(&inPlaceObject_));
    return S_OK;
}

STDMETHODIMP Site::OnUIActivate() {
    Note("IOleInPlaceSite.OnUIActivate");
    return S_OK;
}

STDMETHODIMP Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                    LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    Note("IOleInPlaceSite.GetWindowContext");
    if (frame == nullptr || document == nullptr || place == nullptr || clip == nullptr || info == nullptr)
        return E_POINTER;
    *frame = ComPtr<IOleInPlaceFrame>(frame_).Detach();
    *document = nullptr;
    *place = place_;
    *clip = place_;
    info->fMDIApp = FALSE;
    info->hwndFrame = frame_->Window();
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP Site::Scroll(SIZE) { return E_NOTIMPL; }

STDMETHODIMP Site::OnUIDeactivate(BOOL) {
    Note("IOleInPlaceSite.OnUIDeactivate");
    return S_OK;
}

STDMETHODIMP Site::OnInPlaceDeactivate() {
    Note("IOleInPlaceSite.OnInPlaceDeactivate");
    const ComPtr<IOleInPlaceObject> gone = std::move(inPlaceObject_);
    return S_OK;
}

STDMETHODIMP Site::DiscardUndoState() { return S_OK; }

STDMETHODIMP Site::DeactivateAndUndo() { return E_NOTIMPL; }

STDMETHODIMP Site::OnPosRectChange(LPCRECT place) {
    Note("IOleInPlaceSite.OnPosRectChange");
    if (place == nullptr) return E_POINTER;
    place_ = *place;
    return inPlaceObject_ ? inPlaceObject_->SetObjectRects(&place_, &place_) : S_OK;
}

STDMETHODIMP Site::OnControlInfoChanged() {
    Note("IOleControlSite.OnControlInfoChanged");
    return S_OK;
}

STDMETHODIMP Site::LockInPlaceActive(BOOL) {
    Note("IOleControlSite.LockInPlaceActive");
    return S_OK;
}

STDMETHODIMP Site::GetExtendedControl(IDispatch** extended) {
    if (extended != nullptr) *extended = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP Site::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) {
    Note("IOleControlSite.TransformCoords");
    if (himetric == nullptr || container == nullptr) return E_POINTER;
    const auto dpi = static_cast<float>(DpiOf(parent_));
    if ((flags & XFORMCOORDS_HIMETRICTOCONTAINER) != 0) {
        container->x = static_cast<float>(himetric->x) * dpi / kHimetricPerInch;
        container->y = static_cast<float>(himetric->y) * dpi / kHimetricPerInch;
    } else {
        himetric->x = static_cast<LONG>(container->x * kHimetricPerInch / dpi);
        himetric->y = static_cast<LONG>(container->y * kHimetricPerInch / dpi);
    }
    return S_OK;
}

STDMETHODIMP Site::TranslateAccelerator(LPMSG message, DWORD) {
    Note("IOleControlSite.TranslateAccelerator");
    if (message == nullptr) return E_POINTER;
    return keyFilter_ && keyFilter_(*message) ? S_OK : S_FALSE;
}

STDMETHODIMP Site::OnFocus(BOOL gotFocus) {
    Note(gotFocus != FALSE ? "IOleControlSite.OnFocus(taken)" : "IOleControlSite.OnFocus(lost)");
    hasFocus_ = gotFocus != FALSE;
    return S_OK;
}

STDMETHODIMP Site::ShowPropertyFrame() { return E_NOTIMPL; }

STDMETHODIMP Site::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP Site::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

STDMETHODIMP Site::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) { return E_NOTIMPL; }

STDMETHODIMP Site::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                          UINT*) {
    if ((flags & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
    return result == nullptr ? E_POINTER : ambients_.Get(id, *result);
}

}  // namespace dlv::container
