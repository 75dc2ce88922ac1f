#include "model/cDLVController.h"

#include <array>

#include "base/Number.h"
#include "base/Text.h"
#include "model/ModelLoading.h"

namespace dlv {

cDLVController::cDLVController(Platform& platform, const Trap& trap, Events events)
    : platform_(platform),
      trap_(trap),
      events_(std::move(events)),
      units_(std::make_shared<BusinessUnits>()) {}

void cDLVController::Initialize(Form& surface) { surface_ = &surface; }

void cDLVController::Release() {
    tree_.reset();
    units_ = std::make_shared<BusinessUnits>();
    for (Dictionary* lookup :
         {&descriptions_, &parents_, &typeDescriptions_, &classDescriptions_, &timeFormats_})
        *lookup = Dictionary();
}

template <class ControlType>
ControlType& cDLVController::Find(std::string_view name) const {
    auto* control = dynamic_cast<ControlType*>(surface_ ? surface_->Find(name) : nullptr);
    if (!control) RaiseInvalidCall();
    return *control;
}

void cDLVController::ReceiveMessage(const HostObject& data, std::int32_t, const std::string&) {
    // What the host says of its failing message counts for more than the local failure.
    const auto hostsOwnError = [&](const RunTimeError& local) {
        if (!data.message) return local;
        return RunTimeError(ToLong(data.message->Property("Number")), data.message->Property("Description"));
    };
    trap_.RunReplacing("cDLVController.ReceiveMessage", hostsOwnError, [&] {
        if (data.typeName != "QZWebMessage" || !data.message) return;
        const std::string name = data.message->Name();
        if (name == "DLVData") {
            if (SingleBUGridBusy || HierarchyGridBusy) return;
            SingleBUGridBusy = HierarchyGridBusy = true;
            LoadData(*data.message);
            events_.HideStatus();
        } else if (name == "DLVServerStopped") {
            events_.ShowStatus("msg-DLVServerDown", true);
        }
    });
}

void cDLVController::LoadData(const MessageSource& message) {
    const Outcome outcome = trap_.Run("cDLVController.LoadData", [&] {
        const auto units = message.Table("BusinessUnits");
        const auto types = message.Table("JobTypes");
        const auto classes = message.Table("JobClasses");
        const auto formats = message.Table("RegionalFormats");
        LoadRegionalFormats(*formats);
        LoadLookups(*units, *types, *classes);
        const auto general = message.Table("BUGeneralInfo");
        const auto details = message.Table("BUDetailsInfo");
        LoadBUData(*general, *details);
        events_.FillBUHierarchyGrid(units_);
        UpdateRefreshTimes(message);
        JeopardyThreshold = message.Property("tqJeopardyThreshold");
    });
    if (outcome == Outcome::Failed) events_.LoadFailed();
}

void cDLVController::LoadRegionalFormats(const RowTable& table) {
    LoadLookup(table, "languageCode", "timeformat", timeFormats_);
}

void cDLVController::LoadLookups(const RowTable& units, const RowTable& types, const RowTable& classes) {
    tree_.reset();
    LoadLookup(units, "BUID", "BUDesc", descriptions_);
    LoadLookup(units, "BUID", "ParentBUID", parents_);
    LoadLookup(types, "JobType", "JobTypeDesc", typeDescriptions_);
    LoadLookup(classes, "JobClass", "JobClassDesc", classDescriptions_);
}

Outcome cDLVController::LoadBUData(const RowTable& general, const RowTable& details) {
    return trap_.Run("cDLVController.LoadBUData", [&] {
        // A model that somebody still reads stays as it is; else its memory serves again.
        if (units_.use_count() == 1)
            units_->Clear();
        else
            units_ = std::make_shared<BusinessUnits>();
        const auto model = units_;
        LoadUnits(general, *model);
        Finally([&] { LoadDetails(details, *model); }, [&] { model->BringIntoOrder(); });
        for (std::size_t unit = 0; unit < model->Count(); ++unit) model->CalcTotal(unit, trap_);
    });
}

void cDLVController::UpdateRefreshTimes(const MessageSource& message) {
    const std::string format(timeFormats_.Item(timeFormats_.Exists(LanguageID) ? LanguageID : "EN"));
    const LocaleTime locale = platform_.TimeSettings();
    const TimeOfDay now = platform_.Now();
    Find<Label>("lblLastRefreshTime").SetCaption(FormatTime(now, format, locale));
    refresh_.format = format;
    refresh_.last = now;
    const double interval = LeadingNumber(message.Property("tqDBRefreshInterval"));
    const TimeOfDay next = AddMinutes(now, interval);
    Find<Label>("lblNextRefreshTime").SetCaption(FormatTime(next, format, locale));
    refresh_.interval = interval;
    refresh_.next = next;
    for (const auto name : {"lblLastTime", "lblLastRefreshTime", "lblNextTime", "lblNextRefreshTime"})
        Find<Label>(name).SetVisible(true);
}

void cDLVController::FillSingleBU() { events_.FillSingleBUGrid(units_); }

Dictionary cDLVController::GetBUList() const {
    Dictionary list;
    if (!surface_) return list;
    trap_.Run("cDLVController.GetBUList", [&] {
        for (const ListView::Item& item : Find<ListView>("lvBU").Items())
            if (item.selected) list.AddNew(SkipCharacters(item.key, 1));
    });
    return list;
}

const UnitTree& cDLVController::Tree() const {
    if (!tree_) tree_.emplace(parents_);
    return *tree_;
}

std::string cDLVController::GetChildBUIDList(const std::string& id) const {
    std::string list;
    trap_.Run("cDLVController.GetChildBUIDList", [&] {
        const UnitTree::Node node = Tree().Find(id);
        if (node == UnitTree::kNone) return;
        std::vector<bool> seen(Tree().NodeCount());
        Tree().Walk(node, seen, [&](std::string_view child) {
            list += child;
            list += ',';
        });
    });
    return list;
}

namespace {

/// A list text names each id with a "," behind it; an id that holds one counts as several.
void AddPieces(std::string_view id, Dictionary& set) {
    for (const std::string& piece : Split(id, ',')) set.AddNew(piece);
}

}  // namespace

Dictionary cDLVController::GetBUIDList(const std::string& id) const {
    Dictionary set;
    trap_.Run("cDLVController.GetBUIDList", [&] {
        std::string list = id + "," + GetChildBUIDList(id);
        list.pop_back();
        AddPieces(list, set);
    });
    return set;
}

Dictionary cDLVController::GetAggregateBUList() const {
    Dictionary set;
    trap_.Run("cDLVController.GetAggregateBUList", [&] {
        std::vector<bool> seen(Tree().NodeCount());
        for (const ListView::Item& item : Find<ListView>("lvBU").Items()) {
            if (!item.selected) continue;
            const std::string_view id = SkipCharacters(item.key, 1);
            AddPieces(id, set);
            // What was walked before has all its descendants in the set already.
            const UnitTree::Node node = Tree().Find(id);
            if (node == UnitTree::kNone || seen[node]) continue;
            Tree().Walk(node, seen, [&](std::string_view child) { AddPieces(child, set); });
        }
    });
    return set;
}

std::vector<UnitFigures> cDLVController::SumUnits(const BusinessUnits& model, const Dictionary& ids) const {
    const UnitTree& tree = Tree();
    const auto addUnit = [&](UnitFigures& figures, std::string_view id) {
        if (const BusinessUnit* unit = model.Item(id)) figures += *unit;
    };
    std::vector<UnitFigures> subtrees(tree.NodeCount());
    bool idsHoldCommas = false;
    for (UnitTree::Node node = 0; node < tree.NodeCount(); ++node) {
        idsHoldCommas |= tree.Id(node).find(',') != std::string_view::npos;
        addUnit(subtrees[node], tree.Id(node));
    }
    if (!idsHoldCommas) tree.SumUp(subtrees);

    std::vector<UnitFigures> sums(ids.Count());
    for (std::size_t i = 0; i < ids.Count(); ++i) {
        const std::string& id = ids.At(i).key;
        const UnitTree::Node node = tree.Find(id);
        if (!idsHoldCommas && node != UnitTree::kNone) {
            sums[i] = subtrees[node];
        } else {
            for (const auto& entry : GetBUIDList(id)) addUnit(sums[i], entry.key);
        }
    }
    return sums;
}

std::string cDLVController::JobTypeDescription(const std::string& code) const {
    const std::string_view text = typeDescriptions_.Item(code);
    return text.empty() ? code : std::string(text);
}

std::string cDLVController::JobClassDescription(const std::string& code) const {
    const std::string_view text = classDescriptions_.Item(code);
    return text.empty() ? code : std::string(text);
}

}  // namespace dlv
