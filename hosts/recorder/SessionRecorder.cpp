#include "hosts/recorder/SessionRecorder.h"

#include <algorithm>
#include <utility>

#include "hosts/recorder/HostSteps.h"

namespace dlv::recorder {

namespace {

constexpr const char* kErrorDialog = "#error";

/// Stands in an event without a call, where a later event of that name has one: the control passes it over.
Json NoCall() { return {{"op", "receiveMessage"}, {"type", "Nothing"}, {"now", "00:00:00"}}; }

std::string TextOf(const Json& value) { return value.dump(-1, ' ', false, Json::error_handler_t::replace); }

/// A list with one entry a line.
std::string LinesOf(const Json& list) {
    std::string text = "[";
    for (const Json& entry : list) text += (text.size() == 1 ? "\n  " : ",\n  ") + TextOf(entry);
    return text + "]";
}

}  // namespace

SessionRecorder::SessionRecorder(std::ostream& out, Texts texts) : out_(out), texts_(texts) {
    out_ << "{\"steps\": [";
    stepsEnd_ = out_.tellp();
    Write();
}

void SessionRecorder::NewControl() {
    frames_.clear();
    person_ = {};
    AddStep(Step("create"));
    Write();
}

Json SessionRecorder::Kept(Json entry) {
    return texts_ == Texts::Masked ? mask_.Masked(std::move(entry)) : entry;
}

std::size_t SessionRecorder::AddStep(Json step) {
    activity_.push_back({Kept(std::move(step)), {}});
    return activity_.size() - 1;
}

void SessionRecorder::BeginCall(Json step, Meanwhile meanwhile) {
    const std::string op = step["op"];
    if (op == "receiveProfileResponse") person_.HostAnswers(step["function"], step["resultXML"]);
    frames_.push_back({false, PlaceCall(std::move(step), meanwhile), kNone, op});
    Write();
}

std::size_t SessionRecorder::PlaceCall(Json step, Meanwhile meanwhile) {
    if (frames_.empty() || frames_.back().step == kNone) return AddStep(std::move(step));
    Frame& outer = frames_.back();
    std::vector<Happening>& happenings = activity_[outer.step].happenings;
    // A dialog opens inside a call without telling the host; it is told of by the first call that comes
    // meanwhile.
    if (!outer.event && outer.happening == kNone && meanwhile == Meanwhile::ADialogIsOpen) {
        outer.happening = happenings.size();
        happenings.push_back({kErrorDialog, nullptr});
    }
    if (outer.happening != kNone && happenings[outer.happening].call.is_null()) {
        happenings[outer.happening].call = Kept(std::move(step));
        return outer.step;
    }
    const std::size_t place = AddStep(std::move(step));
    const auto number = [this](std::size_t at) { return std::to_string(stepsBefore_ + at + 1); };
    Note("step " + number(place) + " was called while step " + number(outer.step) + " was under way, " +
         (outer.event ? "as a further call in one event" : "outside of its events"));
    return place;
}

SessionRecorder::Frame SessionRecorder::TakeFrame() {
    const Frame frame = std::move(frames_.back());
    frames_.pop_back();
    return frame;
}

void SessionRecorder::EndCall(Result result) {
    const Frame frame = TakeFrame();
    if (result == Result::Failed) activity_[frame.step].log.push_back({{"comError", frame.op}});
    if (frames_.empty()) Write();
}

void SessionRecorder::BeginEvent(const std::string& name, Json fields) {
    person_.Raised(name, fields);
    std::size_t place = frames_.empty() ? kNone : frames_.back().step;
    if (place == kNone)
        for (Json& step : person_.StepsBehind(name, fields)) place = AddStep(std::move(step));
    Json entry = Kept({{"event", name}, {"fields", std::move(fields)}});
    std::size_t happening = kNone;
    if (place == kNone) {
        entry["after"] = stepsBefore_ + activity_.size();
        observed_.push_back(std::move(entry));
    } else {
        Recorded& recorded = activity_[place];
        happening = recorded.happenings.size();
        recorded.happenings.push_back({name, nullptr});
        recorded.log.push_back(std::move(entry));
    }
    frames_.push_back({true, place, happening, {}});
    Write();
}

void SessionRecorder::EndEvent() {
    TakeFrame();
    if (frames_.empty()) Write();
}

void SessionRecorder::Note(const std::string& text) { notes_.push_back(text); }

std::string SessionRecorder::StepText(const Recorded& recorded) const {
    Json entries = Json::array();
    const auto& all = recorded.happenings;
    for (auto it = all.begin(); it != all.end(); ++it) {
        const bool wanted = std::any_of(it, all.end(), [&](const Happening& later) {
            return later.name == it->name && !later.call.is_null();
        });
        if (wanted) entries.push_back({it->name, it->call.is_null() ? NoCall() : it->call});
    }
    Json step = recorded.step;
    if (!entries.empty()) step["inline"] = std::move(entries);
    return TextOf(step);
}

std::string SessionRecorder::Rest(const Json& events) const {
    return "\n],\n\"events\": " + LinesOf(events) + ",\n\"observed\": " + LinesOf(observed_) +
           ",\n\"notes\": " + LinesOf(notes_) + "}\n";
}

// What has been written only grows, so that nothing of an earlier end is left behind.
void SessionRecorder::Write() {
    std::string steps;
    Json events = Json::array();
    for (std::size_t i = 0; i < activity_.size(); ++i) {
        steps += (stepsBefore_ + i == 0 ? "\n  " : ",\n  ") + StepText(activity_[i]);
        for (const Json& logged : activity_[i].log) {
            Json entry = {{"step", stepsBefore_ + i + 1}};
            entry.update(logged);
            events.push_back(std::move(entry));
        }
    }
    out_.seekp(stepsEnd_);
    out_ << steps;
    const std::streampos end = out_.tellp();
    if (frames_.empty()) {
        stepsBefore_ += activity_.size();
        activity_.clear();
        stepsEnd_ = end;
        for (Json& entry : events) events_.push_back(std::move(entry));
        out_ << Rest(events_);
    } else {
        Json all = events_;
        all.insert(all.end(), events.begin(), events.end());
        out_ << Rest(all);
    }
    out_.flush();
}

}  // namespace dlv::recorder
