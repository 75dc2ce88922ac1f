// The host of a recorded session, on the built control: its calls with the values of the steps, and the
// control's events as a transcript writes them.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "DashlonViewer.h"
#include "hosts/container/EventSink.h"
#include "hosts/container/Library.h"
#include "player/SessionSteps.h"

namespace dlv::player {

/// Makes a host's call; false when it failed towards the host.
bool MakeHostCall(const container::Library& library, _DLViewer& viewer, const Json& step);

/// Has every event written as {event, fields}, with the fields that are not empty.
void ListenTo(container::EventSink& sink, std::function<void(const std::string& name, Json entry)> happened);

}  // namespace dlv::player
