#include "windows/com/LateBound.h"

#include <dispex.h>
#include <ocidl.h>
#include <oleauto.h>

#include "base/RunTimeError.h"
#include "windows/com/Coercion.h"
#include "windows/com/Entry.h"

namespace dlv {

using Microsoft::WRL::ComPtr;

namespace {

constexpr std::int32_t kErrorNoSuchMember = 438;

/// Owns the texts of an exception that a callee described.
class Exception {
public:
    Exception() = default;
    ~Exception() {
        SysFreeString(info_.bstrSource);
        SysFreeString(info_.bstrDescription);
        SysFreeString(info_.bstrHelpFile);
    }
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;

    EXCEPINFO* Address() { return &info_; }

    /// The callee's error under the number that it has in its own language, where that can be told.
    [[noreturn]] void Raise(HRESULT failure) {
        if (failure == DISP_E_EXCEPTION) {
            if (info_.pfnDeferredFillIn != nullptr) info_.pfnDeferredFillIn(&info_);
            if (info_.scode != 0) failure = info_.scode;
            if (info_.wCode != 0) failure = HostResult(info_.wCode);
        }
        const bool basic = (static_cast<ULONG>(failure) & 0xFFFF0000u) == 0x800A0000u;
        const std::int32_t number = basic ? failure & 0xFFFF : failure;
        std::string text = Narrow(info_.bstrDescription);
        if (text.empty()) text = "The object of the host failed";
        throw RunTimeError(number, text);
    }

private:
    EXCEPINFO info_{};
};

std::string NameOf(ITypeInfo& info) {
    Bstr name;
    return SUCCEEDED(info.GetDocumentation(MEMBERID_NIL, name.Address(), nullptr, nullptr, nullptr))
               ? Narrow(name.Get())
               : std::string();
}

std::string ClassNameOf(IUnknown& object) {
    ComPtr<IProvideClassInfo> provider;
    ComPtr<ITypeInfo> info;
    if (SUCCEEDED(object.QueryInterface(IID_PPV_ARGS(&provider))) &&
        SUCCEEDED(provider->GetClassInfo(&info)) && info) {
        if (std::string name = NameOf(*info.Get()); !name.empty()) return name;
    }
    ComPtr<IDispatch> dispatch;
    info.Reset();
    if (SUCCEEDED(object.QueryInterface(IID_PPV_ARGS(&dispatch))) &&
        SUCCEEDED(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)) && info) {
        std::string name = NameOf(*info.Get());
        if (name.starts_with('_')) name.erase(0, 1);
        if (!name.empty()) return name;
    }
    return std::string(kTellsNoType);
}

std::string PlainTypeName(VARTYPE type) {
    switch (type) {
        case VT_EMPTY: return "Empty";
        case VT_NULL: return "Null";
        case VT_I2: return "Integer";
        case VT_I4: return "Long";
        case VT_R4: return "Single";
        case VT_R8: return "Double";
        case VT_CY: return "Currency";
        case VT_DATE: return "Date";
        case VT_BSTR: return "String";
        case VT_ERROR: return "Error";
        case VT_BOOL: return "Boolean";
        case VT_VARIANT: return "Variant";
        case VT_DECIMAL: return "Decimal";
        case VT_UI1: return "Byte";
        case VT_DISPATCH:
        case VT_UNKNOWN: return "Object";
        default: return "Unknown";
    }
}

}  // namespace

Variant LateBound::Get(const wchar_t* member) const { return Get(member, std::span<Variant>()); }

Variant LateBound::Get(const wchar_t* member, Variant argument) const {
    return Get(member, std::span(&argument, 1));
}

LateBound LateBound::Object(const wchar_t* member, Variant argument) const {
    const Variant value = Get(member, std::move(argument));
    Variant plain;
    ComPtr<IDispatch> object;
    if (FAILED(Dereference(*value, plain)) || (plain->vt != VT_DISPATCH && plain->vt != VT_UNKNOWN) ||
        plain->punkVal == nullptr || FAILED(plain->punkVal->QueryInterface(IID_PPV_ARGS(&object))))
        RaiseTypeMismatch();
    return LateBound(object.Get());
}

std::string LateBound::Text(const wchar_t* member) const {
    const Variant value = Get(member);
    return value->vt == VT_EMPTY || value->vt == VT_NULL ? std::string() : TextOf(*value);
}

std::string LateBound::Text(const wchar_t* member, Variant argument) const {
    const Variant value = Get(member, std::move(argument));
    return value->vt == VT_EMPTY || value->vt == VT_NULL ? std::string() : TextOf(*value);
}

std::optional<std::string> LateBound::TextIfAny(const wchar_t* member) const {
    return TextIfAny(member, std::span<Variant>());
}

std::optional<std::string> LateBound::TextIfAny(const wchar_t* member, Variant argument) const {
    return TextIfAny(member, std::span(&argument, 1));
}

std::optional<std::string> LateBound::TextIfAny(const wchar_t* member, std::span<Variant> arguments) const {
    const std::optional<DISPID> id = Find(member);
    Variant value;
    Exception exception;
    if (!id || FAILED(Call(*id, arguments, value, exception.Address()))) return std::nullopt;
    Variant plain;
    if (FAILED(Dereference(*value, plain)) || plain->vt != VT_BSTR) return std::nullopt;
    return Narrow(plain->bstrVal);
}

std::optional<DISPID> LateBound::Find(const wchar_t* member) const {
    auto* name = const_cast<LPOLESTR>(member);
    DISPID id = DISPID_UNKNOWN;
    if (!object_) return std::nullopt;
    if (SUCCEEDED(object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id))) return id;
    // Objects of some script engines know their members' names only here.
    ComPtr<IDispatchEx> byName;
    if (FAILED(object_.As(&byName)) ||
        FAILED(byName->GetDispID(Bstr(std::wstring_view(member)).Get(), fdexNameCaseInsensitive, &id)))
        return std::nullopt;
    return id;
}

HRESULT LateBound::Call(DISPID id, std::span<Variant> arguments, Variant& value, EXCEPINFO* exception) const {
    DISPPARAMS parameters{};
    parameters.rgvarg = arguments.empty() ? nullptr : arguments[0].Address();
    parameters.cArgs = static_cast<UINT>(arguments.size());
    return object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                           &parameters, value.Address(), exception, nullptr);
}

Variant LateBound::Get(const wchar_t* member, std::span<Variant> arguments) const {
    const std::optional<DISPID> id = Find(member);
    if (!id)
        throw RunTimeError(kErrorNoSuchMember,
                           "Object doesn't support this property or method: " + Narrow(member));
    Variant value;
    Exception exception;
    const HRESULT called = Call(*id, arguments, value, exception.Address());
    if (FAILED(called)) exception.Raise(called);
    return value;
}

std::string TypeNameOf(const VARIANT& value) {
    const VARIANT* told = Behind(value);
    if (told == nullptr) return "Unknown";
    const auto type = static_cast<VARTYPE>(told->vt & ~(VT_BYREF | VT_ARRAY));
    if ((told->vt & VT_ARRAY) != 0) return PlainTypeName(type) + "()";
    if (type != VT_DISPATCH && type != VT_UNKNOWN) return PlainTypeName(type);
    IUnknown* const object = (told->vt & VT_BYREF) != 0 ? *told->ppunkVal : told->punkVal;
    return object == nullptr ? "Nothing" : ClassNameOf(*object);
}

}  // namespace dlv
