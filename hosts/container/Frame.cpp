#include "hosts/container/Frame.h"

namespace dlv::container {

void* Frame::Find(REFIID iid) {
    if (IsEqualGUID(iid, IID_IOleWindow) || IsEqualGUID(iid, IID_IOleInPlaceUIWindow))
        return static_cast<IOleInPlaceFrame*>(this);
    return Unknown::Find(iid);
}

STDMETHODIMP Frame::GetWindow(HWND* window) {
    if (window == nullptr) return E_POINTER;
    *window = window_;
    return S_OK;
}

STDMETHODIMP Frame::ContextSensitiveHelp(BOOL) { return E_NOTIMPL; }

STDMETHODIMP Frame::GetBorder(LPRECT border) {
    if (border == nullptr) return E_POINTER;
    GetClientRect(window_, border);
    return S_OK;
}

STDMETHODIMP Frame::RequestBorderSpace(LPCBORDERWIDTHS) { return INPLACE_E_NOTOOLSPACE; }

STDMETHODIMP Frame::SetBorderSpace(LPCBORDERWIDTHS widths) {
    return widths == nullptr ? S_OK : INPLACE_E_NOTOOLSPACE;
}

STDMETHODIMP Frame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    active_ = object;
    return S_OK;
}

STDMETHODIMP Frame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) { return E_NOTIMPL; }

STDMETHODIMP Frame::SetMenu(HMENU, HOLEMENU, HWND) { return E_NOTIMPL; }

STDMETHODIMP Frame::RemoveMenus(HMENU) { return E_NOTIMPL; }

STDMETHODIMP Frame::SetStatusText(LPCOLESTR) { return S_OK; }

STDMETHODIMP Frame::EnableModeless(BOOL enable) {
    modal_ += enable != FALSE ? -1 : 1;
    return S_OK;
}

STDMETHODIMP Frame::TranslateAccelerator(LPMSG, WORD) { return S_FALSE; }

}  // namespace dlv::container
