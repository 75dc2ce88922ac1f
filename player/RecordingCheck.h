// Whether a recorded session, played again, raises the events that were recorded with it.
#pragma once

#include <string>
#include <vector>

namespace dlv::player {

/// A line for each step that raises other events, or fails where it did not, than the document's "events"
/// tell; empty when all are alike. Throws SessionError for a document that cannot be played or has no
/// "events".
std::vector<std::string> RecordingDifferences(const std::string& document);

}  // namespace dlv::player
