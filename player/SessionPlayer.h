// Plays a recorded session on a control without any window, and writes its transcript: what happened
// in each step and what of the state it changed.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "control/DLViewer.h"
#include "player/ScriptedHost.h"
#include "player/SessionSteps.h"

namespace dlv::player {

/// Whether a transcript tells the whole state, or only what is to be seen on a screen.
enum class Told { State, Visible };

class SessionPlayer {
public:
    /// With a language, captions are the control's own in that language; else keys.
    explicit SessionPlayer(std::optional<std::string> language, Told told = Told::State);
    ~SessionPlayer();

    /// The transcript entry of one step, which has passed the check of `ReadSteps`.
    Json Play(const Json& step);

    /// Tells of calls and events also while they are under way.
    void SetWatcher(SessionWatcher* watcher) { host_.SetWatcher(watcher); }

    /// Once the session's "create" was played.
    DLViewer& Viewer();
    /// Nothing for a step that will be made.
    std::optional<std::string> WhyStepIsLeftOut(const Json& step) const;

private:
    void Make(const Json& step);
    void MakeHostCall(const Json& step);
    void MakeUserAction(const Json& step);
    void ReceiveMessage(const Json& step);
    void SelectUnits(const Json& ids);
    void SetNode(const Json& step, bool collapsed);
    bool GoTo(const Json& step);

    std::optional<std::string> language_;
    Told told_;
    ScriptedHost host_;
    std::unique_ptr<DLViewer> viewer_;
    Json state_;
    Json menu_;
};

/// The parts of `now` that differ from `before`, which becomes `now`.
Json TakeChanges(Json& before, Json now);

/// What `play` makes of each step, one a line.
std::string WholeTranscript(const Json& steps, const std::function<Json(const Json& step)>& play);

/// The whole transcript of a session.
std::string PlaySession(const Json& steps, const std::optional<std::string>& language,
                        Told told = Told::State);

}  // namespace dlv::player
