// What a transcript tells when only that counts which a person or a screen reader gets: the same of the
// control without windows and of the built one on a screen.
#pragma once

#include <optional>
#include <string>

#include "control/DLViewer.h"
#include "player/SessionSteps.h"

namespace dlv::player {

/// Every part of what is to be seen, by name: "status" {text, colour} or null, "panel", "units" [[text,
/// selected]], "tab", "mode", "display" (null while the hierarchy is not in view), "grid" (the displayed rows
/// of the grid in view: {cells, depth, grey, and for a node with rows below it collapsed}), "viewEnabled",
/// "profile" (null while hidden), "refreshShown", "menu" ([[caption, checked]] of the profiles in the menu,
/// as it was when it was last opened); after a stop {"stopped": true} alone. `menu` is that last part.
Json VisibleState(DLViewer& viewer, const Json& menu);

/// Whether a step opens the profile menu. A person opens it for each line that is taken from it.
bool IsMenuStep(const std::string& op);

/// The row that a step names in its grid; `kNoRow` when it names none.
int RowOfStep(const Json& step, const OutlineGrid& grid);

/// Why a person cannot make the step as it stands, in words; nothing for one that can be made. Such a step is
/// left out of a visible transcript, and not made.
std::optional<std::string> WhyLeftOut(const Json& step, DLViewer& viewer);

}  // namespace dlv::player
