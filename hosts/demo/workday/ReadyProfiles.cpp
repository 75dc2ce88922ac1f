#include "hosts/demo/workday/ReadyProfiles.h"

#include <utility>
#include <vector>

#include "base/Text.h"
#include "hosts/demo/workday/SampleCompany.h"
#include "webdata/QZWebProfile.h"

namespace dlv::demo {

namespace {

constexpr std::string_view kRegion = "40";

enum class Summed { Alone, WithUnitsBelow };
enum class Shown { WorkOrders, Points };

struct View {
    std::vector<std::string_view> units = {};
    Summed summed;
    Shown shown;
    /// Closed nodes: job types of the summary, units of both trees.
    std::vector<std::string_view> closedTypes = {};
    std::vector<std::string_view> closedUnits = {};
};

std::vector<std::string_view> UnitsBelow(std::string_view parent) {
    std::vector<std::string_view> ids;
    for (const Unit& unit : Units())
        if (unit.parent == parent) ids.push_back(unit.id);
    return ids;
}

View EveryUnit() {
    View view{.summed = Summed::Alone, .shown = Shown::WorkOrders};
    for (const Unit& unit : Units()) view.units.push_back(unit.id);
    return view;
}

/// What is closed leaves its districts, and the work that is most.
View OneRegion() {
    View view{.units = UnitsBelow(kRegion), .summed = Summed::WithUnitsBelow, .shown = Shown::Points};
    view.closedTypes = {"MT", "IS", "UP", "DC"};
    for (const std::string_view id : UnitsBelow(kRootId))
        if (id != kRegion) view.closedUnits.push_back(id);
    return view;
}

std::string Document(std::string_view name, const View& view) {
    QZWebProfile profile{std::string(name)};
    const auto chosen = profile.AddSection("DLVSelect", "BUList,SummaryOption,DisplayByWorkOrders")->AddRow();
    chosen->SetField("BUList", Join(view.units, '|'));
    chosen->SetField("SummaryOption", view.summed == Summed::Alone ? "True" : "False");
    chosen->SetField("DisplayByWorkOrders", view.shown == Shown::WorkOrders ? "True" : "False");
    const auto nodes = profile.AddSection("CollapsedNodes", "ID,List");
    for (const auto& [id, closed] :
         {std::pair("JobTypes", &view.closedTypes), std::pair("BUWorkOrders", &view.closedUnits),
          std::pair("BUPoints", &view.closedUnits)}) {
        const auto row = nodes->AddRow();
        row->SetField("ID", id);
        row->SetField("List", Join(*closed, '|'));
    }
    return profile.Text();
}

}  // namespace

std::string NewProfile(std::string_view name) {
    return Document(name, {UnitsBelow(kRootId), Summed::WithUnitsBelow, Shown::WorkOrders, {}, {}});
}

ProfileSet ReadyProfiles() {
    ProfileSet set;
    const auto put = [&](std::string_view name, std::string document) {
        set.Put(std::string(name), std::move(document));
    };
    put(kDefaultProfile, NewProfile(kDefaultProfile));
    put(kAllUnitsProfile, Document(kAllUnitsProfile, EveryUnit()));
    put(kRegionProfile, Document(kRegionProfile, OneRegion()));
    return set;
}

}  // namespace dlv::demo
