// Writes what passes between a host and its control as a session that the player plays: the host's calls as
// steps, those made inside an event as its "inline" entries, and what a person did as far as the events
// outside of calls tell. The file is a session at any moment, also while a call is under way that never
// returns.
//
// Beside "steps" it has "events" (what each step raised, and the calls that failed), "observed" (events that
// no step leads to, and the number of the step before) and "notes" (where the session is not the whole
// truth).
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "hosts/recorder/Json.h"
#include "hosts/recorder/SessionMask.h"
#include "hosts/recorder/UserActions.h"

namespace dlv::recorder {

class SessionRecorder {
public:
    enum class Texts { AsTheyAre, Masked };
    enum class Meanwhile { Nothing, ADialogIsOpen };
    enum class Result { Succeeded, Failed };

    /// `out` can be written anew from where it stands, and outlives the recorder.
    SessionRecorder(std::ostream& out, Texts texts);
    SessionRecorder(const SessionRecorder&) = delete;
    SessionRecorder& operator=(const SessionRecorder&) = delete;

    /// The host has a new control, the first or another one: nothing is under way any more.
    void NewControl();
    /// A call of the host, a step without "inline", and its end. Calls and events end in the order in which
    /// they are nested.
    void BeginCall(Json step, Meanwhile meanwhile = Meanwhile::Nothing);
    void EndCall(Result result);
    /// An event with its fields that are not empty, and its end.
    void BeginEvent(const std::string& name, Json fields);
    void EndEvent();
    /// Something that a reader of the session has to know.
    void Note(const std::string& text);

private:
    struct Happening {
        std::string name;
        /// The call inside it; null without one.
        Json call;
    };
    struct Recorded {
        Json step;
        std::vector<Happening> happenings;
        Json log = Json::array();
    };
    struct Frame {
        bool event;
        /// Among the steps of the activity that is under way; kNone in an event that no step leads to.
        std::size_t step;
        std::size_t happening;
        std::string op;
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::size_t AddStep(Json step);
    std::size_t PlaceCall(Json step, Meanwhile meanwhile);
    Json Kept(Json entry);
    Frame TakeFrame();
    void Write();
    std::string StepText(const Recorded& recorded) const;
    std::string Rest(const Json& events) const;

    std::ostream& out_;
    const Texts texts_;
    SessionMask mask_;
    UserActions person_;
    std::vector<Frame> frames_;
    /// Since no call and no event was under way.
    std::vector<Recorded> activity_;
    std::size_t stepsBefore_ = 0;
    Json events_ = Json::array();
    Json observed_ = Json::array();
    Json notes_ = Json::array();
    std::streampos stepsEnd_;
};

}  // namespace dlv::recorder
