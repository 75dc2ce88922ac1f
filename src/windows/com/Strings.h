// Text on its way between the control, whose text is UTF-8, and Windows, whose text is UTF-16. Lone
// surrogates pass both ways unharmed.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oleauto.h>

#include <string>
#include <string_view>
#include <utility>

namespace dlv {

std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);
inline std::string Narrow(const wchar_t* text) { return Narrow(std::wstring_view(text)); }
/// The same into a text that is used again and again.
void NarrowInto(std::wstring_view text, std::string& out);
/// The whole text of a BSTR, embedded zeros too; empty for a null one.
std::string Narrow(BSTR text);

/// Owns a BSTR.
class Bstr {
public:
    Bstr() = default;
    /// Throws std::bad_alloc when memory runs out.
    explicit Bstr(std::wstring_view text);
    explicit Bstr(std::string_view text) : Bstr(std::wstring_view(Wide(text))) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }

    BSTR Get() const { return text_; }
    /// For a callee that fills it in, or changes what it holds.
    BSTR* Address() { return &text_; }
    /// Hands the text over to a caller who frees it.
    BSTR Detach() { return std::exchange(text_, nullptr); }
    std::wstring_view View() const { return {text_ == nullptr ? L"" : text_, SysStringLen(text_)}; }

private:
    BSTR text_ = nullptr;
};

/// Owns what is in a VARIANT.
class Variant {
public:
    Variant() noexcept { VariantInit(&value_); }
    explicit Variant(std::string_view text) : Variant() {
        value_.bstrVal = Bstr(text).Detach();
        value_.vt = VT_BSTR;
    }
    explicit Variant(LONG number) noexcept : Variant() {
        value_.vt = VT_I4;
        value_.lVal = number;
    }
    /// Takes a reference of its own.
    explicit Variant(IDispatch* object) noexcept : Variant() {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = object;
        if (object != nullptr) object->AddRef();
    }
    ~Variant() { VariantClear(&value_); }
    Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }

    VARIANT& operator*() { return value_; }
    const VARIANT& operator*() const { return value_; }
    VARIANT* operator->() { return &value_; }
    const VARIANT* operator->() const { return &value_; }
    VARIANT* Address() { return &value_; }

private:
    VARIANT value_;
};

}  // namespace dlv
