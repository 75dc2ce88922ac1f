#include "player/VisibleTranscript.h"

#include <algorithm>

#include "control/ControlState.h"
#include "widgets/GridText.h"

namespace dlv::player {

namespace {

constexpr Colour kRed = 0x0000FF;

Json StatusOf(const Label& status) {
    if (!status.Visible()) return nullptr;
    return {{"text", status.Caption()}, {"colour", status.ForeColour() == kRed ? "red" : "blue"}};
}

Json PanelOf(const ViewerForm& form) {
    return {form.lblTechCount.figure.Caption(),    form.lblHrsWorked.figure.Caption(),
            form.lblHrsRemaining.figure.Caption(), form.lblWODone.figure.Caption(),
            form.lblWOOpen.figure.Caption(),       form.lblPtsDone.figure.Caption(),
            form.lblPtsOpen.figure.Caption(),      form.lblWOsPerHrToday.Caption(),
            form.lblWOsPerHrReq.Caption(),         form.lblPtsPerHrToday.Caption(),
            form.lblPtsPerHrReq.Caption()};
}

Json UnitsOf(const ListView& list) {
    Json units = Json::array();
    for (const ListView::Item& item : list.Items()) units.push_back({item.text, item.selected});
    return units;
}

Json RowsOf(const OutlineGrid& grid) {
    Json rows = Json::array();
    for (const int row : grid.DisplayedRows()) {
        if (row < grid.FixedRows()) continue;
        Json cells = Json::array();
        for (int column = grid.TreeColumn(); column < grid.Columns(); ++column)
            if (grid.ColumnWidth(column) > 0) cells.push_back(ShownText(grid, row, column));
        Json entry = {{"cells", std::move(cells)},
                      {"depth", grid.Level(row) - grid.Level(grid.FixedRows())},
                      {"grey", grid.RowBackColour(row).has_value()}};
        if (grid.IsNode(row) && grid.HasChildren(row)) entry["collapsed"] = grid.IsCollapsed(row);
        rows.push_back(std::move(entry));
    }
    return rows;
}

std::optional<std::string> WhyNoLine(const Json& step, DLViewer& viewer) {
    const ViewerForm& form = viewer.Controls();
    const auto bar = std::ranges::find(form.tbMain.Items(), "Profiles", &Toolbar::Item::key);
    if (!bar->visible) return "the button that opens the menu is not shown";
    if (step["op"] != "menuProfile") return std::nullopt;
    // The menu lists the known names; without any, its first line stays as it was.
    const std::size_t known = viewer.Inner().profiles.names.Count();
    const std::size_t lines = known > 0 ? known : form.mnuProfile.front().visible ? 1 : 0;
    const int index = step.value("index", -1);
    if (index < 0 || static_cast<std::size_t>(index) >= lines) return "the menu has no such profile";
    return std::nullopt;
}

bool IsDisplayed(const OutlineGrid& grid, int row) {
    if (row < grid.FixedRows() || row >= grid.Rows()) return false;
    return grid.DisplayedRows()[static_cast<std::size_t>(grid.DisplayedIndex(row))] == row;
}

std::optional<std::string> WhyNoCell(const Json& step, const OutlineGrid& grid) {
    const int row = step["row"];
    const int column = step["col"];
    if (!IsDisplayed(grid, row)) return "its row is not displayed";
    if (column < grid.TreeColumn() || column >= grid.Columns() || grid.ColumnWidth(column) <= 0)
        return "its column is not displayed";
    if (step.value("mouseRow", row) != row || step.value("mouseCol", column) != column)
        return "the mouse cannot be on another cell than the one that it chooses";
    if (step.value("button", 1) != 1) return "another button than the left one opens a menu or does nothing";
    return std::nullopt;
}

}  // namespace

bool IsMenuStep(const std::string& op) { return op.starts_with("menu") || op == "profilesMenu"; }

Json VisibleState(DLViewer& viewer, const Json& menu) {
    if (viewer.Stopped()) return {{"stopped", true}};
    const ViewerForm& form = viewer.Controls();
    const bool hierarchy = form.Tabs.SelectedTab() == 2;
    return {{"status", StatusOf(form.lblStatus)},
            {"panel", PanelOf(form)},
            {"units", UnitsOf(form.lvBU)},
            {"tab", form.Tabs.SelectedTab() - 1},
            {"mode", form.optBU.Selected()},
            {"display", hierarchy ? Json(form.optDisplay.Selected()) : Json()},
            {"grid", RowsOf(form.vsFlex[form.CurrentGrid()])},
            {"viewEnabled", form.cmdView.Enabled()},
            {"profile", form.lblCurrentProfile.Visible() ? Json(form.lblCurrentProfile.Caption()) : Json()},
            {"refreshShown", form.lblLastTime.Visible()},
            {"menu", menu}};
}

int RowOfStep(const Json& step, const OutlineGrid& grid) {
    if (!step.contains("data")) return step.value("row", OutlineGrid::kNoRow);
    const std::string data = step["data"];
    return step["grid"] == 0 && data == "TOTAL" ? grid.FixedRows() : grid.FindRow(data);
}

std::optional<std::string> WhyLeftOut(const Json& step, DLViewer& viewer) {
    const std::string op = step["op"];
    if (IsMenuStep(op)) return WhyNoLine(step, viewer);
    if (op == "saveGrid" || op == "printGrid") return "files and paper are not on the screen";
    if (op == "about" && !viewer.Controls().tbMain.Items().back().visible) return "its button is not shown";
    const bool node = op == "collapse" || op == "expand";
    if (!node && op != "dblclick" && op != "enter") {
        const int index = step.value("index", 0);
        if (index != 0 && index != 1) return "there is no such option";
        return std::nullopt;
    }
    const int index = step["grid"];
    if (index < 0 || index > 2) return "there is no such grid";
    const OutlineGrid& grid = viewer.Controls().vsFlex[index];
    if (!node) return WhyNoCell(step, grid);
    const int row = RowOfStep(step, grid);
    if (!IsDisplayed(grid, row)) return "its row is not displayed";
    if (!grid.IsNode(row) || !grid.HasChildren(row)) return "nothing stands below its row";
    return std::nullopt;
}

}  // namespace dlv::player
