// How wide a column must be for what it shows, measured on a bounded sample of its rows.
#pragma once

#include <functional>
#include <string>

#include "widgets/OutlineGrid.h"

namespace dlv {

/// The width of a text in twips.
using TextMeasure = std::function<double(const std::string& text, bool bold)>;

/// Twips that a cell needs besides its text, and for each level of the outline before the text of the tree
/// column.
struct FitRoom {
    double padding = Pixels(9);
    double treeStart = Pixels(18);
    double perLevel = Pixels(15);
};

/// The width in twips at which the column shows all of its heading's words and the texts of the sample: the
/// rows from the place `top` among the displayed ones on, the first and the last rows, at most 600 in all. 0
/// for a column that has nothing to show.
double FittingWidth(const OutlineGrid& grid, int column, int top, const TextMeasure& measure,
                    const FitRoom& room = {});

/// Makes all columns from the tree column on that wide, but leaves hidden ones hidden.
void FitColumns(OutlineGrid& grid, int top, const TextMeasure& measure, const FitRoom& room = {});

}  // namespace dlv
