// What a person does to an outline grid: which key means which command, and what each command does to the
// grid's current cell, its nodes and what of it is in sight. One table holds the keys.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "widgets/OutlineGrid.h"

namespace dlv {

enum class GridCommand {
    RowUp,
    RowDown,
    PageUp,
    PageDown,
    FirstColumn,
    LastColumn,
    FirstRow,
    LastRow,
    Right,
    Left,
    ScrollUp,
    ScrollDown,
    ScrollPageUp,
    ScrollPageDown,
    ScrollLeft,
    ScrollRight,
    OpenNode,
    CloseNode,
    OpenAllBelow,
    Parent,
    DrillDown,
};

enum class ControlKey { Up, Down };

struct GridKey {
    int key;  // a virtual-key code
    ControlKey control;
    GridCommand command;
    std::string_view name;
    std::string_view does;
};

/// All keys of the grid. A key that occurs twice means the same in both rows.
std::span<const GridKey> GridKeys();
std::optional<GridCommand> CommandForKey(int key, ControlKey control);

/// How much of the grid is in sight.
struct GridSight {
    /// Rows below the header that are wholly in sight, at least 1.
    int fullRows = 1;
    /// Width of the columns that are in sight, in twips.
    double width = 0;
};

/// Does nothing for `DrillDown`, which is for the grid's owner.
void RunGridCommand(OutlineGrid& grid, GridCommand command, const GridSight& sight);

/// Opens a closed node and closes an open one. A current cell that would be hidden moves to the node.
void ToggleNode(OutlineGrid& grid, int row);

/// Makes the cell the current one and brings it into sight.
void GoToCell(OutlineGrid& grid, int row, int column, const GridSight& sight);

/// Moves what is in sight by so many rows, down when positive, but not beyond the ends.
void ScrollRows(OutlineGrid& grid, int rows, const GridSight& sight);
/// The same to the right, in twips.
void ScrollColumns(OutlineGrid& grid, double distance, const GridSight& sight);

}  // namespace dlv
