#include "windows/com/Strings.h"

#include <new>

#include "base/Text.h"

namespace dlv {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring Wide(std::string_view text) {
    const std::u16string units = ToUtf16(text);
    return {units.begin(), units.end()};
}

std::string Narrow(std::wstring_view text) {
    std::string out;
    NarrowInto(text, out);
    return out;
}

// Most text is plain: that is taken over as it is, up to the first character that is not.
void NarrowInto(std::wstring_view text, std::string& out) {
    out.resize(text.size());
    std::size_t plain = 0;
    for (; plain < text.size() && text[plain] < 0x80; ++plain) out[plain] = static_cast<char>(text[plain]);
    if (plain == text.size()) return;
    out.resize(plain);
    out += FromUtf16(std::u16string(text.begin() + static_cast<std::ptrdiff_t>(plain), text.end()));
}

std::string Narrow(BSTR text) {
    return text == nullptr ? std::string() : Narrow(std::wstring_view(text, SysStringLen(text)));
}

Bstr::Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (text_ == nullptr) throw std::bad_alloc();
}

}  // namespace dlv
