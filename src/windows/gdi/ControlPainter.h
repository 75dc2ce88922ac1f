// The picture of the whole control without any window: for containers that draw it themselves, for previews
// and for printing.
#pragma once

#include "windows/com/PlainWindows.h"

#include "views/ViewerForm.h"
#include "windows/gdi/Canvas.h"
#include "windows/gdi/Zoom.h"

namespace dlv {

using LabelGroup = std::vector<const Label*>;
/// The headings that stand side by side or below one another: those of a group are shown in one size.
std::vector<LabelGroup> HeadingGroups(const ViewerForm& form);
/// The least step for each label of the group, so that all are in the size of the one that needs the
/// smallest.
int GroupStep(const Canvas& canvas, const LabelGroup& group);

/// Draws the form into `place` (logical units of `dc`) as it looks at its own size and that zoom. Any device
/// context will do, a metafile's too.
void DrawControl(HDC dc, const RECT& place, ViewerForm& form, const Zoom& zoom);

}  // namespace dlv
