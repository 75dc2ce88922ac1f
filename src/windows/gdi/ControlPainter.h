// The picture of the whole control without any window: for containers that draw it themselves, for previews
// and for printing.
#pragma once

#include "windows/com/PlainWindows.h"

#include "views/ViewerForm.h"
#include "windows/gdi/Fonts.h"

namespace dlv {

/// Draws the form into `place` (logical units of `dc`) as it looks at its own size at `dpi`. Any device
/// context will do, a metafile's too.
void DrawControl(HDC dc, const RECT& place, ViewerForm& form, int dpi,
                 const FontChoice& font = DefaultFont());

}  // namespace dlv
