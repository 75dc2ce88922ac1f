#include "player/Transcript.h"

namespace dlv::player {

namespace {

constexpr Colour kGroupGrey = 0xE0E0E0;
constexpr Colour kNotChosenGrey = 0xD0D0D0;

}  // namespace

Json GridTranscript(const OutlineGrid& grid, int index) {
    Json rows = Json::array();
    const Colour grey = index == 0 ? kGroupGrey : kNotChosenGrey;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        Json cells = Json::array();
        for (int column = 0; column < grid.Columns(); ++column) cells.push_back(grid.CellText(row, column));
        Json entry = {{"data", grid.RowData(row)},
                      {"cells", std::move(cells)},
                      {"grey", grid.RowBackColour(row) == grey}};
        if (index == 0)
            entry["bold"] = grid.RowBold(row);
        else
            entry["level"] = grid.Level(row);
        if (grid.IsNode(row)) entry["collapsed"] = grid.IsCollapsed(row);
        rows.push_back(std::move(entry));
    }
    return rows;
}

}  // namespace dlv::player
