// The profile menu as the system's pop-up menu.
#pragma once

#include "windows/com/PlainWindows.h"

#include "control/DLViewer.h"

namespace dlv {

/// Shows the menu that stands in the form and runs the handler of what a person chooses. `owner` is a window
/// of the control.
void ShowProfileMenu(DLViewer& viewer, HWND owner);

}  // namespace dlv
