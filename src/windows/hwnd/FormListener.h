// What a person did to the windows of a form. Every call comes from inside an entry into the control, after
// the form's state was changed, except for option buttons, whose group the listener knows.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>
#include <string>
#include <string_view>

#include "ui/CaptionKey.h"
#include "widgets/OutlineGrid.h"
#include "widgets/Widgets.h"

namespace dlv {

class FormListener {
public:
    virtual ~FormListener() = default;

    /// A button, an option button, or a label that answers clicks.
    virtual void Clicked(Control& control) = 0;
    virtual void TabChosen(TabStrip& /*tabs*/) {}
    /// `place` is the button's on the screen, unless it was chosen with the mouse.
    virtual void ToolChosen(Toolbar& /*bar*/, const std::string& /*key*/,
                            const std::optional<RECT>& /*place*/) {}
    /// A line of a list was double-clicked.
    virtual void LineChosen(ListBox& /*list*/) {}
    /// `button` as the mouse handlers of forms count: 1 left, 2 right, 4 middle.
    virtual void GridPressed(OutlineGrid& /*grid*/, int /*button*/) {}
    /// The cell under the mouse, below all rows that of the last row; (-1, -1) outside all columns.
    virtual void GridDoubleClicked(OutlineGrid& /*grid*/, int /*row*/, int /*column*/) {}
    virtual void GridKeyPressed(OutlineGrid& /*grid*/, int /*key*/, bool /*shift*/) {}
    /// What the figure in a cell stands for, in words; empty where there is nothing to say.
    virtual std::string GridExplanation(OutlineGrid& /*grid*/, int /*row*/, int /*column*/) { return {}; }
    virtual void FocusTaken(Control& /*control*/) {}

    // What readers of the screen are told.

    /// The name of a control that does not say itself what it is; empty where the label before it does.
    virtual std::string NameOf(const Control& /*control*/) { return {}; }
    /// The text for a key in the user's language.
    virtual std::string CaptionOf(CaptionKey /*key*/) { return {}; }

    /// The focus came into one of the form's windows from outside, or left them for the outside.
    virtual void FocusEntered() {}
    virtual void FocusLeft() {}
};

}  // namespace dlv
