#include "profiles/ProfileDocument.h"

#include "base/Number.h"
#include "base/Text.h"
#include "views/Panel.h"

namespace dlv {

namespace {

constexpr const char* kSelect = "DLVSelect";
constexpr const char* kSelectFields = "BUList,SummaryOption,DisplayByWorkOrders";
constexpr const char* kNodes = "CollapsedNodes";
constexpr const char* kNodesFields = "ID,List";
constexpr std::size_t kNodesRows = 3;

std::string BooleanText(bool value) { return value ? "True" : "False"; }

/// "True" or "False" in any case, or a number that is not 0.
bool ToBoolean(const std::string& text) {
    if (EqualFolded(text, "true")) return true;
    if (EqualFolded(text, "false")) return false;
    return ToDouble(text) != 0;
}

/// The option index of a stored Boolean: an empty value counts as true.
int OptionIndex(const std::string& text) { return text.empty() || ToBoolean(text) ? 0 : 1; }

/// A section of the profile with at least these fields: another version may have written it with fewer.
std::shared_ptr<QZWebSection> SectionWithFields(const QZWebProfile& profile, const char* name,
                                                const char* fields) {
    auto section = profile.Section(name);
    for (const std::string& field : Split(fields, ',')) section->AddField(field);
    return section;
}

}  // namespace

void ProfileDocument::WriteSelection(QZWebSectionRow& row) const {
    row.SetField("BUList", JoinKeys(controller_.GetBUList(), '|'));
    row.SetField("SummaryOption", BooleanText(form_.optBU.Selected() == 0));
    row.SetField("DisplayByWorkOrders", BooleanText(form_.optDisplay.Selected() == 0));
}

void ProfileDocument::SaveNodes(QZWebSection& nodes) {
    collapsed_.SaveNodesToProfile(nodes, "JobTypes", 0);
    collapsed_.SaveNodesToProfile(nodes, "BUWorkOrders", 1);
    collapsed_.SaveNodesToProfile(nodes, "BUPoints", 2);
}

void ProfileDocument::WriteSettings(QZWebProfile& profile) {
    WriteSelection(*profile.AddSection(kSelect, kSelectFields)->AddRow());
    const auto nodes = profile.AddSection(kNodes, kNodesFields);
    for (std::size_t i = 0; i < kNodesRows; ++i) nodes->AddRow();
    SaveNodes(*nodes);
}

void ProfileDocument::UpdateCurrentProfile(Extent extent) {
    trap_.Run("DLViewer.UpdateCurrentProfile", [&] {
        if (!state_.current) return;
        if (extent == Extent::WithSettings) {
            const auto selection = SectionWithFields(*state_.current, kSelect, kSelectFields);
            WriteSelection(*selection->Row(1));
            const auto nodes = SectionWithFields(*state_.current, kNodes, kNodesFields);
            if (nodes->RowCount() != kNodesRows) {
                while (nodes->RowCount() > 0) nodes->RemoveRow(1);
                for (std::size_t i = 0; i < kNodesRows; ++i) nodes->AddRow();
            }
            SaveNodes(*nodes);
        }
        DLVParams params;
        params.ProfilesXML = state_.set.Text();
        if (extent == Extent::WithSettings) form_.SetMousePointer(kHourglassPointer);
        outside_.Raise(HostEvent::PutProfiles, params);
    });
}

void ProfileDocument::InitProfileSettings() {
    trap_.Run("DLViewer.InitProfileSettings", [&] {
        if (!state_.current) return;
        bool changed = false;
        const auto complete = [&](const char* name, const char* fields, std::size_t rows) {
            changed |= !state_.current->HasSection(name);
            const auto section = state_.current->HasSection(name) ? state_.current->Section(name)
                                                                  : state_.current->AddSection(name, fields);
            if (section->RowCount() > 0) return;
            for (std::size_t i = 0; i < rows; ++i) section->AddRow();
            changed = true;
        };
        complete(kSelect, kSelectFields, 1);
        complete(kNodes, kNodesFields, kNodesRows);
        if (changed) UpdateCurrentProfile(Extent::StructureOnly);
    });
}

void ProfileDocument::SelectDisplay(int index) {
    form_.optDisplay.Select(index);
    ShowDisplay(form_, index);
}

void ProfileDocument::ShowDefaultView() {
    form_.optBU.Select(0);
    SelectDisplay(0);
    if (form_.lvBU.Items().empty()) return;
    form_.lvBU.ClearSelection();
    form_.lvBU.SetSelected(0, true);
}

void ProfileDocument::SelectUnits(const std::string& list) {
    Dictionary ids;
    if (!list.empty())
        for (const std::string& id : Split(list, '|')) ids.Add(id);
    const auto& items = form_.lvBU.Items();
    bool any = false;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool selected = ids.Exists(SkipCharacters(items[i].key, 1));
        form_.lvBU.SetSelected(i, selected);
        any |= selected;
    }
    if (!any && !items.empty()) form_.lvBU.SetSelected(0, true);
}

void ProfileDocument::LoadProfileSettings() {
    if (!state_.current) state_.current = std::make_shared<QZWebProfile>();
    std::shared_ptr<QZWebSectionRow> row;
    IgnoreErrors([&] { row = state_.current->Section(kSelect)->Row(1); });
    trap_.Run("DLViewer.LoadProfileSettings", [&] {
        if (!row) {
            ShowDefaultView();
            return;
        }
        form_.optBU.Select(OptionIndex(row->Field("SummaryOption")));
        SelectDisplay(OptionIndex(row->Field("DisplayByWorkOrders")));
        SelectUnits(row->Field("BUList"));
        if (hierarchy_.Filled()) {
            collapsed_.RestoreNodes("BUWorkOrders", 1);
            collapsed_.RestoreNodes("BUPoints", 2);
        }
    });
}

}  // namespace dlv
