// The profile menu as the system's pop-up menu.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>

#include "control/DLViewer.h"

namespace dlv {

/// Shows the menu that stands in the form and runs the handler of what a person chooses. `owner` is a window
/// of the control. Without a button, whose place on the screen it would hang below, the menu stands at the
/// mouse.
void ShowProfileMenu(DLViewer& viewer, HWND owner, const std::optional<RECT>& button);

}  // namespace dlv
