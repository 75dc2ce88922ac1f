#include "player/RecordingCheck.h"

#include <map>

#include "base/Trap.h"
#include "player/SessionPlayer.h"
#include "player/Transcript.h"

namespace dlv::player {

namespace {

/// Takes no notice of the order of members.
using Plain = nlohmann::json;

/// An entry as the log of a transcript has it.
Plain AsLogged(Json entry) {
    entry.erase("step");
    if (entry.contains("fields") && entry["fields"].contains("ProfilesXML")) {
        Json& document = entry["fields"]["ProfilesXML"];
        if (document.is_string()) IgnoreErrors([&] { document = ProfileSetTranscript(document); });
    }
    return Plain::parse(entry.dump(-1, ' ', false, Json::error_handler_t::replace));
}

Plain WhatAHostSees(const Json& log) {
    Plain seen = Plain::array();
    for (const Json& entry : log)
        if (entry.contains("event") || entry.contains("comError")) seen.push_back(AsLogged(entry));
    return seen;
}

}  // namespace

std::vector<std::string> RecordingDifferences(const std::string& document) {
    const Json steps = ReadSteps(document);
    const Json session = Json::parse(document);
    if (!session.is_object() || !session.contains("events"))
        throw SessionError("the session has no \"events\" to compare with");
    std::map<std::size_t, Plain> recorded;
    for (const Json& entry : session["events"]) {
        if (!entry.is_object() || !entry.value("step", Json()).is_number_unsigned())
            throw SessionError("an entry of \"events\" has no \"step\"");
        recorded.try_emplace(entry["step"], Plain::array()).first->second.push_back(AsLogged(entry));
    }
    SessionPlayer player(std::nullopt);
    std::vector<std::string> differences;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const Plain played = WhatAHostSees(player.Play(steps[i])["log"]);
        const auto found = recorded.find(i + 1);
        const Plain wanted = found == recorded.end() ? Plain::array() : found->second;
        if (played != wanted)
            differences.push_back("step " + std::to_string(i + 1) + ", " + steps[i]["op"].get<std::string>() +
                                  "\n  recorded " + wanted.dump() + "\n  played   " + played.dump());
    }
    return differences;
}

}  // namespace dlv::player
