#include "player/SessionPlayer.h"

#include "base/Number.h"
#include "base/Text.h"
#include "base/Trap.h"
#include "control/ControlState.h"
#include "player/SessionMessage.h"
#include "player/Transcript.h"
#include "player/VisibleTranscript.h"

namespace dlv::player {

namespace {

/// A value as the platform converts it to a 32-bit integer: a text must be a number as a whole.
std::int32_t ConvertedLong(const Json& value) {
    if (value.is_number()) return ToLong(value.get<double>());
    if (value.is_boolean()) return value.get<bool>() ? -1 : 0;
    if (!value.is_string()) RaiseTypeMismatch();
    return ToLong(ToDouble(value.get<std::string>()));
}

std::string ConvertedText(const Json& value) {
    if (value.is_string()) return value;
    if (value.is_boolean()) return value.get<bool>() ? "True" : "False";
    if (value.is_number()) return value.dump();
    RaiseTypeMismatch();
}

}  // namespace

SessionPlayer::SessionPlayer(std::optional<std::string> language, Told told)
    : language_(std::move(language)), told_(told), host_([this](const Json& step) { Make(step); }) {
    if (language_) host_.SetLanguage(*language_);
}

SessionPlayer::~SessionPlayer() = default;

DLViewer& SessionPlayer::Viewer() { return *viewer_; }

Json SessionPlayer::Play(const Json& step) {
    host_.Begin(step);
    if (step["op"] == "create") {
        viewer_ = std::make_unique<DLViewer>(host_, host_);
        state_ = Json::object();
        menu_ = nullptr;
    } else if (const auto reason = WhyStepIsLeftOut(step)) {
        return {{"leftOut", *reason}};
    } else {
        Make(step);
    }
    Json now = told_ == Told::Visible ? VisibleState(*viewer_, menu_) : StateTranscript(*viewer_);
    Json entry = {{"log", host_.TakeLog()}, {"changed", TakeChanges(state_, std::move(now))}};
    if (told_ == Told::Visible) entry["visible"] = true;
    return entry;
}

std::optional<std::string> SessionPlayer::WhyStepIsLeftOut(const Json& step) const {
    if (told_ != Told::Visible || IsHostCall(step["op"]) || viewer_->Stopped()) return std::nullopt;
    return WhyLeftOut(step, *viewer_);
}

void SessionPlayer::Make(const Json& step) {
    const std::string op = step["op"];
    if (!IsHostCall(op)) {
        if (!viewer_->Stopped()) MakeUserAction(step);
        return;
    }
    if (host_.Watcher() != nullptr) host_.Watcher()->CallBegins(step);
    const bool failed = IgnoreErrors([&] { MakeHostCall(step); }) == Outcome::Failed;
    if (failed) host_.Log({{"comError", op}});
    if (host_.Watcher() != nullptr) host_.Watcher()->CallEnds(failed);
}

void SessionPlayer::MakeHostCall(const Json& step) {
    const std::string op = step["op"];
    if (op == "initialize") {
        viewer_->Initialize(language_ ? nullptr : std::make_shared<KeysAsCaptions>());
    } else if (op == "stopControl") {
        viewer_->StopControl();
    } else if (op == "resizeControls") {
        host_.SetSize(step.contains("width") ? Pixels(step["width"].get<double>()) : host_.SurfaceWidth(),
                      step.contains("height") ? Pixels(step["height"].get<double>()) : host_.SurfaceHeight());
        viewer_->ResizeControls();
    } else if (op == "setRegionalFormatInfo") {
        viewer_->SetRegionalFormatInfo(step["language"]);
    } else if (op == "setSessionBUIDList") {
        viewer_->SetSessionBUIDList(step["ids"].get<std::vector<std::string>>());
    } else if (op == "receiveMessage") {
        ReceiveMessage(step);
    } else {
        const std::string result = step.contains("resultXML")
                                       ? step["resultXML"].get<std::string>()
                                       : ResultDocument(step.contains("error") ? &step["error"] : nullptr,
                                                        step.value("payload", Json("")));
        viewer_->ReceiveProfileResponse(result, step["function"]);
    }
}

void SessionPlayer::ReceiveMessage(const Json& step) {
    const auto message = MessageOf(step);
    const std::int32_t dataType = step.contains("dataType") ? ConvertedLong(step["dataType"]) : 0;
    const std::string tag = step.contains("tag") ? ConvertedText(step["tag"]) : "";
    // A call inside this one has a clock of its own.
    const TimeOfDay before = host_.Now();
    host_.SetNow(ClockOf(step["now"]));
    Finally(
        [&] {
            viewer_->ReceiveMessage({step.value("type", "QZWebMessage"), message}, dataType, tag);
        },
        [&] { host_.SetNow(before); });
}

void SessionPlayer::SelectUnits(const Json& ids) {
    ListView& list = viewer_->Controls().lvBU;
    for (std::size_t i = 0; i < list.Items().size(); ++i) {
        const std::string id(SkipCharacters(list.Items()[i].key, 1));
        list.SetSelected(i, std::find(ids.begin(), ids.end(), Json(id)) != ids.end());
    }
}

void SessionPlayer::SetNode(const Json& step, bool collapsed) {
    const int index = step["grid"];
    if (index < 0 || index > 2) return;
    OutlineGrid& grid = viewer_->Controls().vsFlex[index];
    int row = step.value("row", OutlineGrid::kNoRow);
    if (step.contains("data")) {
        const std::string data = step["data"];
        row = index == 0 && data == "TOTAL" ? grid.FixedRows() : grid.FindRow(data);
    }
    if (row >= grid.FixedRows() && row < grid.Rows()) grid.SetCollapsed(row, collapsed);
}

// Makes the step's cell the current one; false when the grid has no such cell.
bool SessionPlayer::GoTo(const Json& step) {
    const int index = step["grid"];
    if (index < 0 || index > 2) return false;
    OutlineGrid& grid = viewer_->Controls().vsFlex[index];
    const int row = step["row"];
    const int column = step["col"];
    if (row < 0 || row >= grid.Rows() || column < 0 || column >= grid.Columns()) return false;
    grid.SetCurrentCell(row, column);
    return true;
}

void SessionPlayer::MakeUserAction(const Json& step) {
    const std::string op = step["op"];
    ViewerForm& form = viewer_->Controls();
    const int index = step.value("index", -1);
    const bool either = index == 0 || index == 1;
    // Who wants a line of the menu opens it first.
    if (op == "profilesMenu" || (told_ == Told::Visible && IsMenuStep(op))) {
        viewer_->tbMain_ButtonClick("Profiles");
        menu_ = MenuTranscript(form);
    }
    if (op == "select") {
        SelectUnits(step["ids"]);
    } else if (op == "optBU" && either) {
        form.optBU.Select(index);
    } else if (op == "optDisplay" && either) {
        form.optDisplay.Select(index);
        viewer_->optDisplay_Click(index);
    } else if (op == "tab" && either) {
        form.Tabs.SelectTab(index + 1);
        viewer_->Tabs_Click();
    } else if (op == "view") {
        if (form.cmdView.Enabled()) viewer_->cmdView_Click();
    } else if (op == "collapse" || op == "expand") {
        SetNode(step, op == "collapse");
    } else if (op == "dblclick") {
        if (!GoTo(step)) return;
        viewer_->vsFlex_MouseDown(step["grid"], step.value("button", 1));
        viewer_->vsFlex_DblClick(step["grid"], step.value("mouseRow", step["row"].get<int>()),
                                 step.value("mouseCol", step["col"].get<int>()));
    } else if (op == "enter") {
        constexpr int kEnterKey = 13;
        if (GoTo(step)) viewer_->vsFlex_KeyDown(step["grid"], kEnterKey, step.value("shift", false));
    } else if (op == "techCount") {
        viewer_->lblTechCount_Click();
    } else if (op == "saveGrid") {
        viewer_->tbMain_ButtonClick("SaveGrid");
    } else if (op == "printGrid") {
        viewer_->tbMain_ButtonClick("PrintGrid");
    } else if (op == "about") {
        viewer_->tbMain_ButtonClick("Help");
    } else if (op == "menuProfile") {
        viewer_->mnuProfile_Click(index);
    } else if (op == "menuSave") {
        viewer_->mnuSaveProfile_Click();
    } else if (op == "menuSaveAs") {
        viewer_->mnuSaveProfileAs_Click();
    } else if (op == "menuManage") {
        viewer_->mnuManage_Click();
    }
}

Json TakeChanges(Json& before, Json now) {
    Json changed = Json::object();
    for (const auto& part : now.items())
        if (!before.contains(part.key()) || before[part.key()] != part.value())
            changed[part.key()] = part.value();
    before = std::move(now);
    return changed;
}

std::string WholeTranscript(const Json& steps, const std::function<Json(const Json& step)>& play) {
    std::string text = "[";
    for (const Json& step : steps) {
        if (text.size() > 1) text += ",\n ";
        text += play(step).dump(-1, ' ', false, Json::error_handler_t::replace);
    }
    return text + "]\n";
}

std::string PlaySession(const Json& steps, const std::optional<std::string>& language, Told told) {
    SessionPlayer player(language, told);
    return WholeTranscript(steps, [&](const Json& step) { return player.Play(step); });
}

}  // namespace dlv::player
