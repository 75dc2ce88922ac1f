// An object of the host's, called by the names of its members.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oaidl.h>
#include <wrl/client.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "windows/com/Strings.h"

namespace dlv {

class LateBound {
public:
    explicit LateBound(IDispatch* object) : object_(object) {}

    /// Whether the object knows a member of that name.
    bool Has(const wchar_t* member) const { return Find(member).has_value(); }

    /// Reads a property, or calls a method, with at most one argument. Throws a RunTimeError: the object's
    /// own error with its number and text; error 438 when there is no such member.
    Variant Get(const wchar_t* member) const;
    Variant Get(const wchar_t* member, Variant argument) const;

    /// The same as an object; error 13 when it is none.
    LateBound Object(const wchar_t* member, Variant argument) const;
    /// The same as text; Empty and Null are empty.
    std::string Text(const wchar_t* member) const;
    std::string Text(const wchar_t* member, Variant argument) const;

    /// The same where a member that is missing or fails, and a value that is no text, are nothing.
    std::optional<std::string> TextIfAny(const wchar_t* member) const;
    std::optional<std::string> TextIfAny(const wchar_t* member, Variant argument) const;

private:
    std::optional<DISPID> Find(const wchar_t* member) const;
    HRESULT Call(DISPID id, std::span<Variant> arguments, Variant& value, EXCEPINFO* exception) const;
    Variant Get(const wchar_t* member, std::span<Variant> arguments) const;
    std::optional<std::string> TextIfAny(const wchar_t* member, std::span<Variant> arguments) const;

    Microsoft::WRL::ComPtr<IDispatch> object_;
};

inline constexpr std::string_view kTellsNoType = "Object";

/// The type that a value says it has. An object: the name of its class, else that of its interface without a
/// leading "_", kTellsNoType when it tells neither, "Nothing" when there is none; other values: the names
/// that Basic gives them ("String", "Long", "Variant()" ...).
std::string TypeNameOf(const VARIANT& value);

}  // namespace dlv
