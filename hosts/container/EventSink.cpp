#include "hosts/container/EventSink.h"

#include <oleauto.h>

namespace dlv::container {

HRESULT EventSink::Connect(IUnknown* control, REFIID iid) {
    Disconnect();
    source_ = iid;
    ComPtr<IConnectionPointContainer> container;
    HRESULT result = control->QueryInterface(IID_PPV_ARGS(&container));
    if (SUCCEEDED(result)) result = container->FindConnectionPoint(iid, &point_);
    if (SUCCEEDED(result)) result = point_->Advise(static_cast<IDispatch*>(this), &cookie_);
    if (FAILED(result)) point_.Reset();
    return result;
}

HRESULT EventSink::Disconnect() {
    const ComPtr<IConnectionPoint> point = std::move(point_);
    return point ? point->Unadvise(cookie_) : S_OK;
}

void* EventSink::Find(REFIID iid) {
    // A control asks for its own source interface, which is IDispatch with a meaning.
    return IsEqualGUID(iid, source_) ? static_cast<IDispatch*>(this) : Unknown::Find(iid);
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP EventSink::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

STDMETHODIMP EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) { return E_NOTIMPL; }

STDMETHODIMP EventSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                               UINT*) {
    if (arguments == nullptr) return E_POINTER;
    const auto found = handlers_.find(id);
    if (found == handlers_.end()) return DISP_E_MEMBERNOTFOUND;
    // The handler may take itself out of the table.
    const Handler handler = found->second;
    handler(*arguments);
    return S_OK;
}

std::wstring TextArgument(const VARIANT& argument) {
    BSTR text = nullptr;
    if (argument.vt == VT_BSTR) text = argument.bstrVal;
    if (argument.vt == (VT_BYREF | VT_BSTR)) text = *argument.pbstrVal;
    return text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
}

ComPtr<IDispatch> ObjectArgument(const VARIANT& argument) {
    if (argument.vt == VT_DISPATCH) return argument.pdispVal;
    if (argument.vt == (VT_BYREF | VT_DISPATCH)) return *argument.ppdispVal;
    return nullptr;
}

}  // namespace dlv::container
