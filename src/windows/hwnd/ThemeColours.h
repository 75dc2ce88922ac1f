// The one colour that only the system's theme knows: that of a tab strip's page.
#pragma once

#include "windows/com/PlainWindows.h"

#include "windows/gdi/Palette.h"

namespace dlv {

/// The colour that the theme paints a page in; the face colour without a theme, and where it is the
/// container's own. Inside a ControlsScope.
COLORREF PageColour(const Palette& palette);

}  // namespace dlv
