#include "views/FigureReasons.h"

#include <algorithm>

#include "base/Number.h"
#include "base/Text.h"
#include "views/HierarchyView.h"
#include "views/SummaryView.h"

namespace dlv {

namespace {

constexpr int kFirstDataRow = 2;
constexpr int kFirstSummaryFigure = 3;
constexpr int kFirstHierarchyFigure = 1;
constexpr int kHoursColumn = 3;
constexpr int kCompletedColumn = 8;
constexpr int kRateColumn = 11;
/// Rows looked at for the names of units: units without data may stand between those that have some.
constexpr int kRowsForNames = 64;

}  // namespace

std::string FigureReasons::For(int index, int row, int column) const {
    const OutlineGrid& grid = form_.vsFlex[index];
    if (row < kFirstDataRow || row >= grid.Rows() || column >= grid.Columns()) return {};
    return index == 0 ? ForSummary(row, column) : ForHierarchy(index, row, column);
}

std::string FigureReasons::ForSummary(int row, int column) const {
    const OutlineGrid& grid = form_.vsFlex[0];
    if (column < kFirstSummaryFigure || !summary_.GridFilled()) return {};
    if (summary_.SummedCount() == 0) return captions_.Caption("why-NoUnits");
    const std::string sum = Sum(summary_.SummedCount(), summary_.FirstSummed());
    return grid.Whole(row, column) == 0 ? captions_.Caption("why-None") + ' ' + sum : sum;
}

std::string FigureReasons::ForHierarchy(int index, int row, int column) const {
    const OutlineGrid& grid = form_.vsFlex[index];
    if (column < kFirstHierarchyFigure) return {};
    if (!hierarchy_.Chosen(row)) return captions_.Caption("why-NotChosen");
    if (hierarchy_.SummedUnits(row) == 0) return captions_.Caption("why-NoData");
    std::string reason;
    if (column == kRateColumn)
        reason = Rate(grid, row) + ' ';
    else if (grid.Whole(row, column) == 0)
        reason = captions_.Caption("why-None") + ' ';
    return reason + Sum(static_cast<std::size_t>(hierarchy_.SummedUnits(row)), FirstUnitsBelow(row));
}

std::string FigureReasons::Rate(const OutlineGrid& grid, int row) const {
    if (grid.Whole(row, kHoursColumn) == 0) return captions_.Caption("why-NoHours");
    return WithValues(captions_.Caption("why-Rate"),
                      {captions_.Caption("Completed"), grid.CellText(row, kCompletedColumn),
                       captions_.Caption("HoursCompleted"), grid.CellText(row, kHoursColumn)});
}

std::string FigureReasons::Sum(std::size_t count, const std::vector<std::string>& firstIds) const {
    std::string names;
    for (const std::string& id : firstIds) {
        const std::string_view description = controller_.BUDescriptions().Item(id);
        if (!names.empty()) names += ", ";
        names += description.empty() ? id : std::string(description);
    }
    if (count == 1) return WithValues(captions_.Caption("why-SumOne"), {names});
    if (count > firstIds.size()) {
        const std::string more = WholeText(static_cast<std::int64_t>(count - firstIds.size()));
        names += ' ' + WithValues(captions_.Caption("why-More"), {more});
    }
    return WithValues(captions_.Caption("why-Sum"), {WholeText(static_cast<std::int64_t>(count)), names});
}

// Below a unit's row stand the units below it, whichever grid of the two.
std::vector<std::string> FigureReasons::FirstUnitsBelow(int row) const {
    const OutlineGrid& grid = form_.vsFlex[1];
    const auto model = controller_.BUs();
    std::vector<std::string> ids;
    const int end = std::min(grid.Rows(), row + kRowsForNames);
    for (int below = row; below < end && ids.size() < kNamedUnits; ++below) {
        if (below > row && grid.Level(below) <= grid.Level(row)) break;
        if (model && model->Item(grid.RowData(below)) != nullptr) ids.push_back(grid.RowData(below));
    }
    return ids;
}

}  // namespace dlv
