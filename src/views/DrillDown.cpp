#include "views/DrillDown.h"

#include <array>

#include "base/Text.h"
#include "views/UnitList.h"

namespace dlv {

namespace {

constexpr int kLeftButton = 1;
constexpr int kFirstDataRow = 2;
constexpr int kStatuses = 7;
constexpr std::array<const char*, kStatuses> kStatusTexts = {
    "WOOpen", "WOWarning", "WOJeopardy", "WOLate", "WOCompleted", "WOCanceled", "WONotDone"};
constexpr const char* kWorkOrders = "WORKORDER";
constexpr const char* kTechnicians = "USER";

std::string StatusText(int status) { return kStatusTexts[static_cast<std::size_t>(status)]; }

/// A click below the rows counts for the first row.
bool MeansFirstRow(const OutlineGrid& grid, int mouseRow) {
    return mouseRow == grid.Rows() - 1 && grid.CurrentRow() == kFirstDataRow;
}

}  // namespace

DLVParams DrillDown::Request(const char* info) const {
    DLVParams params;
    params.Info = info;
    params.JeopardyThreshold = controller_.JeopardyThreshold;
    return params;
}

std::optional<DLVParams> DrillDown::ForCell(int index, int mouseRow, int mouseColumn,
                                            const Dictionary& summed) const {
    const OutlineGrid& grid = form_.vsFlex[index];
    if (lastButton_ != kLeftButton) return std::nullopt;
    if (grid.Rows() < 3 || grid.CurrentColumn() != mouseColumn) return std::nullopt;
    return index == 0 ? ForSummaryCell(mouseRow, summed) : ForHierarchyCell(grid, mouseRow);
}

std::optional<DLVParams> DrillDown::ForSummaryCell(int mouseRow, const Dictionary& summed) const {
    const OutlineGrid& grid = form_.vsFlex[0];
    const int column = grid.CurrentColumn();
    if (column < 2) return std::nullopt;
    if (grid.CurrentRow() != mouseRow && !MeansFirstRow(grid, mouseRow)) return std::nullopt;
    DLVParams params = Request(kWorkOrders);
    params.BUID = JoinListedUnits(form_, summed);
    if (const std::string& data = grid.RowData(grid.CurrentRow()); !data.empty()) {
        const std::vector<std::string> pieces = Split(data, '|');
        params.JobType = pieces[0];
        if (pieces.size() == 2) params.JobClass = pieces[1];
    }
    if (column >= 3 && column < 3 + 2 * kStatuses) params.JobStatus = StatusText((column - 3) % kStatuses);
    return params;
}

std::optional<DLVParams> DrillDown::ForHierarchyCell(const OutlineGrid& grid, int mouseRow) const {
    const int row = grid.CurrentRow();
    const int column = grid.CurrentColumn();
    if (row < kFirstDataRow) return std::nullopt;
    if (row == mouseRow) {
        if (grid.IsEmpty(row, 1)) return std::nullopt;
    } else if (!MeansFirstRow(grid, mouseRow)) {
        return std::nullopt;
    }
    const bool technicians = column == 1;
    if (!technicians && (column < 4 || column > 10)) return std::nullopt;
    DLVParams params = Request(technicians ? kTechnicians : kWorkOrders);
    params.BUID = JoinListedUnits(form_, controller_.GetBUIDList(grid.RowData(row)));
    if (!technicians) params.JobStatus = StatusText(column - 4);
    return params;
}

DLVParams DrillDown::ForTechnicians(const Dictionary& summed) const {
    DLVParams params = Request(kTechnicians);
    params.BUID = JoinListedUnits(form_, summed);
    return params;
}

}  // namespace dlv
