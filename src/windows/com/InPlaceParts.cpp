#include "windows/com/InPlaceParts.h"

namespace dlv {

namespace {

/// For what needs no more than an answer.
HRESULT Just(WindowHost& host, HRESULT result) {
    return host.Method(IID_IOleWindow, [&] { return result; });
}

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

STDMETHODIMP InPlaceObjectPart::ContextSensitiveHelp(BOOL) { return Just(host_, E_NOTIMPL); }

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

STDMETHODIMP InPlaceObjectPart::ReactivateAndUndo() { return Just(host_, INPLACE_E_NOTUNDOABLE); }

STDMETHODIMP ActiveObjectPart::GetWindow(HWND* window) { return GiveWindow(host_, activation_, window); }

STDMETHODIMP ActiveObjectPart::ContextSensitiveHelp(BOOL) { return Just(host_, E_NOTIMPL); }

STDMETHODIMP ActiveObjectPart::TranslateAccelerator(LPMSG message) {
    if (message == nullptr) return E_POINTER;
    return host_.Method(IID_IOleInPlaceActiveObject, [&] {
        // Some containers hand over every message.
        if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST) return S_FALSE;
        ControlWindow* window = activation_.Window();
        if (window != nullptr && window->TranslateKey(*message)) return S_OK;
        if (site_.TranslateKey(*message)) return S_OK;
        offered_ = *message;
        return S_FALSE;
    });
}

bool ActiveObjectPart::WasOffered(const MSG& message) const {
    return message.hwnd == offered_.hwnd && message.message == offered_.message &&
           message.wParam == offered_.wParam && message.lParam == offered_.lParam &&
           message.time == offered_.time;
}

STDMETHODIMP ActiveObjectPart::OnFrameWindowActivate(BOOL) { return Just(host_, S_OK); }

STDMETHODIMP ActiveObjectPart::OnDocWindowActivate(BOOL activate) {
    return host_.Method(IID_IOleInPlaceActiveObject,
                        [&] { activation_.DocumentActivated(activate != FALSE); });
}

STDMETHODIMP ActiveObjectPart::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) { return Just(host_, S_OK); }

STDMETHODIMP ActiveObjectPart::EnableModeless(BOOL) { return Just(host_, S_OK); }

}  // namespace dlv
