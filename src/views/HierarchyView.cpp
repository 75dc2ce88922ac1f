#include "views/HierarchyView.h"

#include <array>

#include "base/Number.h"
#include "views/FitGridHeight.h"

namespace dlv {

namespace {

constexpr int kColumns = 12;
constexpr int kFirstRow = 2;
constexpr int kFirstStatus = 4;
constexpr int kLastColumn = kColumns - 1;

constexpr Colour kNameHeader = 0xD9FCFD;
constexpr Colour kStatusHeader = 0xFAFDC6;
constexpr Colour kRateHeader = 0xE4FEE3;
constexpr Colour kNotChosenColour = 0xD0D0D0;

constexpr std::array<CaptionKey, kLastColumn> kCaptionKeys = {
    "BusinessUnits", "TechCount", "HoursRemaining", "HoursCompleted", "Open",   "Warning",
    "Jeopardy",      "Late",      "Completed",      "Canceled",       "NotDone"};

/// The counters that a grid shows start there: work orders in grid 1, points in grid 2.
constexpr std::size_t FirstCounter(int index) { return index == 1 ? 0 : kStatusCount; }

}  // namespace

/// What the tree is built from: the root's node comes first.
struct HierarchyView::Unit {
    std::string_view id;
    std::string description;
};

void HierarchyView::InitBUHierarchyGrid(int index) {
    trap_.Run("DLViewer.InitBUHierarchyGrid", [&] {
        OutlineGrid& grid = form_.vsFlex[index];
        grid.Clear();
        grid.SetColumns(kColumns);
        grid.SetRows(2);
        grid.SetFixedRows(2);
        grid.SetHeaderRowHeight(1, 2);
        for (int column = 1; column < kColumns; ++column) grid.SetColumnWidth(column, Pixels(63));
        grid.SetColumnWidth(0, Pixels(150));
        for (int row = 0; row < 2; ++row) {
            grid.SetHeaderColour(row, 0, kFirstStatus - 1, kNameHeader);
            grid.SetHeaderColour(row, kFirstStatus, kLastColumn - 1, kStatusHeader);
            grid.SetHeaderColour(row, kLastColumn, kLastColumn, kRateHeader);
        }
        grid.SetRowBold(0, true);
        grid.SetText(0, kLastColumn, captions_.Caption("Productivity"));
        for (int column = 0; column < kLastColumn; ++column)
            grid.SetText(1, column, captions_.Caption(kCaptionKeys[static_cast<std::size_t>(column)]));
        const std::string measure = captions_.Caption(index == 1 ? CaptionKey("WorkOrders") : "Points");
        for (int column = kFirstStatus; column < kLastColumn; ++column) grid.SetText(0, column, measure);
        grid.SetText(1, kLastColumn, captions_.Caption(index == 1 ? CaptionKey("WOsPerHour") : "PtsPerHour"));
    });
}

void HierarchyView::Fill(const BusinessUnits& model, const Dictionary& chosen) {
    std::array<Dictionary, 3> collapsed;
    std::array<OutlineGrid::View, 3> views;
    for (const int index : {1, 2}) {
        if (filled_) collapsed[static_cast<std::size_t>(index)] = collapsed_.SaveCollapsedList(index);
        views[static_cast<std::size_t>(index)] = form_.vsFlex[index].SaveView();
    }
    for (const int index : {1, 2}) {
        form_.vsFlex[index].SetRedraw(false);
        form_.vsFlex[index].SetRows(kFirstRow);
    }
    // Both grids show the same tree.
    const std::vector<Unit> units = Units();
    const auto places = BuildTree(units, model);
    for (const int index : {1, 2}) {
        ShowTree(form_.vsFlex[index], places, units);
        FitGridHeight(form_.vsFlex[index], form_.fraBU[0].Height());
    }
    FillFigures(model, chosen);
    if (filled_) {
        for (const int index : {1, 2})
            collapsed_.RestoreCollapsedList(index, collapsed[static_cast<std::size_t>(index)]);
    } else {
        collapsed_.RestoreNodes("BUWorkOrders", 1);
        collapsed_.RestoreNodes("BUPoints", 2);
    }
    for (const int index : {1, 2}) {
        form_.vsFlex[index].RestoreView(views[static_cast<std::size_t>(index)]);
        form_.vsFlex[index].SetRedraw(true);
    }
    filled_ = true;
}

std::vector<HierarchyView::Unit> HierarchyView::Units() const {
    const Dictionary& descriptions = controller_.BUDescriptions();
    std::vector<Unit> units;
    units.reserve(descriptions.Count() + 1);
    const Dictionary::Entry* root = descriptions.Find("#");
    units.push_back({"#", root ? root->item : captions_.Caption("BusinessUnits")});
    for (const auto& entry : descriptions)
        if (entry.key != "#") units.push_back({entry.key, entry.item});
    return units;
}

std::vector<OutlineTree::Place> HierarchyView::BuildTree(const std::vector<Unit>& units,
                                                         const BusinessUnits& model) const {
    OutlineTree tree(units.size());
    TextTable nodes;
    for (OutlineTree::Node node = 0; node < units.size(); ++node) {
        if (node != OutlineTree::kRoot) tree.AddChild(OutlineTree::kRoot);
        // A unit without an id has no row data: nothing finds it.
        if (!units[node].id.empty()) nodes.Insert(units[node].id, node);
    }
    for (const auto& entry : controller_.ParentBUIDs()) {
        const std::uint32_t parent = nodes.Find(entry.item);
        const std::uint32_t node = nodes.Find(entry.key);
        if (parent != TextTable::kNone && node != TextTable::kNone && node != OutlineTree::kRoot)
            tree.MoveTopNode(node, parent);
    }
    // Upwards, so that a parent whose children all went is looked at after them.
    const auto places = tree.InOutlineOrder();
    for (std::size_t i = places.size(); i-- > 1;) {
        const OutlineTree::Node node = places[i].node;
        if (!tree.HasChildren(node) && !model.Item(units[node].id)) tree.RemoveLeaf(node);
    }
    tree.SortChildren([&](OutlineTree::Node left, OutlineTree::Node right) {
        return units[left].description < units[right].description;
    });
    return tree.InOutlineOrder();
}

void HierarchyView::ShowTree(OutlineGrid& grid, const std::vector<OutlineTree::Place>& places,
                             const std::vector<Unit>& units) const {
    const int rows = kFirstRow + static_cast<int>(places.size());
    grid.Reserve(rows);
    grid.SetRows(rows);
    int row = kFirstRow;
    for (const auto& place : places) {
        grid.SetText(row, 0, units[place.node].description);
        grid.SetRowData(row, units[place.node].id);
        grid.MakeNode(row, place.level);
        ++row;
    }
    grid.SetColumnBold(0, true);
}

void HierarchyView::FillFigures(const BusinessUnits& model, const Dictionary& chosen) {
    const std::vector<UnitFigures> sums = controller_.SumUnits(model, chosen);
    unitsOfRows_.assign(static_cast<std::size_t>(form_.vsFlex[1].Rows()), kNotChosen);
    for (int row = kFirstRow; row < form_.vsFlex[1].Rows(); ++row)
        for (const int index : {1, 2}) form_.vsFlex[index].SetRowBackColour(row, kNotChosenColour);
    for (std::size_t i = 0; i < sums.size(); ++i) {
        const int row = form_.vsFlex[1].FindRow(chosen.At(i).key);
        if (row == OutlineGrid::kNoRow) continue;
        unitsOfRows_[static_cast<std::size_t>(row)] = sums[i].units;
        if (sums[i].units > 0) FillRow(row, sums[i]);
    }
    lastChosen_ = JoinKeys(chosen, '|');
}

void HierarchyView::FillRow(int row, const UnitFigures& figures) {
    for (const int index : {1, 2}) {
        OutlineGrid& grid = form_.vsFlex[index];
        const std::size_t first = FirstCounter(index);
        grid.SetWhole(row, 1, figures.techCount);
        grid.SetWhole(row, 2, figures.hoursRemaining);
        grid.SetWhole(row, 3, figures.hoursWorked);
        for (std::size_t s = 0; s < kStatusCount; ++s)
            grid.SetWhole(row, kFirstStatus + static_cast<int>(s), figures.counters[first + s]);
        const auto completed = static_cast<double>(figures.counters[first + kWOCompleted]);
        grid.SetSingle(row, kLastColumn, Rate(completed, static_cast<double>(figures.hoursWorked)));
        grid.SetRowBackColour(row, std::nullopt);
    }
}

void HierarchyView::UpdateFigures(const BusinessUnits& model, const Dictionary& chosen) {
    if (JoinKeys(chosen, '|') == lastChosen_) return;
    for (const int index : {1, 2}) {
        OutlineGrid& grid = form_.vsFlex[index];
        for (int row = kFirstRow; row < grid.Rows(); ++row)
            for (int column = 1; column < kColumns; ++column) grid.ClearCell(row, column);
    }
    FillFigures(model, chosen);
}

}  // namespace dlv
