// The names under which the controls of the form are announced to those who do not see it, where a control
// does not say itself what it is.
#pragma once

#include <string>

#include "views/ViewerForm.h"

namespace dlv {

/// The heading of a figure, the label of the list, the tab that a grid stands on; empty for a control that
/// has its own text.
std::string SpokenName(const ViewerForm& form, const Control& control);

}  // namespace dlv
