// The sample day as the control shows it: played like a host's session, without any window.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <optional>

#include "hosts/demo/workday/DayMessages.h"
#include "hosts/demo/workday/DayRecords.h"
#include "hosts/demo/workday/ProfileStore.h"
#include "hosts/demo/workday/ReadyProfiles.h"
#include "player/SessionPlayer.h"

namespace dlv::demo {
namespace {

using nlohmann::json;

json Answer(ProfileStore& store, const char* function) {
    return {{"op", "receiveProfileResponse"},
            {"function", function},
            {"resultXML", store.Answer(function, std::string(kDefaultProfile), "")}};
}

/// A session up to where figures can be sent.
json StepsBeforeFigures(ProfileStore& store) {
    json ids = json::array();
    for (const Unit& unit : Units()) ids.push_back(unit.id);
    return {{{"op", "create"}},
            {{"op", "initialize"}},
            {{"op", "setRegionalFormatInfo"}, {"language", "EN"}},
            {{"op", "setSessionBUIDList"}, {"ids", ids}},
            Answer(store, "GetProfileList"),
            Answer(store, "GetProfiles")};
}

json FiguresStep(const WorkingDay& day) {
    return {{"op", "receiveMessage"},
            {"document", FiguresMessage(day, Language::English, 1)},
            {"now", "10:00:00"}};
}

TEST(DayInTheControl, FillsBothViewsWithWhatTheDefaultProfileSelects) {
    ProfileStore store;
    WorkingDay day(1);
    json steps = StepsBeforeFigures(store);
    for (int minute = 0; minute < WorkingDay::kMinutes; minute += 180, day.Advance(180))
        steps.push_back(FiguresStep(day));

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

/// How many records the host has for what a step asks for; none when it asks for nothing.
std::optional<std::size_t> RecordsAskedFor(const json& entry, const WorkingDay& day) {
    for (const json& logged : entry["log"]) {
        if (logged.value("event", "") != "GetDetails") continue;
        const json& fields = logged["fields"];
        const auto field = [&](const char* name) { return fields.value(name, std::string()); };
        return RecordsBehind(day, {.BUID = field("BUID"),
                                   .JobType = field("JobType"),
                                   .JobClass = field("JobClass"),
                                   .JobStatus = field("JobStatus"),
                                   .Info = field("Info")})
            .rows.size();
    }
    return std::nullopt;
}

TEST(DayInTheControl, GivesTheHostWhatItNeedsToListWhatEachFigureCounts) {
    constexpr int kHeaderRows = 2;
    ProfileStore store;
    WorkingDay day(1);
    day.Advance(260);
    player::SessionPlayer player("EN");
    json state;
    const auto play = [&](const json& step) {
        const json entry = player.Play(step);
        state.update(entry["changed"]);
        return entry;
    };
    for (const json& step : StepsBeforeFigures(store)) play(step);
    play(FiguresStep(day));
    const json whole = state;
    const struct {
        const char* name;
        int grid, firstColumn, lastColumn;
    } parts[] = {{"grid0", 0, 3, 9}, {"grid1", 1, 1, 1}, {"grid1", 1, 4, 10}};
    int asked = 0;
    for (const auto& part : parts) {
        const json& rows = whole[part.name];
        for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
            // Nothing was added up there.
            const bool empty = part.grid == 1 && rows[row]["cells"][1] == "";
            for (int column = part.firstColumn; column <= part.lastColumn; ++column) {
                // Playing takes its time: every third figure, in each row and column others.
                if (part.grid == 0 && (row + column) % 3 != 0) continue;
                const std::string text = rows[row]["cells"][column];
                const json step = {
                    {"op", "dblclick"}, {"grid", part.grid}, {"row", row + kHeaderRows}, {"col", column}};
                const auto figure = text.empty() ? 0U : std::stoul(text);
                ASSERT_EQ(RecordsAskedFor(play(step), day), empty ? std::nullopt : std::optional(figure))
                    << rows[row] << " " << column;
                asked += !empty;
            }
        }
    }
    EXPECT_GT(asked, 120);
    const std::string technicians = whole["panel"]["lblTechCount"];
    EXPECT_EQ(RecordsAskedFor(play({{"op", "techCount"}}), day), std::stoul(technicians));
}

}  // namespace
}  // namespace dlv::demo
