// Where the control's frames, tool bar, tabs and grids stand for a given size of the control. Tabs and grids
// keep to the size that there is, so that a narrow grid scrolls; the lines above them keep the room that they
// need and are cut off at the right edge.
#pragma once

#include "views/ViewerForm.h"

namespace dlv {

/// Width and height of the control in twips.
void LayoutFrames(ViewerForm& form, double width, double height);

}  // namespace dlv
