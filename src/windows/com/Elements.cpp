#include "windows/com/Elements.h"

#include <oleauto.h>

#include <algorithm>

#include "windows/com/ComError.h"

namespace dlv {

namespace {

bool IsAutomationValue(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_I2:
        case VT_I4:
        case VT_I8:
        case VT_INT:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_UI8:
        case VT_UINT:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
        case VT_DECIMAL:
        case VT_BOOL:
        case VT_ERROR:
        case VT_BSTR:
        case VT_VARIANT:
        case VT_DISPATCH:
        case VT_UNKNOWN: return true;
        default: return false;
    }
}

bool IsMeantToHaveElements(const SAFEARRAY& array) {
    return std::all_of(array.rgsabound, array.rgsabound + array.cDims,
                       [](const SAFEARRAYBOUND& bound) { return bound.cElements > 0; });
}

}  // namespace

bool Elements::CanRead(SAFEARRAY& array) {
    VARTYPE type = VT_EMPTY;
    return SUCCEEDED(SafeArrayGetVartype(&array, &type)) && IsAutomationValue(type);
}

Elements::Elements(SAFEARRAY& array) : array_(array) {
    if (!CanRead(array)) throw ComError(DISP_E_TYPEMISMATCH);
    Check(SafeArrayGetVartype(&array, &type_));
    size_ = SafeArrayGetElemsize(&array);
    // Bounds may have been described for which no memory was ever made.
    if (array.pvData == nullptr && IsMeantToHaveElements(array)) throw ComError(DISP_E_TYPEMISMATCH);
    Check(SafeArrayAccessData(&array, &data_));
}

Elements::~Elements() { SafeArrayUnaccessData(&array_); }

UINT Elements::Dimensions() const { return SafeArrayGetDim(&array_); }

// Not from the bounds: the upper one of an empty array may lie beyond all numbers.
std::size_t Elements::Count(UINT dimension) const {
    return array_.rgsabound[array_.cDims - dimension].cElements;
}

}  // namespace dlv
