// Loading of the look-ups and of the model from the rows of data tables.
#pragma once

#include "base/Dictionary.h"
#include "model/BusinessUnits.h"
#include "webdata/RowTable.h"

namespace dlv {

/// Empties the look-up and fills it from two columns; error 457 for a repeated key, with what came
/// before it kept.
void LoadLookup(const RowTable& table, std::string_view keyColumn, std::string_view itemColumn,
                Dictionary& lookup);

/// Adds the units of the general table; a row of an id that is there already is passed over.
void LoadUnits(const RowTable& general, BusinessUnits& model);

/// Takes in the rows of the details table.
void LoadDetails(const RowTable& details, BusinessUnits& model);

}  // namespace dlv
