#include "windows/com/Coercion.h"

#include <oleauto.h>
#include <wrl/client.h>

#include <memory>

#include "windows/com/ComError.h"
#include "windows/com/Entry.h"

namespace dlv {

using Microsoft::WRL::ComPtr;

namespace {

// Script array objects longer than this are taken for a mistake.
constexpr LONG kLongestScriptArray = 10'000'000;

struct SafeArrayDeleter {
    void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};
using OwnedArray = std::unique_ptr<SAFEARRAY, SafeArrayDeleter>;

OwnedArray NewTextArray(LONG lower, ULONG count) {
    OwnedArray made(SafeArrayCreateVector(VT_BSTR, lower, count));
    if (!made) throw ComError(E_OUTOFMEMORY);
    return made;
}

Variant Changed(const VARIANT& value, VARTYPE type) {
    Variant plain;
    Check(Dereference(value, plain));
    if (plain->vt == type) return plain;
    Variant changed;
    const HRESULT result =
        VariantChangeTypeEx(changed.Address(), plain.Address(), LOCALE_INVARIANT, VARIANT_ALPHABOOL, type);
    if (result == DISP_E_OVERFLOW || result == E_OUTOFMEMORY) throw ComError(result);
    // Objects without a value of their own fail in as many ways as there are objects.
    if (FAILED(result)) throw ComError(DISP_E_TYPEMISMATCH);
    return changed;
}

void PutText(SAFEARRAY& array, LONG index, const VARIANT& value) {
    Check(SafeArrayPutElement(&array, &index, Changed(value, VT_BSTR)->bstrVal));
}

/// The element as a VARIANT, whatever the array's element type.
Variant ElementOf(SAFEARRAY& array, VARTYPE elementType, LONG index) {
    Variant element;
    if (elementType == VT_VARIANT) {
        Check(SafeArrayGetElement(&array, &index, element.Address()));
    } else {
        Check(SafeArrayGetElement(&array, &index, &element->bstrVal));
        element->vt = elementType;
    }
    return element;
}

/// A one-dimensional array of any elements as an array of texts with the same bounds.
OwnedArray TextsOfArray(SAFEARRAY& array) {
    if (SafeArrayGetDim(&array) != 1) throw ComError(DISP_E_TYPEMISMATCH);
    VARTYPE elementType = VT_EMPTY;
    Check(SafeArrayGetVartype(&array, &elementType));
    LONG lower = 0;
    LONG upper = 0;
    Check(SafeArrayGetLBound(&array, 1, &lower));
    Check(SafeArrayGetUBound(&array, 1, &upper));
    OwnedArray texts = NewTextArray(lower, static_cast<ULONG>(upper - lower + 1));
    for (LONG i = lower; i <= upper; ++i) PutText(*texts, i, *ElementOf(array, elementType, i));
    return texts;
}

HRESULT PropertyOf(IDispatch& object, const wchar_t* name, Variant& value) {
    DISPID id = DISPID_UNKNOWN;
    auto* text = const_cast<LPOLESTR>(name);
    const HRESULT found = object.GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(found)) return found;
    DISPPARAMS none{};
    return object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.Address(),
                         nullptr, nullptr);
}

/// A script engine's array object, which is an object with a `length` and members named by their indices.
OwnedArray TextsOfObject(IDispatch& object) {
    Variant length;
    if (FAILED(PropertyOf(object, L"length", length))) throw ComError(DISP_E_TYPEMISMATCH);
    const LONG count = Changed(*length, VT_I4)->lVal;
    if (count < 0 || count > kLongestScriptArray) throw ComError(DISP_E_OVERFLOW);
    OwnedArray texts = NewTextArray(0, static_cast<ULONG>(count));
    for (LONG i = 0; i < count; ++i) {
        Variant element;
        if (FAILED(PropertyOf(object, std::to_wstring(i).c_str(), element)))
            throw ComError(DISP_E_TYPEMISMATCH);
        PutText(*texts, i, *element);
    }
    return texts;
}

/// Nothing, or an object; never the default property of one.
Variant Object(const VARIANT& value) {
    Variant plain;
    Check(Dereference(value, plain));
    if (plain->vt == VT_DISPATCH) return plain;
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
        case VT_VARIANT: {
            Variant plain;
            Check(Dereference(value, plain));
            return plain;
        }
        default: return Changed(value, type);
    }
}

}  // namespace

Variant TextArray(const VARIANT& value) {
    Variant plain;
    Check(Dereference(value, plain));
    if (plain->vt == (VT_ARRAY | VT_BSTR)) return plain;
    OwnedArray texts;
    if ((plain->vt & VT_ARRAY) != 0 && plain->parray != nullptr) {
        texts = TextsOfArray(*plain->parray);
    } else if (plain->vt == VT_DISPATCH && plain->pdispVal != nullptr) {
        texts = TextsOfObject(*plain->pdispVal);
    } else {
        throw ComError(DISP_E_TYPEMISMATCH);
    }
    Variant made;
    made->vt = VT_ARRAY | VT_BSTR;
    made->parray = texts.release();
    return made;
}

HRESULT CoerceArgument(VARIANT& argument, VARTYPE type, Variant& kept, VARIANT& typed) {
    VariantInit(&typed);
    if (argument.vt == type && type != VT_VARIANT) {
        typed = argument;
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

std::string TextOf(const VARIANT& value) { return Narrow(Changed(value, VT_BSTR)->bstrVal); }

LONG LongOf(const VARIANT& value) { return Changed(value, VT_I4)->lVal; }

HRESULT Dereference(const VARIANT& value, Variant& plain) {
    const VARIANT* source = &value;
    if (source->vt == (VT_BYREF | VT_VARIANT)) source = source->pvarVal;
    if (source == nullptr || ((source->vt & VT_BYREF) != 0 && source->byref == nullptr)) return E_POINTER;
    return VariantCopyInd(plain.Address(), const_cast<VARIANT*>(source));
}

}  // namespace dlv
