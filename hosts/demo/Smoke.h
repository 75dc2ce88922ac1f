// A short life of the control in the system's own container class.
#pragma once

#include "hosts/demo/DemoWindow.h"

namespace dlv::demo {

/// True when the control came up, showed the figures, and left nothing behind. What went wrong is told on
/// standard error.
bool RunSmoke(const Options& options);

}  // namespace dlv::demo
