// Draws an outline grid: frozen header rows with merged captions, the outline's bars and node boxes, rows and
// the current cell. Only what is in sight and inside the clip is read and drawn.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "windows/gdi/Canvas.h"
#include "windows/gdi/GridLayout.h"

namespace dlv {

enum class GridFocus { None, Held, HeldWithCue };

class GridPainter {
public:
    GridPainter(const Canvas& canvas, const OutlineGrid& grid, const GridLayout& layout, GridFocus focus)
        : canvas_(canvas), grid_(grid), layout_(layout), focus_(focus) {}

    /// Covers all of `clip` that lies inside the grid's scroll bars.
    void Paint(const RECT& clip) const;

private:
    /// One caption, which may stand over several columns.
    struct HeaderCell {
        int column;
        RECT area;
        RECT textArea;
        std::wstring text;
        Weight weight;
    };

    void PaintHeader(const RECT& clip) const;
    std::vector<HeaderCell> HeaderCells(int row) const;
    void PaintHeaderCell(int row, const HeaderCell& cell, int leastStep) const;
    void PaintBody(const RECT& clip) const;
    void PaintRow(int index, const RECT& clip) const;
    void PaintCell(int index, int row, int column) const;
    void PaintTree(int index, int row, const RECT& cell) const;
    void PaintNodeBox(const RECT& box, bool collapsed) const;

    const Canvas& canvas_;
    const OutlineGrid& grid_;
    const GridLayout& layout_;
    GridFocus focus_;
};

/// A number that changes when what the displayed row at `index` shows changes, whatever its place.
std::size_t RowFingerprint(const OutlineGrid& grid, int index);
std::size_t HeaderFingerprint(const OutlineGrid& grid);

}  // namespace dlv
