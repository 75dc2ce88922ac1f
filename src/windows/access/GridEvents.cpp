#include "windows/access/GridEvents.h"

#include <utility>

namespace dlv {

namespace {

bool HasSeveralRows(const std::optional<OutlineGrid::Block>& block) {
    return block && block->firstRow < block->lastRow;
}

}  // namespace

void GridEvents::Notify(Event event) const {
    if (IsWindowVisible(screen_.Surface()))
        NotifyWinEvent(event.event, screen_.Surface(), OBJID_CLIENT, event.id);
}

GridEvents::Known GridEvents::Read() const {
    const OutlineGrid& grid = screen_.Grid();
    Known known{grid.RowsVersion(), std::nullopt, grid.Selection()};
    const int row = screen_.CurrentRow();
    if (row == OutlineGrid::kNoRow) return known;
    known.current = Current{RowReference(grid, row), screen_.CurrentColumn(), {}};
    for (int column = 0; column < grid.Columns(); ++column)
        known.current->texts.push_back(ShownText(grid, row, column));
    return known;
}

// All is compared and noted before anything is told.
void GridEvents::Tell() {
    const Known before = std::exchange(known_, Read());
    const Known now = known_;
    Events events;
    AddRows(events, before);
    const bool sameRow = before.current && now.current && before.current->row == now.current->row;
    if (sameRow) AddFigures(events, *before.current, *now.current);
    AddSelection(events, before, now);
    const bool moved =
        now.current ? !sameRow || before.current->column != now.current->column : before.current.has_value();
    if (moved && screen_.HasFocus()) events.push_back({EVENT_OBJECT_FOCUS, FocusedId()});
    for (const Event& event : events) Notify(event);
}

void GridEvents::AddRows(Events& events, const Known& before) const {
    OutlineGrid& grid = screen_.Grid();
    const std::vector<int> toggled = grid.TakeToggled();
    const bool others = before.rowsVersion != grid.RowsVersion();
    if (others || !toggled.empty()) events.push_back({EVENT_OBJECT_REORDER, CHILDID_SELF});
    if (others) return;
    for (const int row : toggled)
        if (screen_.IsDisplayed(row)) events.push_back({EVENT_OBJECT_STATECHANGE, screen_.IdOfRow(row)});
}

void GridEvents::AddSelection(Events& events, const Known& before, const Known& now) const {
    if (HasSeveralRows(now.selection)) {
        if (before.selection != now.selection) events.push_back({EVENT_OBJECT_SELECTIONWITHIN, CHILDID_SELF});
        return;
    }
    if (!now.current) return;
    const bool sameRow = before.current && before.current->row == now.current->row;
    if (!sameRow || HasSeveralRows(before.selection))
        events.push_back({EVENT_OBJECT_SELECTION, screen_.IdOfRow(screen_.CurrentRow())});
}

void GridEvents::AddFigures(Events& events, const Current& before, const Current& now) const {
    const int row = screen_.CurrentRow();
    const int tree = screen_.Grid().TreeColumn();
    for (const int column : ReadColumns(screen_.Grid())) {
        const auto place = static_cast<std::size_t>(column);
        if (place >= before.texts.size() || before.texts[place] == now.texts[place]) continue;
        if (column == tree)
            events.push_back({EVENT_OBJECT_NAMECHANGE, screen_.IdOfRow(row)});
        else
            events.push_back({EVENT_OBJECT_VALUECHANGE, screen_.IdOfCell(row, column)});
    }
}

// In the tree column the row itself has the focus; with no current row, the grid.
LONG GridEvents::FocusedId() const {
    const int row = screen_.CurrentRow();
    if (row == OutlineGrid::kNoRow) return CHILDID_SELF;
    const int column = screen_.CurrentColumn();
    return column == screen_.Grid().TreeColumn() ? screen_.IdOfRow(row) : screen_.IdOfCell(row, column);
}

void GridEvents::TellFocus() const {
    if (const LONG id = FocusedId(); id != CHILDID_SELF) Notify({EVENT_OBJECT_FOCUS, id});
}

}  // namespace dlv
