// The colours that the control is drawn in: the system's own, to which the grids add those that their state
// asks for. In high contrast only the system's count.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>

#include "widgets/Control.h"
#include "windows/gdi/Appearance.h"

namespace dlv {

struct Palette {
    COLORREF face;
    COLORREF faceText;
    COLORREF disabledText;
    COLORREF window;
    COLORREF windowText;
    COLORREF selected;
    COLORREF selectedText;
    /// What is selected in a window without the focus.
    COLORREF resting;
    COLORREF restingText;
    COLORREF gridLine;
    COLORREF headerLine;
    COLORREF outline;
    COLORREF edge;
    bool highContrast;

    /// As the system is set up now, with the container's ground and ink where it has any and the system
    /// leaves the choice.
    static Palette Current(const Appearance& wanted);

    /// The ground of a cell whose state asks for `colour`; the window's own when it asks for none.
    COLORREF Ground(std::optional<Colour> colour) const {
        return colour && !highContrast ? static_cast<COLORREF>(*colour) : window;
    }
    /// The text on such a ground: black on a colour of the state's, whatever the system's text colour is.
    COLORREF TextOn(std::optional<Colour> colour) const {
        return colour && !highContrast ? RGB(0, 0, 0) : windowText;
    }
};

}  // namespace dlv
