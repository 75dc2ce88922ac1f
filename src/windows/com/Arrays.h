// The arrays that hosts pass: texts in a row, and the values of a table.
#pragma once

#include "windows/com/PlainWindows.h"

#include <oaidl.h>

#include <string>
#include <vector>

#include "webdata/TableFill.h"
#include "windows/com/Strings.h"

namespace dlv {

/// The elements of a one-dimensional array, from its lower to its upper bound. Error 9 for an array that was
/// never given bounds.
std::vector<std::string> TextsOf(SAFEARRAY* array);
/// The same of anything that a script passes as an array: arrays of any values, and the array objects of
/// script engines, whose holes are empty texts. Throws ComError when it is none.
std::vector<std::string> TextsOf(const VARIANT& array);
/// The same as an array of texts, from 0.
Variant TextArray(const VARIANT& array);

/// The values of a table, each as it is read as text; Empty and Null are empty texts. They come as an array
/// of two dimensions, rows and columns, or as an array of rows that are arrays themselves; each of any kind
/// and bounds. Errors 5 and 13 say what of the argument `Values` does not fit; nothing at all is no row.
void FillFrom(const VARIANT& values, TableFill& fill);

}  // namespace dlv
