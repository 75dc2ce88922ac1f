// The messages that the demo host's server would send: the figures of a working day, and that it has stopped.
#pragma once

#include <string>

#include "hosts/demo/workday/WorkingDay.h"

namespace dlv::demo {

/// The document of a "DLVData" message. `refreshMinutes` tells how soon the next one will come.
std::string FiguresMessage(const WorkingDay& day, Language language, double refreshMinutes);

/// The document of a "DLVServerStopped" message.
std::string ServerStoppedMessage();

}  // namespace dlv::demo
