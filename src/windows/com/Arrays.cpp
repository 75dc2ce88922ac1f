#include "windows/com/Arrays.h"

#include <oleauto.h>

#include "base/RunTimeError.h"
#include "windows/com/Coercion.h"
#include "windows/com/ComError.h"

namespace dlv {

namespace {

struct Bounds {
    LONG lower = 0;
    std::size_t count = 0;
};

Bounds BoundsOf(SAFEARRAY& array, UINT dimension) {
    LONG lower = 0;
    LONG upper = 0;
    Check(SafeArrayGetLBound(&array, dimension, &lower));
    Check(SafeArrayGetUBound(&array, dimension, &upper));
    return {lower, static_cast<std::size_t>(upper - lower + 1)};
}

/// The memory of an array's elements, locked for reading: the first dimension varies fastest.
class Elements {
public:
    explicit Elements(SAFEARRAY& array) : array_(array) {
        Check(SafeArrayGetVartype(&array, &type_));
        size_ = SafeArrayGetElemsize(&array);
        Check(SafeArrayAccessData(&array, &data_));
    }
    ~Elements() { SafeArrayUnaccessData(&array_); }
    Elements(const Elements&) = delete;
    Elements& operator=(const Elements&) = delete;

    std::string Text(std::size_t place) const {
        const auto* element = static_cast<const std::byte*>(data_) + place * size_;
        if (type_ == VT_BSTR) return Narrow(*reinterpret_cast<const BSTR*>(element));
        VARIANT value;
        if (type_ == VT_VARIANT) {
            value = *reinterpret_cast<const VARIANT*>(element);
        } else {
            // Borrowed: what the array owns is neither copied nor freed.
            VariantInit(&value);
            value.vt = static_cast<VARTYPE>(type_ | VT_BYREF);
            value.byref = const_cast<std::byte*>(element);
        }
        if (value.vt == VT_BSTR) return Narrow(value.bstrVal);
        return value.vt == VT_EMPTY || value.vt == VT_NULL ? std::string() : TextOf(value);
    }

private:
    SAFEARRAY& array_;
    VARTYPE type_ = VT_EMPTY;
    UINT size_ = 0;
    void* data_ = nullptr;
};

}  // namespace

std::vector<std::string> TextsOf(SAFEARRAY* array) {
    if (array == nullptr) RaiseSubscript();
    if (SafeArrayGetDim(array) != 1) throw ComError(DISP_E_TYPEMISMATCH);
    const std::size_t count = BoundsOf(*array, 1).count;
    const Elements elements(*array);
    std::vector<std::string> texts;
    texts.reserve(count);
    for (std::size_t i = 0; i < count; ++i) texts.push_back(elements.Text(i));
    return texts;
}

std::vector<std::string> TextsOf(const VARIANT& array) {
    const Variant texts = TextArray(array);
    return TextsOf(texts->parray);
}

std::vector<std::string> TextsOfRows(const VARIANT& array, std::size_t width) {
    const VARIANT* plain = array.vt == (VT_BYREF | VT_VARIANT) ? array.pvarVal : &array;
    if (plain->vt == VT_EMPTY || plain->vt == VT_NULL) return {};
    if ((plain->vt & VT_ARRAY) == 0) throw ComError(DISP_E_TYPEMISMATCH);
    SAFEARRAY* values = (plain->vt & VT_BYREF) != 0 ? *plain->pparray : plain->parray;
    if (values == nullptr) return {};
    if (SafeArrayGetDim(values) != 2) throw ComError(DISP_E_TYPEMISMATCH);
    const std::size_t rows = BoundsOf(*values, 1).count;
    if (BoundsOf(*values, 2).count != width) RaiseInvalidCall();
    const Elements elements(*values);
    std::vector<std::string> texts;
    texts.reserve(rows * width);
    for (std::size_t row = 0; row < rows; ++row)
        for (std::size_t column = 0; column < width; ++column)
            texts.push_back(elements.Text(column * rows + row));
    return texts;
}

}  // namespace dlv
