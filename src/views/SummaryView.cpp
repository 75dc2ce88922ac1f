#include "views/SummaryView.h"

#include <algorithm>
#include <array>

#include "base/Number.h"
#include "views/FigureReasons.h"
#include "views/FitGridHeight.h"
#include "views/SummaryRows.h"

namespace dlv {

namespace {

constexpr int kColumns = 17;
constexpr int kTypeColumn = 1;
constexpr int kClassColumn = 2;
constexpr int kFirstCounter = 3;
constexpr int kFirstPoints = kFirstCounter + kStatusCount;
constexpr int kTotalRow = 2;
constexpr int kFirstClassTotal = 3;
constexpr int kEmptyRows = 12;

constexpr Colour kNameHeader = 0xD9FCFD;
constexpr Colour kWorkOrderHeader = 0xFAFDC6;
constexpr Colour kPointsHeader = 0xEAE6FC;
constexpr Colour kGroupColour = 0xE0E0E0;

constexpr std::array<CaptionKey, kStatusCount> kStatusKeys = {"Open",      "Warning",  "Jeopardy", "Late",
                                                              "Completed", "Canceled", "NotDone"};

}  // namespace

void SummaryView::InitSingleBUGrid() {
    trap_.Run("DLViewer.InitSingleBUGrid", [&] {
        OutlineGrid& grid = Grid();
        grid.Clear();
        grid.SetColumns(kColumns);
        grid.SetColumnWidth(0, Pixels(15));
        grid.SetColumnWidth(kTypeColumn, 0);
        grid.SetColumnWidth(kClassColumn, Pixels(111));
        for (int column = kFirstCounter; column < kColumns; ++column) grid.SetColumnWidth(column, Pixels(52));
        grid.SetTreeColumn(kClassColumn);
        grid.SetRows(kEmptyRows);
        grid.SetFixedRows(2);
        grid.SetHeaderRowHeight(1, 2);
        for (int row = 0; row < 2; ++row) {
            grid.SetHeaderColour(row, 0, kColumns - 1, kNameHeader);
            grid.SetHeaderColour(row, kFirstCounter, kFirstPoints - 1, kWorkOrderHeader);
            grid.SetHeaderColour(row, kFirstPoints, kColumns - 1, kPointsHeader);
        }
        grid.SetRowBold(0, true);
        for (int status = 0; status < kStatusCount; ++status) {
            grid.SetText(0, kFirstCounter + status, captions_.Caption("WorkOrders"));
            grid.SetText(0, kFirstPoints + status, captions_.Caption("Points"));
        }
        grid.SetText(1, kClassColumn, captions_.Caption("JobTypesAndJobClasses"));
        for (int status = 0; status < kStatusCount; ++status) {
            const std::string caption = captions_.Caption(kStatusKeys[static_cast<std::size_t>(status)]);
            grid.SetText(1, kFirstCounter + status, caption);
            grid.SetText(1, kFirstPoints + status, caption);
        }
    });
}

void SummaryView::ShowBUs(const BusinessUnits& model) {
    OutlineGrid& grid = Grid();
    TakeSelection();
    const OutlineGrid::View view = grid.SaveView();
    const Dictionary groups = gridFilled_ ? collapsed_.SaveCollapsedList(0) : Dictionary();
    grid.SetRedraw(false);
    ResetSummary();
    const std::vector<const BusinessUnit*> units = Units(model);
    UnitFigures sum;
    for (const BusinessUnit* unit : units) sum += *unit;
    SumPanel(sum);
    AddClassRows(model, units);
    if (grid.Rows() == 2) {
        ShowEmptyTotal();
    } else {
        GroupByJobType();
        AddTotals(sum);
        AddClassTotals(model, units);
        grid.SortRows(kFirstClassTotal, GetMaxClassCnt(units) + 2, std::array{kClassColumn, kFirstCounter});
        grid.SetCurrentCell(0, 0);
        CleanUp();
    }
    FitGridHeight(grid, form_.fraBU[0].Height());
    grid.SetColumnBold(kTypeColumn, true);
    if (form_.Tabs.SelectedTab() == 1) grid.SetVisible(true);
    if (gridFilled_)
        collapsed_.RestoreCollapsedList(0, groups);
    else
        collapsed_.RestoreNodes("JobTypes", 0);
    grid.RestoreView(view);
    grid.SetRedraw(true);
}

void SummaryView::TakeSelection() {
    lastMode_ = form_.optBU.Selected();
    if (form_.lvBU.Items().empty()) return;
    selection_ = controller_.GetBUList();
    summed_ = lastMode_ == 0 ? controller_.GetBUList() : controller_.GetAggregateBUList();
}

std::vector<const BusinessUnit*> SummaryView::Units(const BusinessUnits& model) {
    std::vector<const BusinessUnit*> units;
    firstSummed_.clear();
    for (const auto& entry : summed_) {
        const BusinessUnit* unit = model.Item(entry.key);
        if (unit == nullptr) continue;
        units.push_back(unit);
        if (firstSummed_.size() < kNamedUnits) firstSummed_.push_back(entry.key);
    }
    summedCount_ = units.size();
    return units;
}

void SummaryView::ResetSummary() {
    for (FigureLabel* label : {&form_.lblTechCount, &form_.lblHrsWorked, &form_.lblHrsRemaining,
                               &form_.lblWODone, &form_.lblWOOpen, &form_.lblPtsDone, &form_.lblPtsOpen})
        label->figure.SetCaption("0");
    for (Label* label :
         {&form_.lblWOsPerHrToday, &form_.lblWOsPerHrReq, &form_.lblPtsPerHrToday, &form_.lblPtsPerHrReq})
        label->SetCaption("0");
    Grid().SetRows(2);
}

void SummaryView::SumPanel(const UnitFigures& sum) {
    if (sum.units == 0) return;
    const auto count = [&](int counter) { return sum.counters[static_cast<std::size_t>(counter)]; };
    const auto rate = [&](int counter, std::int64_t hours) {
        return SingleText(Rate(static_cast<double>(count(counter)), static_cast<double>(hours)));
    };
    form_.lblTechCount.figure.SetCaption(WholeText(sum.techCount));
    form_.lblHrsWorked.figure.SetCaption(WholeText(sum.hoursWorked));
    form_.lblHrsRemaining.figure.SetCaption(WholeText(sum.hoursRemaining));
    form_.lblWODone.figure.SetCaption(WholeText(count(kWOCompleted)));
    form_.lblWOOpen.figure.SetCaption(WholeText(count(kWOOpen)));
    form_.lblPtsDone.figure.SetCaption(WholeText(count(kPtsCompleted)));
    form_.lblPtsOpen.figure.SetCaption(WholeText(count(kPtsOpen)));
    form_.lblWOsPerHrToday.SetCaption(rate(kWOCompleted, sum.hoursWorked));
    form_.lblPtsPerHrToday.SetCaption(rate(kPtsCompleted, sum.hoursWorked));
    form_.lblWOsPerHrReq.SetCaption(rate(kWOOpen, sum.hoursRemaining));
    form_.lblPtsPerHrReq.SetCaption(rate(kPtsOpen, sum.hoursRemaining));
}

void SummaryView::WriteRow(int row, const SummaryRow& summary, const std::string& typeText,
                           const std::string& classText) {
    OutlineGrid& grid = Grid();
    grid.SetRowData(row, summary.key);
    grid.SetText(row, kTypeColumn, typeText);
    grid.SetText(row, kClassColumn, classText);
    for (int s = 0; s < kCounterCount; ++s)
        grid.SetWhole(row, kFirstCounter + s, summary.counters[static_cast<std::size_t>(s)]);
}

void SummaryView::AddClassRows(const BusinessUnits& model, std::span<const BusinessUnit* const> units) {
    SummaryRows rows;
    for (const BusinessUnit* unit : units) rows.AddClasses(model, *unit);
    OutlineGrid& grid = Grid();
    int row = grid.Rows();
    grid.SetRows(row + static_cast<int>(rows.All().size()));
    for (const SummaryRow& summary : rows.All())
        WriteRow(row++, summary, controller_.JobTypeDescription(model.JobTypeText(summary.type)),
                 controller_.JobClassDescription(model.JobClassText(summary.jobClass)));
}

void SummaryView::ShowEmptyTotal() {
    OutlineGrid& grid = Grid();
    grid.SetRows(kTotalRow + 1);
    grid.SetText(kTotalRow, kClassColumn, captions_.Caption("Total"));
    for (int column = kFirstCounter; column < kColumns; ++column) grid.SetWhole(kTotalRow, column, 0);
    grid.SetRowBold(kTotalRow, true);
    grid.SetRowBackColour(kTotalRow, kGroupColour, kClassColumn);
}

void SummaryView::GroupByJobType() {
    OutlineGrid& grid = Grid();
    grid.InsertRows(kTotalRow, 1);
    grid.SortRows(kTotalRow, grid.Rows() - 1, std::array{kTypeColumn, kClassColumn});
    grid.GroupRows(kTypeColumn, kFirstCounter);
    for (int row = kTotalRow; row < grid.Rows(); ++row) {
        if (!grid.IsNode(row)) continue;
        grid.SetRowBold(row, true);
        grid.SetRowBackColour(row, kGroupColour);
    }
}

void SummaryView::AddTotals(const UnitFigures& sum) {
    OutlineGrid& grid = Grid();
    grid.SetText(kTotalRow, kTypeColumn, captions_.Caption("Total"));
    for (int s = 0; s < kCounterCount; ++s) {
        const int column = kFirstCounter + s;
        grid.SetWhole(kTotalRow, column,
                      grid.Whole(kTotalRow, column) + sum.counters[static_cast<std::size_t>(s)]);
    }
}

void SummaryView::AddClassTotals(const BusinessUnits& model, std::span<const BusinessUnit* const> units) {
    SummaryRows totals;
    for (const BusinessUnit* unit : units) totals.AddTotals(model, *unit);
    OutlineGrid& grid = Grid();
    // A class that already has a row of that key, from an empty job-type code, is added to that row.
    std::vector<const SummaryRow*> added;
    for (const SummaryRow& total : totals.All()) {
        const int row = grid.FindRow(total.key);
        if (row == OutlineGrid::kNoRow) {
            added.push_back(&total);
            continue;
        }
        for (int s = 0; s < kCounterCount; ++s) {
            const int column = kFirstCounter + s;
            grid.SetWhole(row, column, grid.Whole(row, column) + total.counters[static_cast<std::size_t>(s)]);
        }
    }
    grid.InsertRows(kFirstClassTotal, static_cast<int>(added.size()));
    // Each newly met class goes above those met before.
    int row = kFirstClassTotal + static_cast<int>(added.size());
    for (const SummaryRow* total : added) {
        WriteRow(--row, *total, captions_.Caption("Total"),
                 controller_.JobClassDescription(model.JobClassText(total->jobClass)));
        grid.SetLevel(row, 2);
    }
}

int SummaryView::GetMaxClassCnt(std::span<const BusinessUnit* const> units) const {
    std::uint32_t most = 0;
    for (const BusinessUnit* unit : units) most = std::max(most, unit->totalCount);
    return static_cast<int>(most);
}

void SummaryView::CleanUp() {
    OutlineGrid& grid = Grid();
    std::vector<bool> empty(static_cast<std::size_t>(grid.Rows()));
    for (int row = kTotalRow; row < grid.Rows(); ++row)
        empty[static_cast<std::size_t>(row)] = grid.IsEmpty(row, kFirstCounter);
    grid.RemoveRows(empty);
    for (int row = grid.Rows() - 2; row > kTotalRow; --row) {
        if (!grid.IsNode(row)) continue;
        const std::string& below = grid.RowData(row + 1);
        if (const std::size_t bar = below.find('|'); bar != std::string::npos)
            grid.SetRowData(row, below.substr(0, bar));
    }
}

}  // namespace dlv
