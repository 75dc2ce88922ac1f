// The pictures of the control's dialogs, drawn from shapes.
#pragma once

#include <string>

#include "windows/gdi/Canvas.h"

namespace dlv {

/// Draws over the ground of `area`. Pictures: "AboutLogo", "AboutName"; nothing for others.
void DrawPicture(const Canvas& canvas, const std::string& picture, const RECT& area);

}  // namespace dlv
