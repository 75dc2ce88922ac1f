#include "tests/windows/LateCall.h"

#include <algorithm>

namespace dlv::test {

CallResult Call(IDispatch* object, const wchar_t* member, std::vector<_variant_t> arguments, WORD kind) {
    CallResult call;
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<LPOLESTR>(member);
    call.result = object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(call.result)) return call;
    std::reverse(arguments.begin(), arguments.end());
    std::vector<VARIANT> plain(arguments.begin(), arguments.end());
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{plain.data(), nullptr, static_cast<UINT>(plain.size()), 0};
    if ((kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    EXCEPINFO exception{};
    call.result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, &call.value,
                                 &exception, &call.wrongArgument);
    if (call.result == DISP_E_EXCEPTION) {
        call.code = exception.scode;
        if (exception.bstrDescription != nullptr) call.text = exception.bstrDescription;
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrHelpFile);
    }
    return call;
}

CallResult Put(IDispatch* object, const wchar_t* member, std::vector<_variant_t> arguments) {
    return Call(object, member, std::move(arguments), DISPATCH_PROPERTYPUT);
}

_variant_t Reference(VARIANT& variable) {
    _variant_t reference;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &variable;
    return reference;
}

ScriptObject::ScriptObject(std::wstring typeName) : typeName_(std::move(typeName)) {}

int ScriptObject::CallsOf(const std::wstring& member) const {
    const auto found = calls_.find(member);
    return found == calls_.end() ? 0 : found->second;
}

STDMETHODIMP ScriptObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP ScriptObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    *info = nullptr;
    return typeName_.starts_with(L'_') ? DescribeClass(typeName_, info) : E_NOTIMPL;
}

STDMETHODIMP ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    for (std::size_t i = 0; i < members_.size(); ++i) {
        if (_wcsicmp(members_[i].first.c_str(), names[0]) != 0) continue;
        ids[0] = static_cast<DISPID>(i + 1);
        return S_OK;
    }
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ScriptObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                                  EXCEPINFO* exception, UINT*) {
    for (std::size_t i = 0; id == DISPID_VALUE && i < members_.size(); ++i)
        if (members_[i].first.empty()) id = static_cast<DISPID>(i + 1);
    if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return DISP_E_MEMBERNOTFOUND;
    auto& [name, body] = members_.at(static_cast<std::size_t>(id - 1));
    ++calls_[name];
    std::vector<_variant_t> arguments;
    for (UINT i = parameters->cArgs; i-- > 0;) arguments.emplace_back(parameters->rgvarg[i]);
    VARIANT ignored;
    VariantInit(&ignored);
    const HRESULT done = body(arguments, result == nullptr ? ignored : *result);
    VariantClear(&ignored);
    if (SUCCEEDED(done) || exception == nullptr) return done;
    exception->scode = done;
    exception->bstrDescription = SysAllocString(L"the script failed");
    return DISP_E_EXCEPTION;
}

STDMETHODIMP ScriptObject::GetClassInfo(ITypeInfo** info) {
    *info = nullptr;
    if (typeName_.empty() || typeName_.starts_with(L'_')) return E_FAIL;
    return DescribeClass(typeName_, info);
}

HRESULT DescribeClass(std::wstring name, ITypeInfo** info) {
    ComPtr<ICreateTypeLib2> library;
    ComPtr<ICreateTypeInfo> made;
    HRESULT result = CreateTypeLib2(sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32, L"script.tlb", &library);
    if (SUCCEEDED(result)) result = library->CreateTypeInfo(name.data(), TKIND_COCLASS, &made);
    return FAILED(result) ? result : made->QueryInterface(IID_PPV_ARGS(info));
}

HRESULT Return(VARIANT& result, const _variant_t& value) {
    return VariantCopy(&result, const_cast<_variant_t*>(&value));
}

}  // namespace dlv::test
