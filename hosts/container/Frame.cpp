#include "hosts/container/Frame.h"

namespace dlv::container {

STDMETHODIMP Frame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) {
    return HearMember("InsertMenus").Returns(E_NOTIMPL);
}

STDMETHODIMP Frame::SetMenu(HMENU, HOLEMENU, HWND) { return HearMember("SetMenu").Returns(E_NOTIMPL); }

STDMETHODIMP Frame::RemoveMenus(HMENU) { return HearMember("RemoveMenus").Returns(E_NOTIMPL); }

STDMETHODIMP Frame::SetStatusText(LPCOLESTR) { return HearMember("SetStatusText").Returns(S_OK); }

STDMETHODIMP Frame::EnableModeless(BOOL enable) {
    auto call = HearMember(enable != FALSE ? "EnableModeless(TRUE)" : "EnableModeless(FALSE)");
    modal_ += enable != FALSE ? -1 : 1;
    return call.Returns(S_OK);
}

STDMETHODIMP Frame::TranslateAccelerator(LPMSG, WORD) {
    return HearMember("TranslateAccelerator").Returns(S_FALSE);
}

}  // namespace dlv::container
