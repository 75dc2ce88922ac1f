// The steps of a recorded session: which there are, and which fields each may have. A session is
// checked whole before anything of it is played.
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

namespace dlv::player {

using Json = nlohmann::ordered_json;

/// What is wrong with a session, in words for the one who wrote it.
class SessionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The list of steps of a session document. Throws SessionError for a document that is none, for a
/// step or field that the player does not know, and for a field of the wrong kind.
Json ReadSteps(const std::string& document);

/// Whether a step is a call of the host's, and not something that a person does.
bool IsHostCall(const std::string& op);

}  // namespace dlv::player
