#include "widgets/GridFit.h"

#include <algorithm>

#include "base/Text.h"
#include "widgets/GridReading.h"
#include "widgets/GridText.h"

namespace dlv {

namespace {

constexpr int kSample = 200;

class Fitting {
public:
    Fitting(const OutlineGrid& grid, int column, const TextMeasure& measure, const FitRoom& room)
        : grid_(grid), column_(column), measure_(measure), room_(room) {}

    double Width() const { return widest_; }

    // The last header row alone: those above it stand over several columns.
    void AddHeading() {
        const int row = std::min(grid_.FixedRows(), grid_.Rows()) - 1;
        if (row < 0) return;
        for (const std::string& word : Split(grid_.CellText(row, column_), ' ')) Add(word, Bold(row), 0);
    }

    void AddRows(int begin, int end) {
        const std::vector<int>& rows = grid_.DisplayedRows();
        begin = std::max(begin, grid_.FixedRows());
        end = std::min(end, static_cast<int>(rows.size()));
        for (int index = begin; index < end; ++index) {
            const int row = rows[static_cast<std::size_t>(index)];
            const int depth = grid_.Level(row) - grid_.Level(grid_.FixedRows());
            const bool tree = column_ == grid_.TreeColumn();
            Add(ShownText(grid_, row, column_), Bold(row),
                tree ? room_.treeStart + std::max(0, depth) * room_.perLevel : 0);
        }
    }

private:
    bool Bold(int row) const { return grid_.RowBold(row) || grid_.ColumnBold(column_); }
    void Add(const std::string& text, bool bold, double before) {
        if (!text.empty()) widest_ = std::max(widest_, measure_(text, bold) + before + room_.padding);
    }

    const OutlineGrid& grid_;
    int column_;
    const TextMeasure& measure_;
    const FitRoom& room_;
    double widest_ = 0;
};

}  // namespace

double FittingWidth(const OutlineGrid& grid, int column, int top, const TextMeasure& measure,
                    const FitRoom& room) {
    Fitting fitting(grid, column, measure, room);
    fitting.AddHeading();
    const int first = grid.FixedRows();
    const int end = static_cast<int>(grid.DisplayedRows().size());
    fitting.AddRows(first, first + kSample);
    fitting.AddRows(std::max(top, first + kSample), top + kSample);
    fitting.AddRows(std::max({end - kSample, top + kSample, first + kSample}), end);
    return fitting.Width();
}

void FitColumns(OutlineGrid& grid, int top, const TextMeasure& measure, const FitRoom& room) {
    for (const int column : ReadColumns(grid))
        if (const double width = FittingWidth(grid, column, top, measure, room); width > 0)
            grid.SetColumnWidth(column, width);
}

}  // namespace dlv
