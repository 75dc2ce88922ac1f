#include "widgets/GridWalk.h"

#include <algorithm>

namespace dlv {

namespace {

constexpr double kColumnStep = Pixels(48);

/// The current cell as a place among the displayed rows; above the first row when it is in the header.
class Walker {
public:
    Walker(OutlineGrid& grid, const GridSight& sight, Selecting selecting)
        : grid_(grid),
          sight_(sight),
          selecting_(selecting),
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
        GoToCell(grid_, Row(), Column(), sight_, selecting_);
    }
    void MoveToEnd() { MoveTo(last_); }
    void MoveToFirst() { MoveTo(first_); }
    void MoveToColumn(int column) {
        if (!Empty())
            GoToCell(grid_, InHeader() ? rows_[static_cast<std::size_t>(first_)] : Row(), column, sight_,
                     selecting_);
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
    Selecting selecting_;
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

/// The node itself and all nodes below it.
void SetAllCollapsed(OutlineGrid& grid, int node, bool collapsed) {
    if (!grid.IsNode(node)) return;
    int row = node;
    do {
        grid.SetCollapsed(row++, collapsed);
    } while (row < grid.Rows() && grid.Level(row) > grid.Level(node));
}

}  // namespace

bool CanRunGridCommand(const OutlineGrid& grid, GridCommand command) {
    const int row = grid.CurrentRow();
    const bool onData = row >= grid.FixedRows() && row < grid.Rows();
    const bool onNode = onData && grid.IsNode(row) && grid.HasChildren(row);
    switch (command) {
        case GridCommand::DrillDown: return onData;
        case GridCommand::OpenNode: return onNode && grid.IsCollapsed(row);
        case GridCommand::CloseNode: return onNode && !grid.IsCollapsed(row);
        case GridCommand::OpenAllBelow:
        case GridCommand::CloseAllBelow: return onNode;
        case GridCommand::Copy:
        case GridCommand::CopyWithHeadings: return grid.Selection().has_value();
        default: return grid.Rows() > grid.FixedRows();
    }
}

void RunGridCommand(OutlineGrid& grid, GridCommand command, const GridSight& sight, Selecting selecting) {
    Walker walker(grid, sight, selecting);
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
        case GridCommand::CloseNode:
            if (CanRunGridCommand(grid, command)) ToggleNode(grid, grid.CurrentRow());
            return;
        case GridCommand::OpenAllBelow:
        case GridCommand::CloseAllBelow:
            if (CanRunGridCommand(grid, command))
                SetAllCollapsed(grid, grid.CurrentRow(), command == GridCommand::CloseAllBelow);
            return;
        case GridCommand::Parent: return GoToParent(grid, walker);
        case GridCommand::SelectAll: return grid.SelectAll();
        case GridCommand::DrillDown:
        case GridCommand::Copy:
        case GridCommand::CopyWithHeadings:
        case GridCommand::FitColumns:
        case GridCommand::Menu: return;
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

void GoToCell(OutlineGrid& grid, int row, int column, const GridSight& sight, Selecting selecting) {
    if (selecting == Selecting::Block && grid.CurrentRow() >= grid.FixedRows())
        grid.ExtendSelection(row, column);
    else
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
