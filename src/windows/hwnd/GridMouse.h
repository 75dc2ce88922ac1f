// What the mouse does in a grid's window: it chooses cells and blocks of cells, opens and closes nodes, moves
// the edges of columns, and rests on a cell that has something more to say.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>

#include "windows/gdi/GridLayout.h"
#include "windows/hwnd/CellTip.h"

namespace dlv {

class GridWindow;

class GridMouse {
public:
    GridMouse(GridWindow& window, OutlineGrid& grid);

    /// The answer to a message of the mouse's; nothing for any other.
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

    bool Dragging() const { return drag_ != Drag::None; }
    /// Ends a drag; an edge goes back to where it was, what was selected stays.
    void CancelDrag();
    void HideTip() { tip_.Hide(); }
    /// No tip shows before the mouse moves again.
    void EndHover();
    /// To be called before the grid's window is destroyed.
    void EndTip() { tip_.Destroy(); }

private:
    enum class Drag { None, Cells, Edge };

    void OnPressed(UINT message, POINT point, WPARAM keys);
    void ChooseCell(const GridLayout::Hit& hit, UINT message, WPARAM keys);
    bool OnEdge(const GridLayout& layout, UINT message, POINT point);
    void OnMoved(POINT point);
    void OnDragged(POINT point);
    void OnReleased();
    void OnRest();
    bool OnCursor();
    void Hover(const GridLayout& layout, POINT point);
    void Begin(Drag drag);

    GridWindow& window_;
    OutlineGrid& grid_;
    CellTip tip_;
    Drag drag_ = Drag::None;
    int edgeColumn_ = 0;
    int edgeStart_ = 0;
    double edgeWidth_ = 0;
    std::optional<GridLayout::Hit> hovered_;
};

}  // namespace dlv
