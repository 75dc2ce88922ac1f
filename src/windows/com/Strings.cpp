#include "windows/com/Strings.h"

#include <new>

#include "base/Text.h"

namespace dlv {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring Wide(std::string_view text) {
    const std::u16string units = ToUtf16(text);
    return {units.begin(), units.end()};
}

std::string Narrow(std::wstring_view text) { return FromUtf16(std::u16string(text.begin(), text.end())); }

std::string Narrow(BSTR text) {
    return text == nullptr ? std::string() : Narrow(std::wstring_view(text, SysStringLen(text)));
}

Bstr::Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (text_ == nullptr) throw std::bad_alloc();
}

}  // namespace dlv
