// The productivity panel and the switching between views: positions in proportion to the width, the
// tab in view, the hierarchy grid in view. Errors are ignored statement by statement.
#pragma once

#include "views/ViewerForm.h"

namespace dlv {

/// Positions the panel row and sets the grids' column widths for an available width in twips; below
/// 856 pixels as for 856.
void LayoutPanel(ViewerForm& form, double width);

/// Shows the frame of the selected tab and hides the other.
void ShowSelectedTab(ViewerForm& form);

/// Shows the hierarchy grid by work orders (0) or by points (1); another index does nothing.
void ShowDisplay(ViewerForm& form, int index);

}  // namespace dlv
