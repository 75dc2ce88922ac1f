// The elements of a host's array, locked and read where they lie: none is copied. In memory the first
// dimension varies fastest.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oaidl.h>

#include <cstddef>
#include <cstdint>

namespace dlv {

class Elements {
public:
    /// Whether the elements are automation values: records and the like are none.
    static bool CanRead(SAFEARRAY& array);
    /// Throws ComError for any other array, and for one that cannot be locked. The array outlives it.
    explicit Elements(SAFEARRAY& array);
    ~Elements();
    Elements(const Elements&) = delete;
    Elements& operator=(const Elements&) = delete;

    UINT Dimensions() const;
    /// `dimension` counts from 1.
    std::size_t Count(UINT dimension) const;
    /// The element at a place in memory, borrowed: not to be cleared.
    VARIANT At(std::size_t place) const {
        auto* element = static_cast<std::byte*>(data_) + place * size_;
        if (type_ == VT_VARIANT) return *reinterpret_cast<const VARIANT*>(element);
        VARIANT value{};
        if (type_ == VT_BSTR) {
            value.vt = VT_BSTR;
            value.bstrVal = *reinterpret_cast<const BSTR*>(element);
        } else {
            value.vt = static_cast<VARTYPE>(type_ | VT_BYREF);
            value.byref = element;
        }
        return value;
    }

private:
    SAFEARRAY& array_;
    VARTYPE type_ = VT_EMPTY;
    UINT size_ = 0;
    void* data_ = nullptr;
};

}  // namespace dlv
