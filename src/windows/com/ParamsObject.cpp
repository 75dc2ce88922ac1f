#include "windows/com/ParamsObject.h"

#include "windows/com/Strings.h"

namespace dlv {

HRESULT ParamsObject::Get(const std::string& text, BSTR* value) {
    if (value == nullptr) return E_POINTER;
    *value = nullptr;
    return Own([&] { *value = Bstr(text).Detach(); });
}

HRESULT ParamsObject::Put(std::string& text, BSTR value) {
    return Own([&] { text = Narrow(value); });
}

}  // namespace dlv
