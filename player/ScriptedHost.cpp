#include "player/ScriptedHost.h"

#include <algorithm>

#include "base/Text.h"
#include "player/Transcript.h"

namespace dlv::player {

namespace {

constexpr double kCharacterWidth = Pixels(6);

const char* EventName(HostEvent event) {
    switch (event) {
        case HostEvent::PostRequest: return "PostRequest";
        case HostEvent::GetDetails: return "GetDetails";
        case HostEvent::GetProfiles: return "GetProfiles";
        case HostEvent::GetProfileList: return "GetProfileList";
        case HostEvent::PutProfiles: return "PutProfiles";
        case HostEvent::AddProfiles: return "AddProfiles";
        case HostEvent::RemoveProfiles: return "RemoveProfiles";
        case HostEvent::SaveProfileAs: return "SaveProfileAs";
    }
    return "";
}

Json FieldsOf(const DLVParams& params) {
    Json fields = Json::object();
    const std::pair<const char*, const std::string*> texts[] = {
        {"BUID", &params.BUID},
        {"JobType", &params.JobType},
        {"JobClass", &params.JobClass},
        {"JobStatus", &params.JobStatus},
        {"Info", &params.Info},
        {"JeopardyThreshold", &params.JeopardyThreshold},
        {"ProfileName", &params.ProfileName},
        {"UserID", &params.UserID},
        {"ApplicationID", &params.ApplicationID},
        {"ResultXML", &params.ResultXML}};
    for (const auto& [name, text] : texts)
        if (!text->empty()) fields[name] = *text;
    if (!params.ProfilesXML.empty()) fields["ProfilesXML"] = params.ProfilesXML;
    return fields;
}

bool Confirms(const Json& script) { return script.value("confirm", "no") == "yes"; }

}  // namespace

void ScriptedHost::Begin(const Json& step) {
    inline_ = step.value("inline", Json::array());
    dialog_ = step.value("dialog", Json::array());
    actions_ = step.value("actions", Json::array());
    confirm_ = Confirms(step);
    file_ = step.value("file", "");
}

Json ScriptedHost::TakeLog() { return std::exchange(log_, Json::array()); }

void ScriptedHost::Happened(const std::string& name) {
    const auto ready =
        std::find_if(inline_.begin(), inline_.end(), [&](const Json& e) { return e[0] == name; });
    if (ready == inline_.end()) return;
    const Json step = (*ready)[1];
    inline_.erase(ready);
    makeStep_(step);
}

void ScriptedHost::EventHappened(const std::string& name, const Json& fields) {
    Json told = fields;
    if (told.contains("ProfilesXML")) told["ProfilesXML"] = ProfileSetTranscript(told["ProfilesXML"]);
    Log({{"event", name}, {"fields", std::move(told)}});
    if (watcher_ != nullptr) watcher_->EventBegins(name, fields);
    Happened(name);
    if (watcher_ != nullptr) watcher_->EventEnds();
}

void ScriptedHost::PostRequest(const std::string& request) {
    EventHappened("PostRequest", {{"Params", request}});
}

void ScriptedHost::Raise(HostEvent event, const DLVParams& params) {
    EventHappened(EventName(event), FieldsOf(params));
}

double ScriptedHost::TextWidth(std::string_view text, bool) {
    return kCharacterWidth * static_cast<double>(ToUtf16(text).size());
}

void ScriptedHost::ShowModal(ModalForm& form) {
    if (auto* error = dynamic_cast<frmError*>(&form)) {
        Log({{"error", std::stoi(error->lblErrNum.Caption())},
             {"location", error->lblErrLoc.Caption()},
             {"description", error->lblErrStr.Caption()}});
        Happened("#error");
    } else if (auto* newProfile = dynamic_cast<frmNewProfile*>(&form)) {
        WorkNewProfile(*newProfile);
    } else if (auto* profiles = dynamic_cast<frmProfiles*>(&form)) {
        WorkProfiles(*profiles);
    } else if (auto* about = dynamic_cast<frmGenAbout*>(&form)) {
        Log({{"dialog", "frmGenAbout"},
             {"title", about->Caption()},
             {"product", about->lblTitle.Caption()},
             {"description", about->lblDescription.Caption()},
             {"comments", about->lblComments.Caption()},
             {"rights", about->lblRights.Caption()},
             {"version", about->lblVersion.Caption()}});
        about->Click(about->cmdOK);
    }
}

void ScriptedHost::WorkNewProfile(frmNewProfile& form) {
    Log({{"dialog", "frmNewProfile"}, {"prompt", form.lblIntro.Caption()}, {"title", form.Caption()}});
    const Json script = std::exchange(dialog_, Json::array());
    form.GotFocus(form.txtName);
    for (const Json& entry : script) {
        if (form.Closed()) return;
        if (entry.contains("text")) form.txtName.SetText(entry["text"]);
        form.Tick();
        Button& button = entry.value("button", "ok") == "ok" ? form.cmdOK : form.cmdCancel;
        if (button.Enabled()) form.Click(button);
    }
    if (!form.Closed()) form.Click(form.cmdCancel);
}

void ScriptedHost::WorkProfiles(frmProfiles& form) {
    Log({{"dialog", "frmProfiles"},
         {"names", form.lstProfiles.Items()},
         {"selected", form.lstProfiles.ListIndex()},
         {"enabled", form.cmdChoose.Enabled()}});
    // A dialog that opens from inside this one goes on with the same script.
    while (!form.Closed() && !actions_.empty()) {
        const Json action = actions_[0];
        actions_.erase(0);
        if (action.contains("name")) {
            const auto& items = form.lstProfiles.Items();
            const auto found = std::ranges::find(items, action["name"].get<std::string>());
            if (found != items.end()) form.lstProfiles.SetListIndex(static_cast<int>(found - items.begin()));
        }
        form.Tick();
        dialog_ = action.value("dialog", Json::array());
        confirm_ = Confirms(action);
        const std::string verb = action["do"];
        Button& button = verb == "choose"   ? form.cmdChoose
                         : verb == "new"    ? form.cmdNew
                         : verb == "remove" ? form.cmdRemove
                                            : form.cmdClose;
        if (button.Enabled()) form.Click(button);
    }
    actions_.clear();
    if (!form.Closed()) form.Click(form.cmdClose);
}

Answer ScriptedHost::ShowMessageBox(const MessageBox& box) {
    const bool question = box.buttons == MessageBox::Buttons::YesNo;
    Log({{"box", box.text}, {"buttons", question ? "yesno" : "ok"}, {"title", box.title}});
    if (!question) return Answer::Ok;
    return confirm_ ? Answer::Yes : Answer::No;
}

}  // namespace dlv::player
