#include "hosts/demo/workday/ProfileStore.h"

#include <algorithm>

#include "base/Text.h"
#include "base/Trap.h"
#include "hosts/demo/workday/SampleCompany.h"
#include "webdata/QZWebProfiles.h"
#include "webdata/QZWebTable.h"

namespace dlv::demo {

namespace {

constexpr int kUnknownProfile = 1;
constexpr int kProfileExists = 2;
constexpr int kUnreadableDocument = 3;

std::string ErrorTable(int number, const std::string& description) {
    QZWebTable table("Error");
    table.Fill(std::vector<std::string>{"ErrorNumber", "ErrorDescription"},
               std::vector<std::string>{std::to_string(number), description});
    return table.Text();
}

std::string Data(const std::string& content) { return "<WebData>" + content + "</WebData>"; }
std::string Done() { return Data(ErrorTable(0, "")); }
std::string Failed(int number, const std::string& description) {
    return Data(ErrorTable(number, description));
}

// Names stand in the list as they are: the control looks for the tags alone.
std::string NameList(const std::vector<std::string>& names) {
    std::string list = "<ProfileIDs>";
    for (const std::string& name : names) list += "<ProfileID>" + name + "</ProfileID>";
    return Data(ErrorTable(0, "") + list + "</ProfileIDs>");
}

enum class Chosen { TopLevel, All };
enum class Summed { Alone, WithUnitsBelow };

// The control adds what a profile lacks and sends it back to be stored.
std::string NewProfile(std::string_view name, Chosen chosen, Summed summed) {
    std::vector<std::string_view> ids;
    for (const Unit& unit : Units())
        if (chosen == Chosen::All || unit.parent == kRootId) ids.push_back(unit.id);
    QZWebProfile profile{std::string(name)};
    const auto row = profile.AddSection("DLVSelect", "BUList,SummaryOption,DisplayByWorkOrders")->AddRow();
    row->SetField("BUList", Join(ids, '|'));
    row->SetField("SummaryOption", summed == Summed::Alone ? "True" : "False");
    row->SetField("DisplayByWorkOrders", "True");
    return profile.Text();
}

}  // namespace

ProfileStore::ProfileStore() {
    Keep(std::string(kDefaultProfile), NewProfile(kDefaultProfile, Chosen::TopLevel, Summed::WithUnitsBelow));
    Keep(std::string(kAllUnitsProfile), NewProfile(kAllUnitsProfile, Chosen::All, Summed::Alone));
}

std::string ProfileStore::Answer(std::string_view function, const std::string& profileName,
                                 const std::string& profilesXml) {
    std::string answer;
    const Outcome outcome = IgnoreErrors([&] {
        if (function == "GetProfileList") answer = NameList(Names());
        if (function == "GetProfiles") answer = Get(profileName);
        if (function == "PutProfiles") answer = Put(profilesXml);
        if (function == "SaveProfileAs") answer = SaveAs(profilesXml);
        if (function == "AddProfiles") answer = Add(profileName);
        if (function == "RemoveProfiles") answer = Remove(profileName);
    });
    return outcome == Outcome::Done ? answer : Failed(kUnreadableDocument, "The profiles cannot be read.");
}

std::vector<std::string> ProfileStore::Names() const {
    std::vector<std::string> names;
    for (const Stored& profile : profiles_) names.push_back(profile.name);
    return names;
}

std::optional<std::string> ProfileStore::Find(std::string_view name) const {
    const auto found = std::ranges::find(profiles_, name, &Stored::name);
    return found == profiles_.end() ? std::nullopt : std::optional(found->text);
}

std::string ProfileStore::Get(const std::string& name) const {
    const auto text = Find(name);
    if (!text) return Failed(kUnknownProfile, "There is no profile " + name + ".");
    return "<WebProfiles>" + ErrorTable(0, "") + *text + "</WebProfiles>";
}

std::string ProfileStore::Put(const std::string& profilesXml) {
    KeepAll(profilesXml);
    return Done();
}

std::string ProfileStore::SaveAs(const std::string& profilesXml) { return NameList(KeepAll(profilesXml)); }

std::string ProfileStore::Add(const std::string& name) {
    if (Find(name)) return Failed(kProfileExists, "There is a profile " + name + " already.");
    Keep(name, NewProfile(name, Chosen::TopLevel, Summed::WithUnitsBelow));
    return NameList({name});
}

std::string ProfileStore::Remove(const std::string& name) {
    if (std::erase_if(profiles_, [&](const Stored& profile) { return profile.name == name; }) == 0)
        return Failed(kUnknownProfile, "There is no profile " + name + ".");
    return NameList({name});
}

void ProfileStore::Keep(const std::string& name, const std::string& text) {
    const auto found = std::ranges::find(profiles_, name, &Stored::name);
    if (found == profiles_.end())
        profiles_.push_back({name, text});
    else
        found->text = text;
}

std::vector<std::string> ProfileStore::KeepAll(const std::string& profilesXml) {
    QZWebProfiles set;
    set.LoadText(profilesXml);
    std::vector<std::string> names;
    for (std::size_t i = 1; i <= set.Count(); ++i) {
        names.push_back(set.Item(i)->Name());
        Keep(names.back(), set.Item(i)->Text());
    }
    return names;
}

}  // namespace dlv::demo
