// Brings what a late-bound caller passes into the type that a member declares, as the system does it for
// values, and beyond it for the ways in which scripts pass variables and arrays.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oaidl.h>

#include "windows/com/Strings.h"

namespace dlv {

/// `typed` is what the member gets, `kept` holds it as long as the call lasts. An argument that has the very
/// type is passed as it is; a by-reference parameter of another type gets a reference to a copy in `kept`,
/// as our members never change what they are given.
HRESULT CoerceArgument(VARIANT& argument, VARTYPE type, Variant& kept, VARIANT& typed);

/// The value as text or number, by the system's rules; Null has none. Throws ComError.
std::string TextOf(const VARIANT& value);
LONG LongOf(const VARIANT& value);

/// Anything that a script passes as a one-dimensional array, as an array of texts with its bounds: arrays of
/// any elements, and the array objects of script engines. Throws ComError.
Variant TextArray(const VARIANT& value);

/// The value behind any references.
HRESULT Dereference(const VARIANT& value, Variant& plain);

}  // namespace dlv
