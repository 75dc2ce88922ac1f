// What the data objects have in common: they wrap a document type of src/webdata, which several objects may
// share, and hand out its texts, counts and parts.
#pragma once

#include "windows/com/PlainWindows.h"

#include <memory>
#include <string>

#include "DashlonViewer.h"
#include "base/RunTimeError.h"
#include "windows/com/DualObject.h"
#include "windows/com/Strings.h"

namespace dlv {

/// A host's index, from 1, as the documents count; error 9 below 1.
inline std::size_t HostIndex(LONG index) {
    if (index < 1) RaiseSubscript();
    return static_cast<std::size_t>(index);
}

template <class Class, class Interface>
class DataObject : public DualObject<Class, Interface, void, MethodGuard> {
protected:
    template <class Make>
    HRESULT GiveText(BSTR* value, Make&& make) {
        if (value == nullptr) return E_POINTER;
        *value = nullptr;
        return this->Own([&] { *value = Bstr(std::string_view(make())).Detach(); });
    }

    template <class Make>
    HRESULT GiveCount(LONG* value, Make&& make) {
        if (value == nullptr) return E_POINTER;
        *value = 0;
        return this->Own([&] { *value = static_cast<LONG>(make()); });
    }

    template <class Make>
    HRESULT GiveTruth(VARIANT_BOOL* value, Make&& make) {
        if (value == nullptr) return E_POINTER;
        *value = VARIANT_FALSE;
        return this->Own([&] { *value = make() ? VARIANT_TRUE : VARIANT_FALSE; });
    }

    /// Gives an object of type `Object` that wraps what `make` returns.
    template <class Object, class Part, class Make>
    HRESULT GiveObject(Part** value, Make&& make) {
        if (value == nullptr) return E_POINTER;
        *value = nullptr;
        return this->Own([&] { *value = MakeObject<Object>(make()).Detach(); });
    }
};

}  // namespace dlv
