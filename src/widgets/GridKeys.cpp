#include "widgets/GridKeys.h"

#include <algorithm>

namespace dlv {

namespace {

constexpr GridKey kKeys[] = {
    {0x26, ControlKey::Up, GridCommand::RowUp, "Up", "the row above"},
    {0x28, ControlKey::Up, GridCommand::RowDown, "Down", "the row below"},
    {0x21, ControlKey::Up, GridCommand::PageUp, "Page Up", "a page up"},
    {0x22, ControlKey::Up, GridCommand::PageDown, "Page Down", "a page down"},
    {0x24, ControlKey::Up, GridCommand::FirstColumn, "Home", "the first column"},
    {0x23, ControlKey::Up, GridCommand::LastColumn, "End", "the last column"},
    {0x24, ControlKey::Down, GridCommand::FirstRow, "Ctrl+Home", "the first row"},
    {0x23, ControlKey::Down, GridCommand::LastRow, "Ctrl+End", "the last row"},
    {0x27, ControlKey::Up, GridCommand::Right, "Right", "opens a closed node, else the next column"},
    {0x25, ControlKey::Up, GridCommand::Left, "Left",
     "the previous column; in the tree column closes an open node, else goes to the node above"},
    {0x26, ControlKey::Down, GridCommand::ScrollUp, "Ctrl+Up", "scrolls up by a row"},
    {0x28, ControlKey::Down, GridCommand::ScrollDown, "Ctrl+Down", "scrolls down by a row"},
    {0x21, ControlKey::Down, GridCommand::ScrollPageUp, "Ctrl+Page Up", "scrolls up by a page"},
    {0x22, ControlKey::Down, GridCommand::ScrollPageDown, "Ctrl+Page Down", "scrolls down by a page"},
    {0x25, ControlKey::Down, GridCommand::ScrollLeft, "Ctrl+Left", "scrolls to the left"},
    {0x27, ControlKey::Down, GridCommand::ScrollRight, "Ctrl+Right", "scrolls to the right"},
    {0x6B, ControlKey::Up, GridCommand::OpenNode, "+ (number pad)", "opens the node"},
    {0xBB, ControlKey::Up, GridCommand::OpenNode, "+", "opens the node"},
    {0x6D, ControlKey::Up, GridCommand::CloseNode, "- (number pad)", "closes the node"},
    {0xBD, ControlKey::Up, GridCommand::CloseNode, "-", "closes the node"},
    {0x6A, ControlKey::Up, GridCommand::OpenAllBelow, "* (number pad)", "opens the node and all below it"},
    {0x08, ControlKey::Up, GridCommand::Parent, "Backspace", "the node above"},
    {0x0D, ControlKey::Up, GridCommand::DrillDown, "Enter", "the details of the current figure"},
};

constexpr double kColumnStep = Pixels(48);

/// The current cell as a place among the displayed rows; above the first row when it is in the header.
class Walker {
public:
    Walker(OutlineGrid& grid, const GridSight& sight)
        : grid_(grid),
          sight_(sight),
          rows_(grid.DisplayedRows()),
          first_(grid.FixedRows()),
          last_(static_cast<int>(rows_.size()) - 1),
          index_(grid.CurrentRow() < grid.Rows() ? grid.DisplayedIndex(grid.CurrentRow()) : -1) {}

    bool Empty() const { return last_ < first_; }
    bool InHeader() const { return index_ < first_; }
    int Row() const { return rows_[static_cast<std::size_t>(index_)]; }

    void MoveBy(int count) { MoveTo(InHeader() ? first_ : index_ + count); }
    void MoveTo(int index) {
        if (Empty()) return;
        index_ = std::clamp(index, first_, last_);
        GoToCell(grid_, Row(), Column(), sight_);
    }
    void MoveToEnd() { MoveTo(last_); }
    void MoveToFirst() { MoveTo(first_); }
    void MoveToColumn(int column) {
        if (!Empty())
            GoToCell(grid_, InHeader() ? rows_[static_cast<std::size_t>(first_)] : Row(), column, sight_);
    }

    /// The current column, where keys can take it: never before the tree column, never a hidden one.
    int Column() const {
        const int column = std::max(grid_.CurrentColumn(), grid_.TreeColumn());
        return column < grid_.Columns() ? column : grid_.TreeColumn();
    }
    /// The nearest column with a width in that direction; the same when there is none.
    int ColumnBeside(int step) const {
        for (int column = Column() + step; column >= grid_.TreeColumn() && column < grid_.Columns();
             column += step)
            if (grid_.ColumnWidth(column) > 0) return column;
        return Column();
    }
    int LastColumn() const {
        int column = grid_.Columns() - 1;
        while (column > grid_.TreeColumn() && grid_.ColumnWidth(column) <= 0) --column;
        return column;
    }
    bool InTree() const { return Column() == grid_.TreeColumn(); }
    bool OnClosedNode() const { return OnNode() && grid_.IsCollapsed(Row()); }
    bool OnOpenNode() const { return OnNode() && !grid_.IsCollapsed(Row()); }

private:
    bool OnNode() const { return !InHeader() && grid_.IsNode(Row()) && grid_.HasChildren(Row()); }

    OutlineGrid& grid_;
    const GridSight& sight_;
    const std::vector<int>& rows_;
    int first_;
    int last_;
    int index_;
};

void GoToParent(OutlineGrid& grid, Walker& walker) {
    if (walker.InHeader()) return;
    if (const int parent = grid.ParentRow(walker.Row()); parent != OutlineGrid::kNoRow)
        walker.MoveTo(grid.DisplayedIndex(parent));
}

void GoRight(OutlineGrid& grid, Walker& walker) {
    if (walker.InTree() && walker.OnClosedNode()) {
        grid.SetCollapsed(walker.Row(), false);
    } else {
        walker.MoveToColumn(walker.ColumnBeside(1));
    }
}

void GoLeft(OutlineGrid& grid, Walker& walker) {
    if (!walker.InTree()) {
        walker.MoveToColumn(walker.ColumnBeside(-1));
    } else if (walker.OnOpenNode()) {
        ToggleNode(grid, walker.Row());
    } else {
        GoToParent(grid, walker);
    }
}

void OpenAllBelow(OutlineGrid& grid, int node) {
    grid.SetCollapsed(node, false);
    for (int row = node + 1; row < grid.Rows() && grid.Level(row) > grid.Level(node); ++row)
        grid.SetCollapsed(row, false);
}

}  // namespace

std::span<const GridKey> GridKeys() { return kKeys; }

std::optional<GridCommand> CommandForKey(int key, ControlKey control) {
    for (const GridKey& entry : kKeys)
        if (entry.key == key && entry.control == control) return entry.command;
    return std::nullopt;
}

void RunGridCommand(OutlineGrid& grid, GridCommand command, const GridSight& sight) {
    Walker walker(grid, sight);
    if (walker.Empty()) return;
    switch (command) {
        case GridCommand::RowUp: return walker.MoveBy(-1);
        case GridCommand::RowDown: return walker.MoveBy(1);
        case GridCommand::PageUp: return walker.MoveBy(-sight.fullRows);
        case GridCommand::PageDown: return walker.MoveBy(sight.fullRows);
        case GridCommand::FirstColumn: return walker.MoveToColumn(grid.TreeColumn());
        case GridCommand::LastColumn: return walker.MoveToColumn(walker.LastColumn());
        case GridCommand::FirstRow: return walker.MoveToFirst();
        case GridCommand::LastRow: return walker.MoveToEnd();
        case GridCommand::Right: return GoRight(grid, walker);
        case GridCommand::Left: return GoLeft(grid, walker);
        case GridCommand::ScrollUp: return ScrollRows(grid, -1, sight);
        case GridCommand::ScrollDown: return ScrollRows(grid, 1, sight);
        case GridCommand::ScrollPageUp: return ScrollRows(grid, -sight.fullRows, sight);
        case GridCommand::ScrollPageDown: return ScrollRows(grid, sight.fullRows, sight);
        case GridCommand::ScrollLeft: return ScrollColumns(grid, -kColumnStep, sight);
        case GridCommand::ScrollRight: return ScrollColumns(grid, kColumnStep, sight);
        case GridCommand::OpenNode:
            if (walker.OnClosedNode()) grid.SetCollapsed(walker.Row(), false);
            return;
        case GridCommand::CloseNode:
            if (walker.OnOpenNode()) ToggleNode(grid, walker.Row());
            return;
        case GridCommand::OpenAllBelow:
            if (!walker.InHeader()) OpenAllBelow(grid, walker.Row());
            return;
        case GridCommand::Parent: return GoToParent(grid, walker);
        case GridCommand::DrillDown: return;
    }
}

void ToggleNode(OutlineGrid& grid, int row) {
    if (!grid.IsNode(row)) return;
    grid.SetCollapsed(row, !grid.IsCollapsed(row));
    const int current = grid.CurrentRow();
    if (current >= grid.Rows()) return;
    const int shown = grid.DisplayedRows()[static_cast<std::size_t>(grid.DisplayedIndex(current))];
    if (shown != current) grid.SetCurrentCell(shown, grid.CurrentColumn());
}

void GoToCell(OutlineGrid& grid, int row, int column, const GridSight& sight) {
    grid.SetCurrentCell(row, column);
    if (row < grid.FixedRows()) return;
    const int index = grid.DisplayedIndex(row);
    if (index < grid.TopIndex()) grid.SetTopIndex(index);
    if (index >= grid.TopIndex() + sight.fullRows) grid.SetTopIndex(index - sight.fullRows + 1);
    double left = 0;
    for (int before = 0; before < column; ++before) left += grid.ColumnWidth(before);
    const double right = left + grid.ColumnWidth(column);
    if (right > grid.ScrollLeft() + sight.width) grid.SetScrollLeft(right - sight.width);
    // The tree column brings back what stands before it, too.
    if (left < grid.ScrollLeft()) grid.SetScrollLeft(column <= grid.TreeColumn() ? 0 : left);
}

void ScrollRows(OutlineGrid& grid, int rows, const GridSight& sight) {
    const int displayed = static_cast<int>(grid.DisplayedRows().size());
    const int last = std::max(grid.FixedRows(), displayed - sight.fullRows);
    grid.SetTopIndex(std::clamp(grid.TopIndex() + rows, grid.FixedRows(), last));
}

void ScrollColumns(OutlineGrid& grid, double distance, const GridSight& sight) {
    double width = 0;
    for (int column = 0; column < grid.Columns(); ++column) width += grid.ColumnWidth(column);
    grid.SetScrollLeft(std::clamp(grid.ScrollLeft() + distance, 0.0, std::max(0.0, width - sight.width)));
}

}  // namespace dlv
