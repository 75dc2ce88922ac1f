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

STDMETHODIMP Site::SaveObject() { return Hear("IOleClientSite.SaveObject").Returns(S_OK); }

STDMETHODIMP Site::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker != nullptr) *moniker = nullptr;
    return Hear("IOleClientSite.GetMoniker").Returns(E_NOTIMPL);
}

STDMETHODIMP Site::GetContainer(IOleContainer** container) {
    if (container != nullptr) *container = nullptr;
    return Hear("IOleClientSite.GetContainer").Returns(E_NOINTERFACE);
}

STDMETHODIMP Site::ShowObject() { return Hear("IOleClientSite.ShowObject").Returns(S_OK); }

STDMETHODIMP Site::OnShowWindow(BOOL) { return Hear("IOleClientSite.OnShowWindow").Returns(S_OK); }

STDMETHODIMP Site::RequestNewObjectLayout() {
    return Hear("IOleClientSite.RequestNewObjectLayout").Returns(E_NOTIMPL);
}

STDMETHODIMP Site::GetWindow(HWND* window) {
    auto call = Hear("IOleInPlaceSite.GetWindow");
    if (window == nullptr) return call.Returns(E_POINTER);
    *window = parent_;
    return call.Returns(S_OK);
}

STDMETHODIMP Site::ContextSensitiveHelp(BOOL) {
    return Hear("IOleInPlaceSite.ContextSensitiveHelp").Returns(E_NOTIMPL);
}

STDMETHODIMP Site::CanInPlaceActivate() { return Hear("IOleInPlaceSite.CanInPlaceActivate").Returns(S_OK); }

STDMETHODIMP Site::OnInPlaceActivate() {
    auto call = Hear("IOleInPlaceSite.OnInPlaceActivate");
    if (control_ != nullptr) control_->QueryInterface(IID_PPV_ARGS(&inPlaceObject_));
    return call.Returns(S_OK);
}

STDMETHODIMP Site::OnUIActivate() { return Hear("IOleInPlaceSite.OnUIActivate").Returns(S_OK); }

STDMETHODIMP Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                    LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    auto call = Hear("IOleInPlaceSite.GetWindowContext");
    if (frame == nullptr || document == nullptr || place == nullptr || clip == nullptr || info == nullptr)
        return call.Returns(E_POINTER);
    *frame = ComPtr<IOleInPlaceFrame>(surroundings_.frame).Detach();
    *document = ComPtr<IOleInPlaceUIWindow>(surroundings_.document).Detach();
    *place = place_;
    *clip = place_;
    info->fMDIApp = FALSE;
    info->hwndFrame = surroundings_.frame->Window();
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return call.Returns(S_OK, PlaceText(place_));
}

STDMETHODIMP Site::Scroll(SIZE extent) {
    return Hear("IOleInPlaceSite.Scroll(" + SizeText(extent) + ")").Returns(E_NOTIMPL);
}

STDMETHODIMP Site::OnUIDeactivate(BOOL) { return Hear("IOleInPlaceSite.OnUIDeactivate").Returns(S_OK); }

STDMETHODIMP Site::OnInPlaceDeactivate() {
    auto call = Hear("IOleInPlaceSite.OnInPlaceDeactivate");
    const ComPtr<IOleInPlaceObject> gone = std::move(inPlaceObject_);
    return call.Returns(S_OK);
}

STDMETHODIMP Site::DiscardUndoState() { return Hear("IOleInPlaceSite.DiscardUndoState").Returns(S_OK); }

STDMETHODIMP Site::DeactivateAndUndo() {
    return Hear("IOleInPlaceSite.DeactivateAndUndo").Returns(E_NOTIMPL);
}

STDMETHODIMP Site::OnPosRectChange(LPCRECT place) {
    if (place == nullptr) return Hear("IOleInPlaceSite.OnPosRectChange(none)").Returns(E_POINTER);
    auto call = Hear("IOleInPlaceSite.OnPosRectChange(" + PlaceText(*place) + ")");
    place_ = *place;
    if (!inPlaceObject_) return call.Returns(S_OK);
    return call.Returns(Ask<IOleInPlaceObject>(
        CallRecorder(), inPlaceObject_.Get(), "IOleInPlaceObject.SetObjectRects(" + PlaceText(place_) + ")",
        [this](IOleInPlaceObject& object) { return object.SetObjectRects(&place_, &place_); }));
}

STDMETHODIMP Site::OnControlInfoChanged() {
    return Hear("IOleControlSite.OnControlInfoChanged").Returns(S_OK);
}

STDMETHODIMP Site::LockInPlaceActive(BOOL lock) {
    return Hear(lock != FALSE ? "IOleControlSite.LockInPlaceActive(TRUE)"
                              : "IOleControlSite.LockInPlaceActive(FALSE)")
        .Returns(S_OK);
}

STDMETHODIMP Site::GetExtendedControl(IDispatch** extended) {
    if (extended != nullptr) *extended = nullptr;
    return Hear("IOleControlSite.GetExtendedControl").Returns(E_NOTIMPL);
}

STDMETHODIMP Site::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) {
    auto call = Hear("IOleControlSite.TransformCoords");
    if (himetric == nullptr || container == nullptr) return call.Returns(E_POINTER);
    const auto dpi = static_cast<float>(DpiOf(parent_));
    if ((flags & XFORMCOORDS_HIMETRICTOCONTAINER) != 0) {
        container->x = static_cast<float>(himetric->x) * dpi / kHimetricPerInch;
        container->y = static_cast<float>(himetric->y) * dpi / kHimetricPerInch;
    } else {
        himetric->x = static_cast<LONG>(container->x * kHimetricPerInch / dpi);
        himetric->y = static_cast<LONG>(container->y * kHimetricPerInch / dpi);
    }
    return call.Returns(S_OK);
}

STDMETHODIMP Site::TranslateAccelerator(LPMSG message, DWORD) {
    if (message == nullptr) return Hear("IOleControlSite.TranslateAccelerator(none)").Returns(E_POINTER);
    auto call = Hear("IOleControlSite.TranslateAccelerator(" + KeyText(*message) + ")");
    return call.Returns(keyFilter_ && keyFilter_(*message) ? S_OK : S_FALSE);
}

STDMETHODIMP Site::OnFocus(BOOL gotFocus) {
    auto call = Hear(gotFocus != FALSE ? "IOleControlSite.OnFocus(TRUE)" : "IOleControlSite.OnFocus(FALSE)");
    hasFocus_ = gotFocus != FALSE;
    return call.Returns(S_OK);
}

STDMETHODIMP Site::ShowPropertyFrame() {
    return Hear("IOleControlSite.ShowPropertyFrame").Returns(E_NOTIMPL);
}

STDMETHODIMP Site::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP Site::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

STDMETHODIMP Site::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) { return E_NOTIMPL; }

STDMETHODIMP Site::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                          UINT*) {
    auto call = Hear("IDispatch.Invoke(ambient " + AmbientText(id) + ")");
    if ((flags & DISPATCH_PROPERTYGET) == 0) return call.Returns(DISP_E_MEMBERNOTFOUND);
    return call.Returns(result == nullptr ? E_POINTER : ambients_.Get(id, *result));
}

}  // namespace dlv::container
