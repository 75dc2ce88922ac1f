#include "hosts/recorder/UserActions.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Number.h"
#include "base/Text.h"
#include "base/Trap.h"
#include "hosts/recorder/HostSteps.h"
#include "profiles/ProfileIDList.h"
#include "profiles/ResultEnvelope.h"
#include "webdata/QZWebProfiles.h"

namespace dlv::recorder {

namespace {

/// The rows of a profile's list of collapsed nodes, in the order of the grids.
constexpr std::string_view kNodesOf[] = {"JobTypes", "BUWorkOrders", "BUPoints"};
constexpr int kGrids = static_cast<int>(std::size(kNodesOf));

/// The number in the error table of an answer; 0 when there is none that can be read.
std::int32_t ErrorNumberOf(const std::string& resultXml) {
    std::int32_t number = 0;
    IgnoreErrors([&] {
        std::shared_ptr<QZWebTable> table;
        const ResultForm form = FormOf(resultXml);
        if (form == ResultForm::Data) {
            QZWebData data;
            data.LoadText(resultXml);
            table = data.Table("Error");
        } else if (form == ResultForm::Table) {
            table = std::make_shared<QZWebTable>();
            table->LoadText(resultXml);
        } else {
            QZWebProfiles set;
            set.LoadText(resultXml);
            table = set.ErrorTable();
        }
        if (table && table->Name() == "Error") number = ToLong(table->Field(1, "ErrorNumber"));
    });
    return number;
}

std::vector<std::string> Parts(const std::string& list) {
    return list.empty() ? std::vector<std::string>() : Split(list, '|');
}

/// The collapsed nodes of a grid that a profile tells; nothing when it tells none.
std::vector<std::string> CollapsedIn(const QZWebProfile& profile, int grid) {
    std::vector<std::string> nodes;
    IgnoreErrors([&] {
        const auto section = profile.Section("CollapsedNodes");
        for (std::size_t i = section->RowCount(); i > 0; --i)
            if (Trim(section->Row(i)->Field("ID")) == kNodesOf[grid])
                nodes = Parts(section->Row(i)->Field("List"));
    });
    return nodes;
}

Json NodeStep(const char* op, int grid, const std::string& data) {
    return {{"op", op}, {"grid", grid}, {"data", data}};
}

Json IndexStep(const char* op, int index) { return {{"op", op}, {"index", index}}; }

Json NameDialog(const std::string& name) { return Json::array({{{"text", name}, {"button", "ok"}}}); }

Json ManageStep(Json action) {
    Json step = Step("menuManage");
    step["actions"] = Json::array({std::move(action)});
    return step;
}

}  // namespace

void UserActions::HostAnswers(const std::string& function, const std::string& resultXml) {
    const bool usable = ErrorNumberOf(resultXml) == 0;
    if (function == "GetProfiles") {
        if (!loaded_) TakeFirstProfile(usable, resultXml);
        NoteCollapsed(resultXml);
        loaded_ = true;
    }
    if (!usable || !HoldsProfileIDs(resultXml)) return;
    const std::vector<std::string> listed = ParseProfileIDs(resultXml);
    if (function == "GetProfileList") names_.RemoveAll();
    if (function == "RemoveProfiles") names_.RemoveEach(listed);
    for (const std::string& name : listed)
        if (function == "GetProfileList" || function == "AddProfiles" ||
            (function == "SaveProfileAs" && name == savedAs_))
            names_.AddNew(name);
}

void UserActions::TakeFirstProfile(bool usable, const std::string& resultXml) {
    QZWebProfiles set;
    if (usable && FormOf(resultXml) != ResultForm::Data) IgnoreErrors([&] { set.LoadText(resultXml); });
    if (set.Count() > 0) return;
    names_.RemoveAll();
    names_.Add("Default");
}

void UserActions::NoteCollapsed(const std::string& profilesXml) {
    IgnoreErrors([&] {
        QZWebProfiles set;
        set.LoadText(profilesXml);
        for (int grid = 0; grid < kGrids; ++grid)
            for (std::string& node : CollapsedIn(*set.Item(1), grid))
                collapsed_[grid].insert(std::move(node));
    });
}

void UserActions::Raised(const std::string& event, const Json& fields) {
    if (event != "SaveProfileAs") return;
    IgnoreErrors([&] {
        QZWebProfiles set;
        set.LoadText(fields.value("ProfilesXML", ""));
        savedAs_ = set.Item(1)->Name();
    });
}

std::vector<Json> UserActions::StepsBehind(const std::string& event, const Json& fields) {
    const std::string name = fields.value("ProfileName", "");
    const std::string document = fields.value("ProfilesXML", "");
    if (event == "GetProfiles") return ChoiceOf(name);
    if (event == "AddProfiles") return {ManageStep({{"do", "new"}, {"dialog", NameDialog(name)}})};
    if (event == "RemoveProfiles")
        return {ManageStep({{"do", "remove"}, {"name", name}, {"confirm", "yes"}})};
    std::vector<Json> steps;
    if (event == "PutProfiles" || event == "SaveProfileAs") steps = Settings(document);
    if (steps.empty()) return {};
    if (event == "PutProfiles") {
        steps.push_back(Step("menuSave"));
    } else {
        Json save = Step("menuSaveAs");
        save["dialog"] = NameDialog(savedAs_);
        save["confirm"] = "yes";
        steps.push_back(std::move(save));
    }
    for (auto& nodes : collapsed_) nodes.clear();
    NoteCollapsed(document);
    return steps;
}

std::vector<Json> UserActions::ChoiceOf(const std::string& name) const {
    std::vector<std::pair<std::string, std::string>> sorted;
    for (const auto& entry : names_) sorted.emplace_back(FoldCase(entry.key), entry.key);
    std::ranges::stable_sort(sorted, {}, &std::pair<std::string, std::string>::first);
    for (std::size_t i = 0; i < sorted.size(); ++i)
        if (sorted[i].second == name)
            return {Step("profilesMenu"), IndexStep("menuProfile", static_cast<int>(i))};
    return {};
}

std::vector<Json> UserActions::Settings(const std::string& profilesXml) {
    std::vector<Json> steps;
    IgnoreErrors([&] {
        QZWebProfiles set;
        set.LoadText(profilesXml);
        const QZWebProfile& profile = *set.Item(1);
        const auto row = profile.Section("DLVSelect")->Row(1);
        std::vector<Json> found;
        Json select = Step("select");
        select["ids"] = Parts(row->Field("BUList"));
        found.push_back(std::move(select));
        found.push_back(IndexStep("optBU", row->Field("SummaryOption") == "True" ? 0 : 1));
        found.push_back(IndexStep("optDisplay", row->Field("DisplayByWorkOrders") == "True" ? 0 : 1));
        for (int grid = 0; grid < kGrids; ++grid) {
            const std::vector<std::string> nodes = CollapsedIn(profile, grid);
            const std::set<std::string> still(nodes.begin(), nodes.end());
            for (const std::string& open : collapsed_[grid])
                if (!still.contains(open)) found.push_back(NodeStep("expand", grid, open));
            for (const std::string& node : nodes) found.push_back(NodeStep("collapse", grid, node));
        }
        steps = std::move(found);
    });
    return steps;
}

}  // namespace dlv::recorder
