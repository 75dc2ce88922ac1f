// Draws the plain parts of a form: labels, frames and the pictures on tool bar buttons. The windows and the
// picture of the control without windows both draw with it.
#pragma once

#include "widgets/Widgets.h"
#include "windows/gdi/Canvas.h"

namespace dlv {

/// Whether the letter of an access key is underlined.
enum class KeyCue { Hidden, Shown };

/// A label on a ground of that colour, which it fills. Text that needs more room wraps where the label is
/// tall enough for two lines, is made smaller, and at last ends in an ellipsis; one line has its own size
/// then. It is smaller by `leastStep` steps at any rate.
void DrawLabel(const Canvas& canvas, const Label& label, const RECT& area, COLORREF ground, int leastStep = 0,
               KeyCue cue = KeyCue::Hidden);
/// By how many steps a label makes its text smaller, at the size that it has in its state.
int LabelStep(const Canvas& canvas, const Label& label);

/// Text in which "&" marks the access key: before the key, and nowhere else.
std::string WithAccessKey(const std::string& text, AccessKey key = {});
/// Whether the label's whole text is in sight in a label of that size.
bool LabelTextFits(const Canvas& canvas, const Label& label, const RECT& area);

/// The edge and caption of a frame, on a ground that is filled already.
void DrawFrameEdge(const Canvas& canvas, const Frame& frame, const RECT& area, COLORREF ground);

/// Which items of a tool bar are to be seen: those that the state shows, but no separator that has nothing to
/// separate.
std::vector<bool> ShownTools(const Toolbar& bar);

enum class IconState { Normal, Disabled };

/// The picture for a tool bar item's key, in the middle of `area`. Keys: "SaveGrid", "PrintGrid", "Profiles",
/// "Help"; nothing for others.
void DrawToolIcon(const Canvas& canvas, const std::string& key, const RECT& area, IconState state);

}  // namespace dlv
