#include "windows/com/InPlaceParts.h"

namespace dlv {

namespace {

HRESULT GiveWindow(WindowHost& host, const Activation& activation, HWND* window) {
    if (window == nullptr) return E_POINTER;
    *window = nullptr;
    return host.Method(IID_IOleWindow, [&] {
        *window = activation.WindowHandle();
        return *window == nullptr ? E_FAIL : S_OK;
    });
}

}  // namespace

STDMETHODIMP InPlaceObjectPart::GetWindow(HWND* window) { return GiveWindow(host_, activation_, window); }

STDMETHODIMP InPlaceObjectPart::ContextSensitiveHelp(BOOL) { return E_NOTIMPL; }

STDMETHODIMP InPlaceObjectPart::InPlaceDeactivate() {
    return host_.Method(IID_IOleInPlaceObject, [&] { activation_.Deactivate(); });
}

STDMETHODIMP InPlaceObjectPart::UIDeactivate() {
    return host_.Method(IID_IOleInPlaceObject, [&] { activation_.DeactivateUI(); });
}

STDMETHODIMP InPlaceObjectPart::SetObjectRects(LPCRECT place, LPCRECT clip) {
    if (place == nullptr) return E_INVALIDARG;
    return host_.Method(IID_IOleInPlaceObject, [&] { return activation_.SetObjectRects(*place, clip); });
}

STDMETHODIMP InPlaceObjectPart::ReactivateAndUndo() { return INPLACE_E_NOTUNDOABLE; }

STDMETHODIMP ActiveObjectPart::GetWindow(HWND* window) { return GiveWindow(host_, activation_, window); }

STDMETHODIMP ActiveObjectPart::ContextSensitiveHelp(BOOL) { return E_NOTIMPL; }

STDMETHODIMP ActiveObjectPart::TranslateAccelerator(LPMSG message) {
    if (message == nullptr) return E_POINTER;
    return host_.Method(IID_IOleInPlaceActiveObject, [&] {
        ControlWindow* window = activation_.Window();
        if (window != nullptr && window->TranslateKey(*message)) return S_OK;
        return site_.TranslateKey(*message) ? S_OK : S_FALSE;
    });
}

STDMETHODIMP ActiveObjectPart::OnFrameWindowActivate(BOOL) { return S_OK; }

STDMETHODIMP ActiveObjectPart::OnDocWindowActivate(BOOL) { return S_OK; }

STDMETHODIMP ActiveObjectPart::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) { return S_OK; }

STDMETHODIMP ActiveObjectPart::EnableModeless(BOOL) { return S_OK; }

}  // namespace dlv
