// Tells readers of the screen what changed in a grid, once for each change and only when a change has reached
// the screen: where the focus and the selection went, which node was opened or closed, that rows are others,
// and which figures of the current row are.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "windows/access/GridScreen.h"

namespace dlv {

class GridEvents {
public:
    explicit GridEvents(GridScreen& screen) : screen_(screen) {}

    /// Compares the grid with what was told of it last.
    void Tell();
    /// The grid's window has got the focus, which the system tells of; now the focus is on the current cell.
    void TellFocus();

private:
    struct Current {
        RowReference row;
        int column;
        std::optional<OutlineGrid::Block> selection;
        std::vector<std::string> texts;
    };
    std::optional<Current> ReadCurrent() const;
    void TellToggled(const std::vector<int>& rows);
    void TellCurrent(const std::optional<Current>& now);
    void TellFigures(const Current& before, const Current& now);
    void Notify(DWORD event, LONG id) const;

    GridScreen& screen_;
    unsigned rowsVersion_ = 0;
    std::optional<Current> current_;
};

}  // namespace dlv
