#include "windows/access/GridEvents.h"

namespace dlv {

void GridEvents::Notify(DWORD event, LONG id) const {
    if (IsWindowVisible(screen_.Surface())) NotifyWinEvent(event, screen_.Surface(), OBJID_CLIENT, id);
}

std::optional<GridEvents::Current> GridEvents::ReadCurrent() const {
    const int row = screen_.CurrentRow();
    if (row == OutlineGrid::kNoRow) return std::nullopt;
    Current current{
        RowReference(screen_.Grid(), row), screen_.CurrentColumn(), screen_.Grid().Selection(), {}};
    for (int column = 0; column < screen_.Grid().Columns(); ++column)
        current.texts.push_back(ShownText(screen_.Grid(), row, column));
    return current;
}

void GridEvents::Tell() {
    OutlineGrid& grid = screen_.Grid();
    const std::vector<int> toggled = grid.TakeToggled();
    if (rowsVersion_ != grid.RowsVersion() || !toggled.empty()) Notify(EVENT_OBJECT_REORDER, CHILDID_SELF);
    if (rowsVersion_ == grid.RowsVersion()) TellToggled(toggled);
    rowsVersion_ = grid.RowsVersion();
    std::optional<Current> now = ReadCurrent();
    TellCurrent(now);
    current_ = std::move(now);
}

void GridEvents::TellToggled(const std::vector<int>& rows) {
    for (const int row : rows)
        if (screen_.IsDisplayed(row)) Notify(EVENT_OBJECT_STATECHANGE, screen_.IdOfRow(row));
}

void GridEvents::TellCurrent(const std::optional<Current>& now) {
    if (!now) {
        if (current_ && screen_.HasFocus()) Notify(EVENT_OBJECT_FOCUS, CHILDID_SELF);
        return;
    }
    const bool sameRow = current_ && current_->row == now->row;
    if (sameRow) TellFigures(*current_, *now);
    const auto& block = now->selection;
    const bool several = block && block->firstRow != block->lastRow;
    if (several && (!current_ || current_->selection != block))
        Notify(EVENT_OBJECT_SELECTIONWITHIN, CHILDID_SELF);
    else if (!sameRow)
        Notify(EVENT_OBJECT_SELECTION, screen_.IdOfRow(screen_.CurrentRow()));
    if ((!sameRow || current_->column != now->column) && screen_.HasFocus()) TellFocus();
}

void GridEvents::TellFigures(const Current& before, const Current& now) {
    const int row = screen_.CurrentRow();
    const int tree = screen_.Grid().TreeColumn();
    for (const int column : ReadColumns(screen_.Grid())) {
        const auto place = static_cast<std::size_t>(column);
        if (place >= before.texts.size() || before.texts[place] == now.texts[place]) continue;
        if (column == tree)
            Notify(EVENT_OBJECT_NAMECHANGE, screen_.IdOfRow(row));
        else
            Notify(EVENT_OBJECT_VALUECHANGE, screen_.IdOfCell(row, column));
    }
}

void GridEvents::TellFocus() {
    const int row = screen_.CurrentRow();
    if (row == OutlineGrid::kNoRow) return;
    const int column = screen_.CurrentColumn();
    Notify(EVENT_OBJECT_FOCUS,
           column == screen_.Grid().TreeColumn() ? screen_.IdOfRow(row) : screen_.IdOfCell(row, column));
}

}  // namespace dlv
