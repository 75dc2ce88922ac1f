// The menu of a grid's commands.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>

#include "widgets/GridKeys.h"
#include "widgets/OutlineGrid.h"
#include "windows/com/WindowHost.h"

namespace dlv {

/// Pops the menu up at a place on the screen; `owner` is the control's outer window. Nothing when the person
/// chose nothing. Commands that have nothing to act on are shown grey.
std::optional<GridCommand> ChooseGridCommand(const OutlineGrid& grid, WindowHost& host, HWND owner,
                                             POINT place);

}  // namespace dlv
