// The recorded sessions of this folder, and what comes of playing them.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "player/SessionSteps.h"

namespace dlv::player {

/// Unlike the player's own, these take no notice of the order of members.
using Plain = nlohmann::json;

/// The names of all files of a kind (".session.json"), in order, without the kind.
std::vector<std::string> NamesOf(const std::string& kind);
std::string Content(const std::string& name, const std::string& kind);
Json StepsOf(const std::string& session);

/// The transcript; with a language the control's own texts stand in it instead of keys.
Plain Play(const Json& steps, const std::optional<std::string>& language = std::nullopt);

/// The whole state at the end of a transcript.
Plain StateAfter(const Plain& transcript);

/// A data message of two units, A and B: three technicians, five open work orders.
Json GoodMessage(const std::string& now);

/// A session's name as that of a test.
std::string AsSentence(const testing::TestParamInfo<std::string>& info);

}  // namespace dlv::player
