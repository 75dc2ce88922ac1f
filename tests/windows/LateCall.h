// Late-bound calls as script engines make them.
#pragma once

#include "tests/windows/Support.h"

namespace dlv::test {

/// What came of a call.
struct CallResult {
    HRESULT result = S_OK;
    _variant_t value;
    /// The exception that the object described, if any.
    HRESULT code = S_OK;
    std::wstring text;
    UINT wrongArgument = UINT_MAX;
};

/// Calls a member; `arguments` in the order in which one writes them.
CallResult Call(IDispatch* object, const wchar_t* member, std::vector<_variant_t> arguments = {},
                WORD kind = DISPATCH_METHOD | DISPATCH_PROPERTYGET);
CallResult Put(IDispatch* object, const wchar_t* member, std::vector<_variant_t> arguments);

/// A reference to a variable, which is how some engines pass one.
_variant_t Reference(VARIANT& variable);

/// An object of the host's whose class is written in a script: members by name.
class ScriptObject final : public container::Unknown<IDispatch, IProvideClassInfo> {
public:
    using Body = std::function<HRESULT(std::vector<_variant_t>& arguments, VARIANT& result)>;

    /// `typeName` is what the object's class is called, or with a "_" before it its interface.
    explicit ScriptObject(std::wstring typeName = {});
    /// The default member has no name.
    void On(const std::wstring& member, Body body) { members_.emplace_back(member, std::move(body)); }
    int CallsOf(const std::wstring& member) const;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;
    STDMETHODIMP GetClassInfo(ITypeInfo** info) override;

private:
    std::wstring typeName_;
    std::vector<std::pair<std::wstring, Body>> members_;
    std::map<std::wstring, int> calls_;
};

/// A class of that name, made up for the purpose.
HRESULT DescribeClass(std::wstring name, ITypeInfo** info);

/// A value as a result: a text, a number or an object.
HRESULT Return(VARIANT& result, const _variant_t& value);

}  // namespace dlv::test
