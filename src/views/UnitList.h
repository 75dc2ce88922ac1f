// The list of business units from which the user chooses what is shown.
#pragma once

#include <string>

#include "model/cDLVController.h"
#include "views/ViewerForm.h"

namespace dlv {

/// Fills the unit list with the units of the hierarchy that the session may see, in tree order, and
/// selects those again that were selected before.
void LoadBUListView(ViewerForm& form, const cDLVController& controller, const Dictionary& sessionUnits);

/// Whether the list holds a unit of that id.
bool IsListedUnit(const ViewerForm& form, const std::string& id);

/// The ids that are listed, each followed by "|", without the last one.
std::string JoinListedUnits(const ViewerForm& form, const Dictionary& ids);

}  // namespace dlv
