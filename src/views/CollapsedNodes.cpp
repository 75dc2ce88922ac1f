#include "views/CollapsedNodes.h"

#include "base/Text.h"

namespace dlv {

namespace {

constexpr int kFirstDataRow = 2;
constexpr std::size_t kProfileRows = 3;

/// In the summary the grand total has a key of its own, once there is anything below it.
bool HasTotalNode(int index, const OutlineGrid& grid) { return index == 0 && grid.Rows() >= 4; }

}  // namespace

Dictionary CollapsedNodes::SaveCollapsedList(int index) {
    Dictionary list;
    trap_.Run("DLViewer.SaveCollapsedList", [&] {
        const OutlineGrid& grid = form_.vsFlex[index];
        if (HasTotalNode(index, grid) && grid.IsCollapsed(kFirstDataRow)) list.Add("TOTAL");
        for (int row = index == 0 ? kFirstDataRow + 1 : kFirstDataRow; row < grid.Rows(); ++row)
            if (grid.IsCollapsed(row)) list.AddNew(grid.RowData(row));
    });
    return list;
}

void CollapsedNodes::RestoreCollapsedList(int index, const Dictionary& list) {
    trap_.Run("DLViewer.RestoreCollapsedList", [&] {
        OutlineGrid& grid = form_.vsFlex[index];
        if (HasTotalNode(index, grid) && list.Exists("TOTAL")) grid.SetCollapsed(kFirstDataRow, true);
        for (const auto& entry : list) {
            const int row = grid.FindRow(entry.key);
            if (row != OutlineGrid::kNoRow) grid.SetCollapsed(row, true);
        }
    });
}

void CollapsedNodes::ExpandNodes(int index) {
    trap_.Run("DLViewer.ExpandNodes", [&] {
        OutlineGrid& grid = form_.vsFlex[index];
        if (grid.Rows() > (index == 0 ? 3 : 2)) grid.ExpandAll();
    });
}

void CollapsedNodes::SaveNodesToProfile(QZWebSection& nodes, const std::string& id, int index) {
    trap_.Run("DLViewer.SaveNodesToProfile", [&] {
        const auto row = nodes.Row(static_cast<std::size_t>(index) + 1);
        row->SetField("ID", id);
        row->SetField("List", JoinKeys(SaveCollapsedList(index), '|'));
    });
}

void CollapsedNodes::RestoreNodes(const std::string& id, int index) {
    trap_.Run("DLViewer.RestoreNodes", [&] {
        OutlineGrid& grid = form_.vsFlex[index];
        grid.SetRedraw(false);
        ExpandNodes(index);
        grid.SetRedraw(true);
        if (!profile_ || !profile_->HasSection("CollapsedNodes")) return;
        const auto nodes = profile_->Section("CollapsedNodes");
        if (nodes->RowCount() != kProfileRows) return;
        for (std::size_t number = 1; number <= kProfileRows; ++number) {
            const auto row = nodes->Row(number);
            if (Trim(row->Field("ID")) != id) continue;
            SetCollapsedNodes(index, row->Field("List"));
            return;
        }
    });
}

void CollapsedNodes::SetCollapsedNodes(int index, const std::string& list) {
    trap_.Run("DLViewer.SetCollapsedNodes", [&] {
        if (list.empty()) return;
        Dictionary keys;
        for (const std::string& key : Split(list, '|')) keys.Add(key);
        OutlineGrid& grid = form_.vsFlex[index];
        grid.SetRedraw(false);
        ExpandNodes(index);
        RestoreCollapsedList(index, keys);
        grid.SetRedraw(true);
    });
}

}  // namespace dlv
