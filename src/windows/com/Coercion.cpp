#include "windows/com/Coercion.h"

#include <oleauto.h>
#include <wrl/client.h>

#include "windows/com/Arrays.h"
#include "windows/com/ComError.h"
#include "windows/com/Entry.h"

namespace dlv {

using Microsoft::WRL::ComPtr;

namespace {

/// Some systems look numbers up by a decimal's scale before they have tested it.
bool IsNoDecimal(const VARIANT& plain) {
    constexpr BYTE kLargestScale = 28;
    return plain.vt == VT_DECIMAL &&
           (plain.decVal.scale > kLargestScale || (plain.decVal.sign & ~DECIMAL_NEG) != 0);
}

/// What an object stands for by its default member; other values stand for themselves.
HRESULT ResolveDefault(Variant& plain) {
    if (plain->vt != VT_DISPATCH) return S_OK;
    if (plain->pdispVal == nullptr) return DISP_E_TYPEMISMATCH;
    Variant answer;
    DISPPARAMS none{};
    const HRESULT got = plain->pdispVal->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                                DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none,
                                                answer.Address(), nullptr, nullptr);
    Variant value;
    const HRESULT found = FAILED(got) ? got : Dereference(*answer, value);
    if (FAILED(found)) return found == E_OUTOFMEMORY ? found : DISP_E_TYPEMISMATCH;
    plain = std::move(value);
    return plain->vt == VT_DISPATCH ? DISP_E_TYPEMISMATCH : S_OK;
}

HRESULT Change(const VARIANT& value, VARTYPE type, Variant& changed) {
    Variant plain;
    HRESULT found = Dereference(value, plain);
    if (SUCCEEDED(found)) found = ResolveDefault(plain);
    if (FAILED(found)) return found;
    if (plain->vt == type) {
        changed = std::move(plain);
        return S_OK;
    }
    if (IsNoDecimal(*plain.Address())) return DISP_E_TYPEMISMATCH;
    const HRESULT result =
        VariantChangeTypeEx(changed.Address(), plain.Address(), LOCALE_INVARIANT, VARIANT_ALPHABOOL, type);
    if (result == DISP_E_OVERFLOW || result == E_OUTOFMEMORY) return result;
    // Objects without a value of their own fail in as many ways as there are objects.
    return FAILED(result) ? DISP_E_TYPEMISMATCH : S_OK;
}

Variant Changed(const VARIANT& value, VARTYPE type) {
    Variant changed;
    Check(Change(value, type, changed));
    return changed;
}

/// Nothing, or an object; never the default property of one.
Variant Object(const VARIANT& value) {
    Variant plain;
    Check(Dereference(value, plain));
    if (plain->vt == VT_DISPATCH) return plain;
    // How script engines write no object.
    if (plain->vt == VT_NULL) return Variant(static_cast<IDispatch*>(nullptr));
    if (plain->vt != VT_UNKNOWN) throw ComError(DISP_E_TYPEMISMATCH);
    ComPtr<IDispatch> object;
    if (plain->punkVal != nullptr && FAILED(plain->punkVal->QueryInterface(IID_PPV_ARGS(&object))))
        throw ComError(DISP_E_TYPEMISMATCH);
    return Variant(object.Get());
}

Variant Converted(const VARIANT& value, VARTYPE type) {
    switch (type) {
        case VT_DISPATCH: return Object(value);
        case VT_ARRAY | VT_BSTR: return TextArray(value);
        default: return Changed(value, type);
    }
}

/// How callers say that they give no value for a parameter.
bool IsLeftOut(const VARIANT& argument) {
    const VARIANT& plain = argument.vt == (VT_BYREF | VT_VARIANT) ? *argument.pvarVal : argument;
    return plain.vt == VT_ERROR && plain.scode == DISP_E_PARAMNOTFOUND;
}

}  // namespace

HRESULT CoerceArgument(VARIANT& argument, VARTYPE type, Variant& kept, VARIANT& typed) {
    VariantInit(&typed);
    const bool nowhere = (argument.vt & VT_BYREF) != 0 && argument.byref == nullptr;
    if (nowhere) return DISP_E_TYPEMISMATCH;
    if (IsLeftOut(argument)) return DISP_E_PARAMNOTOPTIONAL;
    if (argument.vt == type) {
        typed = argument;
        return S_OK;
    }
    // What a variable holds is lent, not copied: it may be a large array.
    if (type == VT_VARIANT) {
        typed = argument.vt == (VT_BYREF | VT_VARIANT) ? *argument.pvarVal : argument;
        return S_OK;
    }
    const VARTYPE target = static_cast<VARTYPE>(type & ~VT_BYREF);
    if (type == (VT_BYREF | VT_VARIANT)) {
        typed.vt = type;
        typed.pvarVal = &argument;
        return S_OK;
    }
    const HRESULT result = GuardMethod(IID_NULL, [&] { kept = Converted(argument, target); });
    if (FAILED(result)) return result;
    if (target == type) {
        typed = *kept;
    } else {
        typed.vt = type;
        typed.byref = &kept->bstrVal;
    }
    return S_OK;
}

bool ReadText(const VARIANT& value, std::string& text) {
    Variant changed;
    const HRESULT result = Change(value, VT_BSTR, changed);
    if (result == E_OUTOFMEMORY) throw ComError(result);
    if (SUCCEEDED(result)) text = Narrow(changed->bstrVal);
    return SUCCEEDED(result);
}

std::string TextOf(const VARIANT& value) { return Narrow(Changed(value, VT_BSTR)->bstrVal); }

LONG LongOf(const VARIANT& value) { return Changed(value, VT_I4)->lVal; }

const VARIANT* Behind(const VARIANT& value) {
    const VARIANT* plain = value.vt == (VT_BYREF | VT_VARIANT) ? value.pvarVal : &value;
    const bool nowhere = plain == nullptr || ((plain->vt & VT_BYREF) != 0 && plain->byref == nullptr);
    return nowhere ? nullptr : plain;
}

HRESULT Dereference(const VARIANT& value, Variant& plain) {
    const VARIANT* source = Behind(value);
    if (source == nullptr) return E_POINTER;
    if ((source->vt & VT_ARRAY) != 0) return DISP_E_TYPEMISMATCH;
    return VariantCopyInd(plain.Address(), const_cast<VARIANT*>(source));
}

}  // namespace dlv
