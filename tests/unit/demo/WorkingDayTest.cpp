#include "hosts/demo/workday/WorkingDay.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <numeric>
#include <set>
#include <string_view>

#include "hosts/demo/workday/DayMessages.h"
#include "webdata/QZWebMessage.h"

namespace dlv::demo {
namespace {

constexpr std::uint32_t kSeed = 7;
constexpr int kStep = 10;

/// The sums over all units by job type.
using Sums = std::map<std::size_t, Counters>;

Sums SumsOf(const WorkingDay& day) {
    Sums sums;
    for (std::size_t unit = 0; unit < Units().size(); ++unit)
        for (const auto& job : day.FiguresOf(unit))
            for (std::size_t i = 0; i < job.counters.size(); ++i) sums[job.jobType][i] += job.counters[i];
    return sums;
}

Counters SumOf(const WorkingDay& day) {
    Counters all{};
    for (const auto& [type, counters] : SumsOf(day))
        for (std::size_t i = 0; i < all.size(); ++i) all[i] += counters[i];
    return all;
}

TEST(SampleCompany, HasAboutThirtyUnitsInThreeLevelsEachBehindTheOneAboveIt) {
    std::map<std::string_view, int> levels{{kRootId, 0}};
    std::array<int, 4> units{};
    for (const Unit& unit : Units()) {
        ASSERT_TRUE(levels.contains(unit.parent)) << unit.id;
        const int level = levels[unit.parent] + 1;
        ASSERT_TRUE(levels.emplace(unit.id, level).second) << unit.id;
        ASSERT_LE(level, 3) << unit.id;
        ++units[static_cast<std::size_t>(level)];
        EXPECT_GT(unit.technicians, 0) << unit.id;
    }
    EXPECT_EQ(units, (std::array<int, 4>{0, 4, 8, 18}));
}

TEST(WorkingDay, IsTheSameForTheSameSeedHoweverItIsSteppedThrough) {
    WorkingDay slow(kSeed), fast(kSeed), other(kSeed + 1);
    for (int minute = 0; minute < 240; ++minute) slow.Advance(1);
    fast.Advance(240);
    other.Advance(240);
    EXPECT_EQ(FiguresMessage(slow, Language::English, 1), FiguresMessage(fast, Language::English, 1));
    EXPECT_NE(FiguresMessage(slow, Language::English, 1), FiguresMessage(other, Language::English, 1));
}

TEST(WorkingDay, LosesNoOrderAndTakesNoneBack) {
    WorkingDay day(kSeed);
    Counters before = SumOf(day);
    while (!day.Over()) {
        day.Advance(kStep);
        const Counters now = SumOf(day);
        for (const std::size_t at : {std::size_t{0}, kStatuses}) {
            for (const std::size_t status : {kCompleted, kCanceled, kNotDone})
                EXPECT_GE(now[at + status], before[at + status]) << status << " at minute " << day.Minute();
            const auto all = [at](const Counters& of) {
                return of[at + kOpen] + of[at + kCompleted] + of[at + kCanceled] + of[at + kNotDone];
            };
            EXPECT_GE(all(now), all(before)) << "at minute " << day.Minute();
            EXPECT_LE(now[at + kWarning] + now[at + kJeopardy] + now[at + kLate], now[at + kOpen]);
        }
        before = now;
    }
}

TEST(WorkingDay, LooksLikeOne) {
    WorkingDay day(kSeed);
    const Counters morning = SumOf(day);
    EXPECT_GT(morning[kOpen], 700);
    EXPECT_EQ(morning[kCompleted] + morning[kLate] + morning[kNotDone], 0);
    day.Advance(WorkingDay::kMinutes / 2);
    const Counters noon = SumOf(day);
    for (std::size_t status = 0; status < kStatuses; ++status) EXPECT_GT(noon[status], 0) << status;
    day.Advance(WorkingDay::kMinutes);
    EXPECT_TRUE(day.Over());
    const Counters evening = SumOf(day);
    EXPECT_GT(evening[kCompleted], 5 * evening[kOpen]);
    EXPECT_GT(evening[kStatuses + kCompleted], evening[kCompleted]);
}

// A job type without open orders would have no group of its own in the summary.
TEST(WorkingDay, KeepsSomethingOpenOfEachJobType) {
    for (std::uint32_t seed = 1; seed < 20; ++seed) {
        WorkingDay day(seed);
        day.Advance(WorkingDay::kMinutes);
        const Sums sums = SumsOf(day);
        ASSERT_EQ(sums.size(), kJobTypes);
        for (const auto& [type, counters] : sums) EXPECT_GT(counters[kOpen], 0) << seed << " " << type;
    }
}

TEST(WorkingDay, TurnsHoursThatRemainIntoHoursWorked) {
    WorkingDay day(kSeed);
    for (const int minute : {0, 10, 250, WorkingDay::kMinutes}) {
        day.Advance(minute - day.Minute());
        for (std::size_t unit = 0; unit < Units().size(); ++unit) {
            EXPECT_EQ(day.HoursWorked(unit) + day.HoursRemaining(unit), Units()[unit].technicians * 9);
            EXPECT_EQ(day.HoursWorked(unit), Units()[unit].technicians * minute / 60);
        }
    }
}

TEST(DayMessages, TellTheIntervalInPlainDecimals) {
    QZWebMessage message;
    message.LoadText(FiguresMessage(WorkingDay(kSeed), Language::Spanish, 5.0 / 60));
    EXPECT_EQ(message.Property("tqDBRefreshInterval"), "0.0833333");
    EXPECT_EQ(message.Property("tqJeopardyThreshold"), "30");
    EXPECT_EQ(message.Data(1)->Table("JobTypes")->Field(1, "JobTypeDesc"), "Instalación");
}

}  // namespace
}  // namespace dlv::demo
