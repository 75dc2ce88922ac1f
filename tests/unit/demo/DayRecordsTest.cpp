// As many records as the figure says that they are behind, at any time of the day.
#include "hosts/demo/workday/DayRecords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "base/Text.h"

namespace dlv::demo {
namespace {

constexpr std::uint32_t kSeed = 7;
constexpr int kMinutes[] = {0, 125, 260, 480, WorkingDay::kMinutes};
constexpr const char* kStatusCodes[kStatuses] = {"WOOpen",      "WOWarning",  "WOJeopardy", "WOLate",
                                                 "WOCompleted", "WOCanceled", "WONotDone"};
constexpr std::size_t kPointsColumn = 7;

std::string AllUnits() {
    std::vector<std::string_view> ids;
    for (const Unit& unit : Units()) ids.push_back(unit.id);
    return Join(ids, '|');
}

const std::string kUnitSets[] = {"112", "10|110|111|120", AllUnits(), "", "nowhere|222|222"};

bool Holds(const std::string& ids, std::string_view id) {
    const auto pieces = Split(ids, '|');
    return std::ranges::find(pieces, id) != pieces.end();
}

/// The figures of the units' kinds of jobs, added up; an empty code stands for all.
Counters FiguresOf(const WorkingDay& day, const DLVParams& asked) {
    Counters sum{};
    for (std::size_t unit = 0; unit < Units().size(); ++unit) {
        if (!Holds(asked.BUID, Units()[unit].id)) continue;
        for (const auto& job : day.FiguresOf(unit)) {
            if (!asked.JobType.empty() && asked.JobType != JobTypes()[job.jobType].code.code) continue;
            if (!asked.JobClass.empty() && asked.JobClass != JobClasses()[job.jobClass].code.code) continue;
            for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += job.counters[i];
        }
    }
    return sum;
}

void ExpectCounted(const WorkingDay& day, DLVParams asked) {
    SCOPED_TRACE(std::to_string(day.Minute()) + ": " + asked.BUID + " " + asked.JobType + " " +
                 asked.JobClass);
    const Counters figures = FiguresOf(day, asked);
    for (std::size_t status = 0; status < kStatuses; ++status) {
        asked.JobStatus = kStatusCodes[status];
        const RecordTable table = RecordsBehind(day, asked);
        EXPECT_EQ(table.rows.size(), static_cast<std::size_t>(figures[status])) << asked.JobStatus;
        int points = 0;
        for (const auto& row : table.rows) points += std::stoi(row[kPointsColumn].text);
        EXPECT_EQ(points, figures[kStatuses + status]) << asked.JobStatus;
    }
    asked.JobStatus.clear();
    EXPECT_EQ(RecordsBehind(day, asked).rows.size(),
              static_cast<std::size_t>(figures[kOpen] + figures[kCompleted] + figures[kCanceled] +
                                       figures[kNotDone]));
}

TEST(DayRecords, AreAsManyWorkOrdersAndPointsAsTheFigureSaysAllDay) {
    std::vector<std::string> types{""}, classes{""};
    for (const JobType& type : JobTypes()) types.emplace_back(type.code.code);
    for (const JobClass& kind : JobClasses()) classes.emplace_back(kind.code.code);
    WorkingDay day(kSeed);
    for (const int minute : kMinutes) {
        day.Advance(minute - day.Minute());
        for (const std::string& units : kUnitSets)
            for (const std::string& type : types)
                for (const std::string& kind : classes)
                    ExpectCounted(day,
                                  {.BUID = units, .JobType = type, .JobClass = kind, .Info = "WORKORDER"});
    }
}

TEST(DayRecords, AreAllTechniciansOfTheUnitsAndWhatTheyHaveDone) {
    WorkingDay day(kSeed);
    for (const int minute : kMinutes) {
        day.Advance(minute - day.Minute());
        for (const std::string& units : kUnitSets) {
            SCOPED_TRACE(std::to_string(minute) + ": " + units);
            std::size_t technicians = 0;
            for (const Unit& unit : Units())
                if (Holds(units, unit.id)) technicians += static_cast<std::size_t>(unit.technicians);
            const RecordTable table = RecordsBehind(day, {.BUID = units, .Info = "USER"});
            ASSERT_EQ(table.rows.size(), technicians);

            // Nobody is two people, and an order that is worked on is an open order of one technician.
            std::set<std::string> open, names;
            for (const auto& row :
                 RecordsBehind(day, {.BUID = units, .JobStatus = "WOOpen", .Info = "WORKORDER"}).rows)
                if (!row[6].text.empty()) open.insert(row[0].text + row[6].text);
            std::size_t busy = 0;
            int done = 0;
            for (const auto& row : table.rows) {
                names.insert(row[0].text);
                done += std::stoi(row[3].text);
                if (row[2].text == "free") continue;
                ++busy;
                EXPECT_TRUE(open.contains(row[2].text + row[0].text)) << row[2].text;
            }
            EXPECT_EQ(names.size(), technicians);
            EXPECT_EQ(busy, open.size());
            EXPECT_EQ(done, FiguresOf(day, {.BUID = units})[kCompleted]);
        }
    }
}

TEST(DayRecords, AreCalledByWhatWasAskedFor) {
    const struct {
        DLVParams asked;
        const char *title, *count;
    } rows[] = {
        {{.BUID = "112", .JobType = "RP", .JobClass = "RES", .JobStatus = "WONotDone", .Info = "WORKORDER"},
         "Work orders – Not done, Repair, Residential, Harbor Point",
         "No work orders"},
        {{.BUID = "120|20", .JobClass = "TV", .JobStatus = "WOLost", .Info = "WORKORDER"},
         "Work orders – WOLost, Television, 2 units",
         "No work orders"},
        {{.BUID = AllUnits(), .JobType = "??", .Info = "WORKORDER"},
         "Work orders – ??, all units",
         "No work orders"},
        {{.BUID = "310", .Info = "USER"}, "Technicians – Meadow District", "3 technicians"},
        {{.Info = "USER"}, "Technicians – no unit", "No technicians"},
    };
    const WorkingDay morning(kSeed);
    for (const auto& row : rows) {
        const RecordTable table = RecordsBehind(morning, row.asked);
        EXPECT_EQ(table.title, row.title);
        EXPECT_EQ(table.count, row.count) << row.title;
        EXPECT_EQ(table.moment, "at 0:00 of the working day");
        for (const auto& record : table.rows) EXPECT_EQ(record.size(), table.columns.size());
    }
}

const RecordTable kTable{.columns = {{"Name"}, {"Points"}},
                         .rows = {{{"Ann"}, {"10", 10}}, {{"álvaro"}, {"9", 9}}, {{"Bob"}, {"10", 10}}}};

TEST(RecordTable, SortsByRankThenTextAndLeavesEqualOnesAlone) {
    using enum RecordTable::Direction;
    auto places = kTable.AllPlaces();
    kTable.Sort(places, 0, Down);
    EXPECT_EQ(places, (RecordTable::Places{1, 2, 0}));
    kTable.Sort(places, 1, Up);
    EXPECT_EQ(places, (RecordTable::Places{1, 2, 0}));
    kTable.Sort(places, 1, Down);
    EXPECT_EQ(places, (RecordTable::Places{2, 0, 1}));
    EXPECT_EQ(kTable.TabSeparated({2, 1}), "Bob\t10\r\nálvaro\t9\r\n");
}

TEST(RecordTable, FindsWhatBeginsWithATextFromThereOnAndAround) {
    const RecordTable::Places places{2, 0, 1};
    EXPECT_EQ(kTable.Find(places, 0, "ÁLV", 0), 2U);
    EXPECT_EQ(kTable.Find(places, 1, "1", 1), 1U);
    EXPECT_EQ(kTable.Find(places, 1, "1", 3), 0U);
    EXPECT_EQ(kTable.Find(places, 0, "nn", 0), std::nullopt);
    EXPECT_EQ(kTable.Find({}, 0, "", 0), std::nullopt);
}

}  // namespace
}  // namespace dlv::demo
