#include "views/FitGridHeight.h"

#include "base/Number.h"

namespace dlv {

void FitGridHeight(OutlineGrid& grid, double available) {
    const double wanted = (grid.Rows() + 2.25) * grid.RowHeight(0);
    if (grid.Rows() == 2) {
        grid.SetHeight(wanted);
        return;
    }
    const double height = RoundHalfEven(wanted);
    const double room = available - Pixels(3);
    grid.SetHeight(grid.Top() + height <= room ? height : room - grid.Top());
}

}  // namespace dlv
