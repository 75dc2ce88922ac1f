// Every recorded session once more for every event and error dialog of it, with a host's call inside: a stop
// ends all that is under way, and after any other call the control still works.
#include <gtest/gtest.h>

#include <map>

#include "tests/sessions/SessionFiles.h"

namespace dlv::player {

namespace {

/// The place of an event or error dialog: the how-many-eth of its name within which step.
struct Way {
    std::size_t step;
    std::string name;
    std::size_t number;
};

std::vector<Way> WaysOf(const Plain& transcript) {
    std::vector<Way> ways;
    for (std::size_t step = 0; step < transcript.size(); ++step) {
        std::map<std::string, std::size_t> numbers;
        for (const Plain& entry : transcript[step]["log"]) {
            if (!entry.contains("event") && !entry.contains("error")) continue;
            const std::string name = entry.contains("event") ? entry["event"].get<std::string>() : "#error";
            ways.push_back({step, name, numbers[name]++});
        }
    }
    return ways;
}

/// The steps with a call inside that event. What the session itself does inside events before it stays.
Json WithCallInside(const Json& steps, const Way& way, const Json& call) {
    Json changed = steps;
    Json inside = Json::array();
    std::size_t number = 0;
    for (const Json& entry : steps[way.step].value("inline", Json::array())) {
        if (entry[0] == way.name && number++ >= way.number) continue;
        inside.push_back(entry);
    }
    // A call that changes nothing stands for each of that name before it.
    for (; number < way.number; ++number) inside.push_back({way.name, {{"op", "resizeControls"}}});
    inside.push_back({way.name, call});
    changed[way.step]["inline"] = inside;
    return changed;
}

class InsideEvents : public testing::TestWithParam<std::string> {
protected:
    const Json steps_ = StepsOf(GetParam());
    const std::vector<Way> ways_ = WaysOf(Play(steps_));
};

TEST_P(InsideEvents, AStopEndsEverything) {
    for (const Way& way : ways_) {
        SCOPED_TRACE("stop inside " + way.name + " of step " + std::to_string(way.step + 1));
        const Plain played = Play(WithCallInside(steps_, way, {{"op", "stopControl"}}));
        const Plain& log = played[way.step]["log"];
        ASSERT_FALSE(log.empty());
        const Plain& last = log.back();
        EXPECT_EQ(last.value("event", "#error"), way.name) << "the last that happens";
        EXPECT_TRUE(played[way.step]["changed"].value("stopped", false));
        for (std::size_t step = way.step + 1; step < played.size(); ++step) {
            EXPECT_TRUE(played[step]["changed"].empty()) << step + 1;
            for (const Plain& entry : played[step]["log"]) EXPECT_TRUE(entry.contains("comError")) << entry;
        }
    }
}

Json CallsInside() {
    const Json none = Json::array();
    const Json profile = {{"name", "Default"}, {"sections", Json::object()}};
    return {{{"op", "receiveMessage"}, {"name", "DLVServerStopped"}, {"now", "12:00:00"}},
            {{"op", "receiveMessage"}, {"name", "DLVData"}, {"now", "12:00:00"}},
            GoodMessage("12:00:00"),
            {{"op", "receiveProfileResponse"}, {"function", "GetProfileList"}, {"payload", ""}},
            {{"op", "receiveProfileResponse"}, {"function", "GetProfiles"}, {"payload", {profile}}},
            {{"op", "receiveProfileResponse"},
             {"function", "GetProfiles"},
             {"error", {"7", "no"}},
             {"payload", ""}},
            {{"op", "receiveProfileResponse"}, {"function", "PutProfiles"}, {"payload", ""}},
            {{"op", "setSessionBUIDList"}, {"ids", {"A", "N1"}}},
            {{"op", "initialize"}}};
}

TEST_P(InsideEvents, AnyOtherCallLeavesAControlThatWorks) {
    const Json calls = CallsInside();
    std::size_t next = 0;
    for (const Way& way : ways_) {
        const Json& call = calls[next++ % calls.size()];
        SCOPED_TRACE(call.dump().substr(0, 90) + " inside " + way.name + " of step " +
                     std::to_string(way.step + 1));
        Json changed = WithCallInside(steps_, way, call);
        // Units of the good message may be seen; what other messages left is replaced.
        changed.push_back({{"op", "setSessionBUIDList"}, {"ids", {"A", "B"}}});
        changed.push_back(GoodMessage("12:34:00"));
        changed.push_back({{"op", "select"}, {"ids", {"A", "B"}}});
        changed.push_back({{"op", "optBU"}, {"index", 0}});
        changed.push_back({{"op", "view"}});
        const Plain played = Play(changed);
        const Plain now = StateAfter(played);
        if (now["stopped"]) continue;  // the session itself stops the control
        EXPECT_EQ(played[played.size() - 4]["log"], Plain::array()) << "nothing is reported";
        EXPECT_EQ(now["refresh"]["last"], "12:34:00");
        EXPECT_EQ(now["status"]["visible"], false);
        EXPECT_EQ(now["viewEnabled"], true);
        EXPECT_EQ(now["panel"]["lblTechCount"], "3");
        EXPECT_EQ(now["units"], Plain::parse(R"([["A", "a", true], ["B", "b", true]])"));
        EXPECT_EQ(now["grid1"].size(), 3u);
        EXPECT_EQ(now["grid0"].back()["cells"][3], "5");
    }
}

INSTANTIATE_TEST_SUITE_P(Recorded, InsideEvents, testing::ValuesIn(NamesOf(".session.json")), AsSentence);

}  // namespace

}  // namespace dlv::player
