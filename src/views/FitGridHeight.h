// The height of a grid within the frame that holds it.
#pragma once

#include "widgets/OutlineGrid.h"

namespace dlv {

/// Fits the grid's height to its rows, with room for a horizontal scroll bar, but no further than to
/// three pixels above the end of the available height (twips).
void FitGridHeight(OutlineGrid& grid, double available);

}  // namespace dlv
