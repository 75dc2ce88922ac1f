// The arrays that hosts pass, as plain texts.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oaidl.h>

#include <string>
#include <vector>

namespace dlv {

/// The elements of a one-dimensional array, from its lower to its upper bound. Error 9 for an array that was
/// never given bounds.
std::vector<std::string> TextsOf(SAFEARRAY* array);
/// The same of anything that a script passes as an array of texts. Throws ComError when it is none.
std::vector<std::string> TextsOf(const VARIANT& array);

/// A two-dimensional array of any values, row after row (its first dimension), each row of `width` values;
/// error 5 when it is not that wide. Empty and Null elements are empty texts. Nothing at all is no row.
std::vector<std::string> TextsOfRows(const VARIANT& array, std::size_t width);

}  // namespace dlv
