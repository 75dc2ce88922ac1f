// The window of a grid as its accessible objects and events see it.
#pragma once

#include "windows/access/AccessibleGrid.h"
#include "windows/access/GridEvents.h"

namespace dlv {

class GridWindow;

class GridAccess final : public GridScreen {
public:
    explicit GridAccess(GridWindow& window) : window_(window), events_(*this) {}

    HWND Surface() const override;
    OutlineGrid& Grid() const override;
    GridLayout Layout() const override;
    GridSight Sight() const override;
    std::string Name() const override;
    std::string Reason(int row, int column) const override;
    std::string Caption(CaptionKey key) const override;

    GridEvents& Events() { return events_; }
    /// Does what a reader of the screen asked for: what a double-click on the cell does.
    void RunAsked();

private:
    GridWindow& window_;
    GridEvents events_;
};

}  // namespace dlv
