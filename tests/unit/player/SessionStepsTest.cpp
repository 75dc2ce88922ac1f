// What the player says of a session that it cannot play.
#include "player/SessionSteps.h"

#include <gtest/gtest.h>

namespace dlv::player {

namespace {

std::string Refusal(const std::string& document) {
    try {
        ReadSteps(document);
    } catch (const SessionError& error) {
        return error.what();
    }
    return "";
}

TEST(Sessions, AreRefusedWithTheStepAndTheReason) {
    const struct {
        const char* document;
        const char* reason;
    } rows[] = {
        {"", "the session is not a JSON document"},
        {"[{\"op\": \"create\"}", "the session is not a JSON document"},
        {"{\"steps\": {}}", "the session is neither a list of steps nor an object with \"steps\""},
        {"7", "the session is neither a list of steps nor an object with \"steps\""},
        {R"([{"op": "initialize"}])", "step 1: the first step is \"create\""},
        {R"([{"op": "create"}, 7])", "step 2: no step: it has no \"op\""},
        {R"([{"op": "create"}, {"op": 7}])", "step 2: no step: it has no \"op\""},
        {R"([{"op": "create"}, {"op": "fly"}])", "step 2: unknown step \"fly\""},
        {R"([{"op": "create", "size": 7}])", "step 1: unknown field \"size\" of \"create\""},
        {R"([{"op": "create"}, {"op": "select"}])", "step 2: field \"ids\" of \"select\" is missing"},
        {R"([{"op": "create"}, {"op": "select", "ids": ["A", 7]}])",
         "step 2: field \"ids\" of \"select\" is of the wrong kind"},
        {R"([{"op": "create"}, {"op": "receiveMessage", "now": "25:00:00"}])",
         "step 2: field \"now\" of \"receiveMessage\" is of the wrong kind"},
        {R"([{"op": "create"}, {"op": "receiveMessage", "now": "1:2:3", "tables": {"T": {"cols": ["a"], "lines": []}}}])",
         "step 2: field \"tables\" of \"receiveMessage\" is of the wrong kind"},
        {R"([{"op": "create"}, {"op": "receiveProfileResponse", "function": "x", "error": ["7"]}])",
         "step 2: field \"error\" of \"receiveProfileResponse\" is of the wrong kind"},
        {R"([{"op": "create"}, {"op": "menuManage", "actions": [{"do": "fly"}]}])",
         "step 2: field \"actions\" of \"menuManage\" is of the wrong kind"},
        {R"([{"op": "create"}, {"op": "view", "inline": {}}])", "step 2: \"inline\" is not a list"},
        {R"([{"op": "create"}, {"op": "view", "inline": [["PutProfiles"]]}])",
         "step 2, inline 1: not a pair of event name and step"},
        {R"([{"op": "create"}, {"op": "view", "inline": [["PutProfiles", {"op": "view"}]]}])",
         "step 2, inline 1: \"view\" is not a host's call"}};
    for (const auto& row : rows) EXPECT_EQ(Refusal(row.document), row.reason) << row.document;
}

TEST(Sessions, MayBeAListOrAnObjectWithOtherMembers) {
    EXPECT_EQ(ReadSteps(R"([{"op": "create"}])"), ReadSteps(R"({"about": 7, "steps": [{"op": "create"}]})"));
    EXPECT_EQ(ReadSteps("[]").size(), 0u);
}

}  // namespace

}  // namespace dlv::player
