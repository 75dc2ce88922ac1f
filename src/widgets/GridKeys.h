// What a person can do in an outline grid: the commands, the keys that give them, and the menu. One table
// holds the keys; the manual page on keys is held to it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace dlv {

enum class GridCommand {
    RowUp,
    RowDown,
    PageUp,
    PageDown,
    FirstColumn,
    LastColumn,
    FirstRow,
    LastRow,
    Right,
    Left,
    ScrollUp,
    ScrollDown,
    ScrollPageUp,
    ScrollPageDown,
    ScrollLeft,
    ScrollRight,
    OpenNode,
    CloseNode,
    OpenAllBelow,
    CloseAllBelow,
    Parent,
    DrillDown,
    SelectAll,
    Copy,
    CopyWithHeadings,
    FitColumns,
    Menu,
};

/// Which of Ctrl and Shift are down.
enum class Modifiers : std::uint8_t { None = 0, Control = 1, Shift = 2, ControlShift = 3 };

struct GridKey {
    int key;         // a virtual-key code; 0 for a key that is known by its character alone
    char character;  // 0 for one that is not
    Modifiers with;
    GridCommand command;
    std::string_view name;
    std::string_view does;
};

/// All keys of the grid. With Shift, a key that moves the current cell also selects.
std::span<const GridKey> GridKeys();
/// With Shift, a key that has no meaning of its own means the same as without.
std::optional<GridCommand> CommandForKey(int key, Modifiers with);
/// For a character that was typed, whatever keys it took.
std::optional<GridCommand> CommandForCharacter(char32_t character);

/// An entry of the grid's menu; `caption` is the key of its text. An empty one is a line.
struct GridMenuItem {
    GridCommand command;
    std::string_view caption;
    /// The key as the menu names it; empty for none.
    std::string_view key;
};
std::span<const GridMenuItem> GridMenu();

}  // namespace dlv
