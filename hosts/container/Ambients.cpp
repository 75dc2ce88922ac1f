#include "hosts/container/Ambients.h"

#include <oleauto.h>

namespace dlv::container {

namespace {

void Put(VARIANT& value, bool truth) {
    value.vt = VT_BOOL;
    value.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

void Put(VARIANT& value, unsigned long number) {
    value.vt = VT_I4;
    value.lVal = static_cast<LONG>(number);
}

}  // namespace

HRESULT Ambients::Get(DISPID id, VARIANT& value) const {
    VariantInit(&value);
    switch (id) {
        case DISPID_AMBIENT_USERMODE: Put(value, userMode); return S_OK;
        case DISPID_AMBIENT_UIDEAD: Put(value, userInterfaceDead); return S_OK;
        case DISPID_AMBIENT_BACKCOLOR: Put(value, backColor); return S_OK;
        case DISPID_AMBIENT_FORECOLOR: Put(value, foreColor); return S_OK;
        case DISPID_AMBIENT_LOCALEID: Put(value, locale); return S_OK;
        case DISPID_AMBIENT_DISPLAYNAME:
            value.bstrVal = SysAllocStringLen(displayName.data(), static_cast<UINT>(displayName.size()));
            if (value.bstrVal == nullptr) return E_OUTOFMEMORY;
            value.vt = VT_BSTR;
            return S_OK;
        case DISPID_AMBIENT_FONT:
            if (!font) return DISP_E_MEMBERNOTFOUND;
            value.vt = VT_DISPATCH;
            value.pdispVal = Microsoft::WRL::ComPtr<IFontDisp>(font).Detach();
            return S_OK;
        default: return DISP_E_MEMBERNOTFOUND;
    }
}

}  // namespace dlv::container
