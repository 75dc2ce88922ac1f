#include "views/UnitList.h"

namespace dlv {

namespace {

constexpr int kFirstUnitRow = 2;
constexpr double kScrollBarRoom = Pixels(21);

/// The key of a unit's item: one character that is no part of the id, then the id.
std::string ItemKey(const std::string& id) { return "_" + id; }

}  // namespace

void LoadBUListView(ViewerForm& form, const cDLVController& controller, const Dictionary& sessionUnits) {
    const Dictionary selected = controller.GetBUList();
    form.lvBU.SetColumnWidth(form.lvBU.Width() - kScrollBarRoom);
    const OutlineGrid& hierarchy = form.vsFlex[1];
    std::vector<ListView::Item> items;
    // Row 2 is the root, which is no unit.
    for (int row = kFirstUnitRow + 1; row < hierarchy.Rows(); ++row) {
        const std::string& id = hierarchy.RowData(row);
        if (sessionUnits.Exists(id))
            items.push_back(
                {ItemKey(id), std::string(controller.BUDescriptions().Item(id)), selected.Exists(id)});
    }
    form.lvBU.SetItems(std::move(items));
}

bool IsListedUnit(const ViewerForm& form, const std::string& id) { return form.lvBU.HasKey(ItemKey(id)); }

std::string JoinListedUnits(const ViewerForm& form, const Dictionary& ids) {
    std::string text;
    for (const auto& entry : ids) {
        if (!IsListedUnit(form, entry.key)) continue;
        text += entry.key;
        text += '|';
    }
    if (!text.empty()) text.pop_back();
    return text;
}

}  // namespace dlv
