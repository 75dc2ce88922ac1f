#include "hosts/container/EventSink.h"

#include <oleauto.h>

namespace dlv::container {

namespace {

ComPtr<ITypeInfo> DescriptionOf(IUnknown* control, REFIID events) {
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> ofClass;
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> found;
    UINT index = 0;
    if (SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&provider))) &&
        SUCCEEDED(provider->GetClassInfo(&ofClass)) &&
        SUCCEEDED(ofClass->GetContainingTypeLib(&library, &index)))
        library->GetTypeInfoOfGuid(events, &found);
    return found;
}

std::string Plain(std::wstring_view text) {
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0,
                                           nullptr, nullptr);
    std::string plain(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), plain.data(), length, nullptr,
                        nullptr);
    return plain;
}

}  // namespace

HRESULT EventSink::Connect(IUnknown* control, REFIID iid) {
    Disconnect();
    source_ = iid;
    ComPtr<IConnectionPointContainer> container;
    HRESULT result = control->QueryInterface(IID_PPV_ARGS(&container));
    if (SUCCEEDED(result)) result = container->FindConnectionPoint(iid, &point_);
    if (SUCCEEDED(result)) result = point_->Advise(static_cast<IDispatch*>(this), &cookie_);
    if (FAILED(result)) {
        point_.Reset();
    } else if (CallRecorder()) {
        events_ = DescriptionOf(control, iid);
    }
    return result;
}

HRESULT EventSink::Disconnect() {
    const ComPtr<IConnectionPoint> point = std::move(point_);
    events_.Reset();
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
    if (arguments == nullptr) return Hear("IDispatch.Invoke(event)").Returns(E_POINTER);
    auto call = Hear(EventText(id, *arguments));
    const auto found = handlers_.find(id);
    if (found == handlers_.end()) return call.Returns(DISP_E_MEMBERNOTFOUND);
    // The handler may take itself out of the table.
    const Handler handler = found->second;
    handler(*arguments);
    return call.Returns(S_OK);
}

std::string EventSink::EventText(DISPID id, const DISPPARAMS& arguments) const {
    if (!CallRecorder()) return {};
    std::string text = "event ";
    BSTR name = nullptr;
    if (events_ && SUCCEEDED(events_->GetDocumentation(id, &name, nullptr, nullptr, nullptr))) {
        text += Plain({name, SysStringLen(name)});
        SysFreeString(name);
    } else {
        text += std::to_string(id);
    }
    text += "(";
    for (UINT i = arguments.cArgs; i-- > 0;) {
        const VARIANT& argument = arguments.rgvarg[i];
        text += ObjectArgument(argument) ? "object" : "\"" + Plain(TextArgument(argument)) + "\"";
        if (i > 0) text += ", ";
    }
    return text + ")";
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
