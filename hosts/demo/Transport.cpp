#include "hosts/demo/Transport.h"

#include <algorithm>
#include <string_view>

#include "windows/com/Strings.h"

namespace dlv::demo {

namespace {

constexpr DISPID kCaption = 1;
constexpr DISPID kLanguageID = 2;

}  // namespace

STDMETHODIMP Transport::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP Transport::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

STDMETHODIMP Transport::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    if (std::wstring_view(names[0]) == L"Caption") ids[0] = kCaption;
    if (std::wstring_view(names[0]) == L"LanguageID") ids[0] = kLanguageID;
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

// A caption that the host does not know is left empty.
STDMETHODIMP Transport::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                               UINT*) {
    if (id != kCaption && id != kLanguageID) return DISP_E_MEMBERNOTFOUND;
    if (result == nullptr) return S_OK;
    VariantInit(result);
    if (id == kLanguageID) {
        result->vt = VT_BSTR;
        result->bstrVal = Bstr(LanguageCode(language_)).Detach();
    }
    return S_OK;
}

}  // namespace dlv::demo
