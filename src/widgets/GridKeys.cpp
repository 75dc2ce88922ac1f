#include "widgets/GridKeys.h"

#include <algorithm>

namespace dlv {

namespace {

using enum GridCommand;
using enum Modifiers;

constexpr GridKey kKeys[] = {
    {0x26, 0, None, RowUp, "Up", "the row above"},
    {0x28, 0, None, RowDown, "Down", "the row below"},
    {0x21, 0, None, PageUp, "Page Up", "a page up"},
    {0x22, 0, None, PageDown, "Page Down", "a page down"},
    {0x24, 0, None, FirstColumn, "Home", "the first column"},
    {0x23, 0, None, LastColumn, "End", "the last column"},
    {0x24, 0, Control, FirstRow, "Ctrl+Home", "the first row"},
    {0x23, 0, Control, LastRow, "Ctrl+End", "the last row"},
    {0x27, 0, None, Right, "Right", "opens a closed node, else the next column"},
    {0x25, 0, None, Left, "Left",
     "the previous column; in the tree column closes an open node, else goes to the node above"},
    {0x08, 0, None, Parent, "Backspace", "the node above"},
    {0, '+', None, OpenNode, "+", "opens the node"},
    {0x6B, 0, None, OpenNode, "+ (number pad)", "opens the node"},
    {0, '-', None, CloseNode, "-", "closes the node"},
    {0x6D, 0, None, CloseNode, "- (number pad)", "closes the node"},
    {0, '*', None, OpenAllBelow, "*", "opens the node and all below it"},
    {0x6A, 0, None, OpenAllBelow, "* (number pad)", "opens the node and all below it"},
    {0x6D, 0, Shift, CloseAllBelow, "Shift+- (number pad)", "closes the node and all below it"},
    {0x26, 0, Control, ScrollUp, "Ctrl+Up", "scrolls up by a row"},
    {0x28, 0, Control, ScrollDown, "Ctrl+Down", "scrolls down by a row"},
    {0x21, 0, Control, ScrollPageUp, "Ctrl+Page Up", "scrolls up by a page"},
    {0x22, 0, Control, ScrollPageDown, "Ctrl+Page Down", "scrolls down by a page"},
    {0x25, 0, Control, ScrollLeft, "Ctrl+Left", "scrolls to the left"},
    {0x27, 0, Control, ScrollRight, "Ctrl+Right", "scrolls to the right"},
    {0x0D, 0, None, DrillDown, "Enter", "asks for the details of the current figure"},
    {0x41, 0, Control, SelectAll, "Ctrl+A", "selects all cells"},
    {0x43, 0, Control, Copy, "Ctrl+C", "copies the selected cells"},
    {0x2D, 0, Control, Copy, "Ctrl+Insert", "copies the selected cells"},
    {0x43, 0, ControlShift, CopyWithHeadings, "Ctrl+Shift+C",
     "copies them under the headings of their columns"},
    {0x6B, 0, Control, FitColumns, "Ctrl++ (number pad)", "makes all columns as wide as what they show"},
    {0x5D, 0, None, Menu, "Menu", "the menu of the current cell"},
    {0x79, 0, Shift, Menu, "Shift+F10", "the menu of the current cell"},
};

constexpr GridMenuItem kLine{};

constexpr GridMenuItem kMenu[] = {
    {DrillDown, "ViewDetails", "Enter"},
    kLine,
    {OpenNode, "ExpandNode", "+"},
    {CloseNode, "CollapseNode", "-"},
    {OpenAllBelow, "ExpandBelow", "*"},
    {CloseAllBelow, "CollapseBelow", ""},
    kLine,
    {Copy, "Copy", "Ctrl+C"},
    {CopyWithHeadings, "CopyWithHeadings", "Ctrl+Shift+C"},
    {SelectAll, "SelectAll", "Ctrl+A"},
    kLine,
    {FitColumns, "FitColumns", ""},
};

bool HasShift(Modifiers with) { return with == Shift || with == ControlShift; }
Modifiers WithoutShift(Modifiers with) { return with == Shift ? None : Control; }

}  // namespace

std::span<const GridKey> GridKeys() { return kKeys; }

std::optional<GridCommand> CommandForKey(int key, Modifiers with) {
    for (const GridKey& entry : kKeys)
        if (entry.key != 0 && entry.key == key && entry.with == with) return entry.command;
    return HasShift(with) ? CommandForKey(key, WithoutShift(with)) : std::nullopt;
}

std::optional<GridCommand> CommandForCharacter(char32_t character) {
    for (const GridKey& entry : kKeys)
        if (entry.character != 0 && static_cast<char32_t>(entry.character) == character) return entry.command;
    return std::nullopt;
}

std::span<const GridMenuItem> GridMenu() { return kMenu; }

}  // namespace dlv
