// What the commands that a person gives do to an outline grid: to its current cell and what is selected, to
// its nodes and to what of it is in sight.
#pragma once

#include "widgets/GridKeys.h"
#include "widgets/OutlineGrid.h"

namespace dlv {

/// How much of the grid is in sight.
struct GridSight {
    /// Rows below the header that are wholly in sight, at least 1.
    int fullRows = 1;
    /// Width of the columns that are in sight, in twips.
    double width = 0;
};

/// Whether a move selects the cell that it ends in, or all cells from where the first such move began.
enum class Selecting { Cell, Block };

/// Does nothing for the commands that are for the grid's owner: drilling down, copying, fitting columns, the
/// menu.
void RunGridCommand(OutlineGrid& grid, GridCommand command, const GridSight& sight,
                    Selecting selecting = Selecting::Cell);
/// Whether the command has something to act on, for commands that stand in the menu.
bool CanRunGridCommand(const OutlineGrid& grid, GridCommand command);

/// Opens a closed node and closes an open one. A current cell that would be hidden moves to the node.
void ToggleNode(OutlineGrid& grid, int row);

/// Makes the cell the current one and brings it into sight.
void GoToCell(OutlineGrid& grid, int row, int column, const GridSight& sight,
              Selecting selecting = Selecting::Cell);

/// Moves what is in sight by so many rows, down when positive, but not beyond the ends.
void ScrollRows(OutlineGrid& grid, int rows, const GridSight& sight);
/// The same to the right, in twips.
void ScrollColumns(OutlineGrid& grid, double distance, const GridSight& sight);

}  // namespace dlv
