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

    /// Compares the grid with what was told of it last. A reader may call back inside.
    void Tell();
    /// The grid's window has got the focus, which the system tells of; now the focus is on the current cell.
    void TellFocus() const;

private:
    struct Current {
        RowReference row;
        int column;
        std::vector<std::string> texts;
    };
    struct Known {
        unsigned rowsVersion = 0;
        std::optional<Current> current;
        std::optional<OutlineGrid::Block> selection;
    };
    struct Event {
        DWORD event;
        LONG id;
    };
    using Events = std::vector<Event>;

    Known Read() const;
    void AddRows(Events& events, const Known& before) const;
    void AddSelection(Events& events, const Known& before, const Known& now) const;
    void AddFigures(Events& events, const Current& before, const Current& now) const;
    LONG FocusedId() const;
    void Notify(Event event) const;

    GridScreen& screen_;
    Known known_;
};

}  // namespace dlv
