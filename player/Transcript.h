// The state of the control as a transcript tells it.
#pragma once

#include "control/DLViewer.h"
#include "player/SessionSteps.h"

namespace dlv::player {

/// Every part of the state, by name.
Json StateTranscript(DLViewer& viewer);

/// The profile menu's items to be seen, [[caption, checked]]; null without any.
Json MenuTranscript(const ViewerForm& form);

/// The data rows of a grid; `index` 0 is the summary.
Json GridTranscript(const OutlineGrid& grid, int index);

/// A profile document as a set in the form that sessions use.
Json ProfileSetTranscript(const std::string& document);

/// A result document made of an error table (nothing: none) and a payload: the text of a profile-ID
/// list, or a profile set in the form that sessions use.
std::string ResultDocument(const Json* error, const Json& payload);

}  // namespace dlv::player
