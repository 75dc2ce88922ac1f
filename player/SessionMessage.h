// The data messages of a session, and its other values as a host's language would hand them over.
#pragma once

#include <memory>

#include "base/TimeFormat.h"
#include "player/SessionSteps.h"
#include "webdata/QZWebMessage.h"

namespace dlv::player {

/// The message of a step. Error 1003 for a document that cannot be loaded.
std::shared_ptr<QZWebMessage> MessageOf(const Json& step);

TimeOfDay ClockOf(const std::string& text);

}  // namespace dlv::player
