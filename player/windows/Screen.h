// What stands on the screen, as a person sees it and a screen reader is told it: window texts, list items,
// accessible grids, and colours by their pixels. The control is known by its outer window alone, and its
// captions are keys.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "hosts/reader/AccessibleReader.h"
#include "player/SessionSteps.h"

namespace dlv::player {

class Screen {
public:
    /// As it is now.
    explicit Screen(HWND control) : control_(control), windows_(reader::WindowsIn(control)) {}

    /// The parts that `VisibleState` has of a control that was not stopped.
    Json State() const;

    // Where things are; null windows and points at (-1, -1) for what is not to be seen.

    HWND UnitList() const;
    HWND ViewButton() const;
    /// `index` 0 and 1 choose the units, 2 and 3 what the hierarchy displays.
    HWND Option(int index) const;
    HWND Grid() const;
    /// On the button of the bar that opens the profile menu.
    POINT MenuButtonPoint() const;
    /// On the last button of the bar.
    POINT AboutButtonPoint() const;
    HWND TechnicianCount() const;
    POINT TabPoint(int tab) const;
    int Tab() const;
    /// The middle of the heading of the grid's first column.
    POINT HeadingPoint() const;
    /// The middle of a cell: `row` from 0 below the header, `cell` from 0 among the columns to be seen.
    POINT CellPoint(int row, int cell) const;

    /// What a dialog shows in its labels, in their order.
    static std::vector<std::string> Labels(HWND dialog);

private:
    HWND control_;
    std::vector<reader::ToldWindow> windows_;
};

/// A text of Windows's as JSON takes it.
std::string Utf8Of(const wchar_t* text);

}  // namespace dlv::player
