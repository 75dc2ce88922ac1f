// Brings what a late-bound caller passes into the type that a member declares, as the system does it for
// values, and beyond it for the ways in which scripts pass variables and arrays.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oaidl.h>

#include "windows/com/Strings.h"

namespace dlv {

/// `typed` is what the member gets, `kept` holds it as long as the call lasts. An argument that has the very
/// type is passed as it is, and so is any for a VARIANT; one that is left out is DISP_E_PARAMNOTOPTIONAL. A
/// by-reference parameter of another type gets a reference to a copy in `kept`, as our members never change
/// what they are given.
HRESULT CoerceArgument(VARIANT& argument, VARTYPE type, Variant& kept, VARIANT& typed);

/// The value as text or number, by the system's rules; Null has none. Throws ComError.
std::string TextOf(const VARIANT& value);
LONG LongOf(const VARIANT& value);
/// The same into `text`; false, and no change, for a value that has none.
bool ReadText(const VARIANT& value, std::string& text);

/// What stands behind references, borrowed; null when one of them leads nowhere.
const VARIANT* Behind(const VARIANT& value);
/// A copy of the same, which is no array: to copy one may take long, and some systems read arrays that have
/// no memory.
HRESULT Dereference(const VARIANT& value, Variant& plain);

}  // namespace dlv
