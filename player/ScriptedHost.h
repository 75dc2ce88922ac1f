// The host and the person of a recorded session: writes down every event, dialog and message box, makes
// the host steps that stand ready for an event inside it, and works the dialogs by their scripts.
#pragma once

#include <functional>
#include <vector>

#include "player/ScriptedOutput.h"
#include "player/SessionSteps.h"
#include "profiles/frmNewProfile.h"
#include "profiles/frmProfiles.h"
#include "ui/CaptionSource.h"
#include "ui/frmError.h"
#include "ui/frmGenAbout.h"
#include "webdata/HostEvents.h"
#include "widgets/Platform.h"

namespace dlv::player {

/// A catalogue that gives every key back, so that a transcript speaks in keys.
class KeysAsCaptions : public CaptionSource {
public:
    std::optional<std::string> Caption(std::string_view key) override { return std::string(key); }
    std::optional<std::string> LanguageID() override { return std::nullopt; }
};

/// Hears of the host's calls and the control's events while they are under way.
class SessionWatcher {
public:
    virtual ~SessionWatcher() = default;

    virtual void CallBegins(const Json& step) = 0;
    virtual void CallEnds(bool failed) = 0;
    /// Unlike in a transcript, documents are texts.
    virtual void EventBegins(const std::string& name, const Json& fields) = 0;
    virtual void EventEnds() = 0;
};

class ScriptedHost : public Platform, public HostEvents {
public:
    /// `makeStep` plays a host step inside an event.
    explicit ScriptedHost(std::function<void(const Json& step)> makeStep) : makeStep_(std::move(makeStep)) {}

    /// Gets ready for a step: its inline entries and its dialog scripts.
    void Begin(const Json& step);
    /// What was written down since `Begin`.
    Json TakeLog();
    void Log(Json entry) { log_.push_back(std::move(entry)); }

    void SetNow(TimeOfDay now) { now_ = now; }
    void SetSize(double width, double height) {
        width_ = width;
        height_ = height;
    }
    /// `watcher`, which may be null, outlives the host.
    void SetWatcher(SessionWatcher* watcher) { watcher_ = watcher; }
    SessionWatcher* Watcher() const { return watcher_; }
    void SetLanguage(std::string language) { language_ = std::move(language); }

    void PostRequest(const std::string& request) override;
    void Raise(HostEvent event, const DLVParams& params) override;

    TimeOfDay Now() override { return now_; }
    LocaleTime TimeSettings() override { return {}; }
    // Recorded sessions have no date.
    std::string DateAndTime() override { return {}; }
    std::string InterfaceLanguage() override { return language_; }
    double SurfaceWidth() override { return width_; }
    double SurfaceHeight() override { return height_; }
    double TextWidth(std::string_view text, bool bold) override;
    void Flush() override {}
    void ShowModal(ModalForm& form) override;
    Answer ShowMessageBox(const MessageBox& box) override;
    std::string ChooseSaveFile(const SaveDialog&) override { return file_; }
    std::unique_ptr<OutputFile> MakeFile(const std::string& name) override { return MakeScriptedFile(name); }
    std::unique_ptr<Printer> ChoosePrinter(Printer::Orientation) override {
        return MakeScriptedPrinter(file_);
    }
    // What the menu holds stands in the state; choosing from it is a step of its own.
    void ShowProfileMenu() override {}
    void ProcessPendingMessages() override {}

private:
    void Happened(const std::string& name);
    void EventHappened(const std::string& name, const Json& fields);
    void WorkNewProfile(frmNewProfile& form);
    void WorkProfiles(frmProfiles& form);

    std::function<void(const Json& step)> makeStep_;
    SessionWatcher* watcher_ = nullptr;
    Json log_ = Json::array();
    Json inline_ = Json::array();
    Json dialog_ = Json::array();
    Json actions_ = Json::array();
    bool confirm_ = false;
    /// Where the step's grid goes.
    std::string file_;
    TimeOfDay now_ = 0;
    double width_ = Pixels(1000);
    double height_ = Pixels(700);
    std::string language_ = "EN";
};

}  // namespace dlv::player
