#include "profiles/ProfileExchange.h"

#include "base/Text.h"
#include "profiles/ProfileIDList.h"

namespace dlv {

namespace {

constexpr const char* kResponse = "DLViewer.ReceiveProfileResponse";
constexpr const char* kDefault = "Default";

/// Whether an answer to a request for profiles carries any.
bool CarriesProfiles(const std::string& resultXml) {
    return !Trim(resultXml).empty() && FormOf(resultXml) != ResultForm::Data;
}

}  // namespace

void ProfileExchange::Request(HostEvent event, const DLVParams& params) {
    form_.SetMousePointer(kHourglassPointer);
    outside_.Raise(event, params);
}

void ProfileExchange::RequestNamed(HostEvent event, const std::string& name) {
    DLVParams params;
    params.ProfileName = name;
    Request(event, params);
}

void ProfileExchange::GetProfileList() {
    trap_.Run("DLViewer.GetProfileList", [&] { Request(HostEvent::GetProfileList, {}); });
}

void ProfileExchange::GetProfile() {
    trap_.Run("DLViewer.GetProfile", [&] { RequestNamed(HostEvent::GetProfiles, kDefault); });
}

void ProfileExchange::ChooseNewProfile(const std::string& name) {
    trap_.Run("DLViewer.ChooseNewProfile", [&] {
        if (name.empty()) {
            actions_.ManageProfiles();
            return;
        }
        state_.requestedName = name;
        RequestNamed(HostEvent::GetProfiles, name);
    });
}

void ProfileExchange::SaveProfileAs(const std::string& name) {
    trap_.Run("DLViewer.SaveProfileAs", [&] {
        QZWebProfiles set;
        document_.WriteSettings(*set.Add(name));
        DLVParams params;
        params.ProfilesXML = set.Text();
        state_.pendingSaveAsName = name;
        Request(HostEvent::SaveProfileAs, params);
    });
}

void ProfileExchange::AddProfile(const std::string& name) { RequestNamed(HostEvent::AddProfiles, name); }

void ProfileExchange::RemoveProfile(const std::string& name) {
    RequestNamed(HostEvent::RemoveProfiles, name);
}

bool ProfileExchange::HasHostError(const std::string& resultXml) {
    envelope_.ParseResult(resultXml, kResponse);
    return envelope_.LastErrorNumber() != 0;
}

void ProfileExchange::ReceiveProfileResponse(const std::string& resultXml, const std::string& functionName) {
    form_.SetMousePointer(kDefaultPointer);
    trap_.Run(kResponse, [&] {
        if (functionName == "GetProfileList") {
            TakeProfileList(resultXml);
        } else if (functionName == "GetProfiles") {
            state_.loaded ? TakeLaterProfile(resultXml) : TakeFirstProfile(resultXml);
        } else if (functionName == "PutProfiles") {
            if (!HasHostError(resultXml) && state_.loaded) actions_.View();
        } else if (functionName == "SaveProfileAs") {
            if (!HasHostError(resultXml)) TakeSavedAs(resultXml);
        } else if (functionName == "AddProfiles") {
            if (HasHostError(resultXml)) return;
            for (const std::string& name : ParseProfileIDs(resultXml)) state_.names.AddNew(name);
        } else if (functionName == "RemoveProfiles") {
            if (HasHostError(resultXml)) return;
            state_.names.RemoveEach(ParseProfileIDs(resultXml));
        }
    });
}

void ProfileExchange::TakeProfileList(const std::string& resultXml) {
    if (!HasHostError(resultXml) && HoldsProfileIDs(resultXml)) {
        state_.names.RemoveAll();
        for (const std::string& name : ParseProfileIDs(resultXml)) state_.names.AddNew(name);
    }
    if (!state_.loaded) GetProfile();
}

void ProfileExchange::TakeFirstProfile(const std::string& resultXml) {
    // Whatever the answer was worth, the start-up goes on to its end.
    if (!HasHostError(resultXml) && CarriesProfiles(resultXml))
        trap_.Run(kResponse, [&] { state_.set.LoadText(resultXml); });
    if (state_.set.Count() == 0) {
        state_.set.Add(kDefault);
        state_.names.RemoveAll();
        state_.names.Add(kDefault);
    }
    MakeFirstCurrent();
    actions_.ClientReady();
    state_.loaded = true;
}

void ProfileExchange::TakeLaterProfile(const std::string& resultXml) {
    if (HasHostError(resultXml) || !CarriesProfiles(resultXml)) return;
    QZWebProfiles loaded;
    loaded.LoadText(resultXml);
    if (!state_.requestedName || !loaded.Exists(*state_.requestedName)) return;
    state_.set = std::move(loaded);
    MakeFirstCurrent();
    state_.settingsLoaded = false;
    actions_.ShowNewProfile();
}

void ProfileExchange::MakeFirstCurrent() {
    state_.current = state_.set.Item(1);
    form_.lblCurrentProfile.SetCaption(state_.current->Name());
    form_.lblCurrentProfile.SetVisible(true);
    form_.lblProfile.SetVisible(true);
    document_.InitProfileSettings();
}

void ProfileExchange::TakeSavedAs(const std::string& resultXml) {
    if (!state_.pendingSaveAsName) return;
    const std::string saved = *state_.pendingSaveAsName;
    for (const std::string& name : ParseProfileIDs(resultXml)) {
        if (name != saved) continue;
        state_.names.AddNew(name);
        ChooseNewProfile(saved);
    }
}

}  // namespace dlv
