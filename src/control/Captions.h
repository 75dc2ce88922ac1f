// Which caption goes where: the table of keys and the controls that they label.
#pragma once

#include "ui/CaptionCatalogue.h"
#include "views/ViewerForm.h"

namespace dlv {

/// Looks every key of the table up, in its order, and sets the caption or tool tip that it stands for.
void ApplyCaptions(ViewerForm& form, const CaptionCatalogue& captions);

}  // namespace dlv
