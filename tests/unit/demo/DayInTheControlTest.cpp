// The sample day as the control shows it: played like a host's session, without any window.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "hosts/demo/workday/DayMessages.h"
#include "hosts/demo/workday/ProfileStore.h"
#include "player/SessionPlayer.h"

namespace dlv::demo {
namespace {

using nlohmann::json;

json Answer(ProfileStore& store, const char* function) {
    return {{"op", "receiveProfileResponse"},
            {"function", function},
            {"resultXML", store.Answer(function, std::string(kDefaultProfile), "")}};
}

TEST(DayInTheControl, FillsBothViewsWithWhatTheDefaultProfileSelects) {
    ProfileStore store;
    WorkingDay day(1);
    json ids = json::array();
    for (const Unit& unit : Units()) ids.push_back(unit.id);
    json steps = {{{"op", "create"}},
                  {{"op", "initialize"}},
                  {{"op", "setRegionalFormatInfo"}, {"language", "EN"}},
                  {{"op", "setSessionBUIDList"}, {"ids", ids}},
                  Answer(store, "GetProfileList"),
                  Answer(store, "GetProfiles")};
    for (int minute = 0; minute < WorkingDay::kMinutes; minute += 180, day.Advance(180))
        steps.push_back({{"op", "receiveMessage"},
                         {"document", FiguresMessage(day, Language::English, 1)},
                         {"now", "10:00:00"}});

    const json transcript = json::parse(player::PlaySession(player::ReadSteps(steps.dump()), std::nullopt));
    json latest;
    for (const json& step : transcript) {
        for (const json& entry : step["log"]) EXPECT_TRUE(entry.contains("event")) << entry;
        latest.update(step["changed"]);
    }
    EXPECT_EQ(latest["profile"], "Default");
    EXPECT_EQ(latest["mode"], 1);
    int selected = 0;
    for (const json& unit : latest["units"]) selected += unit[2].get<bool>();
    EXPECT_EQ(latest["units"].size(), Units().size());
    EXPECT_EQ(selected, 4);
    EXPECT_EQ(latest["grid1"].size(), Units().size() + 1);
    int groups = 0;
    for (const json& row : latest["grid0"]) groups += row["grey"].get<bool>();
    EXPECT_EQ(groups, 1 + static_cast<int>(kJobTypes));
}

}  // namespace
}  // namespace dlv::demo
