// A working day of the sample company: orders are there in the morning and come in until the afternoon,
// technicians take them one after the other, most get done, some run late, a few fail or are canceled. The
// clock is the day's own and moves only when told to. The same seed gives the same day everywhere.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "hosts/demo/workday/SampleCompany.h"

namespace dlv::demo {

/// Of one unit, job type and job class: work orders in the order of the statuses (Open, Warning, Jeopardy,
/// Late, Completed, Canceled, NotDone), then their points. What is open also counts among the open ones when
/// it is in danger or late.
using Counters = std::array<int, 14>;
inline constexpr std::size_t kStatuses = 7;
enum Status : std::size_t { kOpen, kWarning, kJeopardy, kLate, kCompleted, kCanceled, kNotDone };

/// Nobody has finished or canceled it.
constexpr bool IsOpen(Status status) { return status < kCompleted; }

/// Hours and minutes: "2:05".
std::string ClockText(int minutes);

class WorkingDay {
public:
    static constexpr int kMinutes = 9 * 60;
    /// An order is in jeopardy when it is due within that many minutes, a warning within three times as many.
    static constexpr int kJeopardyMinutes = 30;

    explicit WorkingDay(std::uint32_t seed);

    /// Lets time go by, at most to the end of the day.
    void Advance(int minutes);
    /// Since the beginning of work.
    int Minute() const { return minute_; }
    bool Over() const { return minute_ >= kMinutes; }

    /// Of a unit by its place in Units(), in whole hours.
    int HoursWorked(std::size_t unit) const;
    int HoursRemaining(std::size_t unit) const;

    struct Figures {
        std::size_t jobType;
        std::size_t jobClass;
        Counters counters;
    };
    /// A unit's own figures, without those of the units below it: all kinds of jobs that it had today.
    std::vector<Figures> FiguresOf(std::size_t unit) const;

    struct WorkOrder {
        /// Among the unit's orders, from 1; stays the same all day.
        std::size_t number;
        std::size_t jobType;
        std::size_t jobClass;
        /// One that is in danger or late has that status, although it is open too.
        Status status;
        /// In minutes since the beginning of work; what is behind the end of the day is due tomorrow.
        int due;
        int points;
        /// Who works on it or has done so, by the place in the crew.
        std::optional<std::size_t> technician;
    };
    /// The orders behind a unit's own figures: those that have come in.
    std::vector<WorkOrder> OrdersOf(std::size_t unit) const;

    struct CrewMember {
        /// The number of the order being worked on.
        std::optional<std::size_t> order;
        /// Orders completed today.
        int completed;
    };
    /// As many as the unit has technicians.
    std::vector<CrewMember> CrewOf(std::size_t unit) const;

private:
    enum class State { Waiting, UnderWay, Completed, Canceled, NotDone };

    /// Times are minutes since the beginning of work.
    struct Order {
        std::size_t jobType;
        std::size_t jobClass;
        int points;
        int comesIn;
        int due;
        int cancelAt;
        int minutes;
        bool fails;
        State state = State::Waiting;
        std::optional<std::size_t> technician;
    };

    struct Technician {
        /// The order being worked on, by its place.
        std::optional<std::size_t> order;
        int busyUntil = 0;
    };

    struct Crew {
        std::vector<Order> orders;
        std::vector<Technician> technicians;
    };

    int Below(int limit);
    Order MakeOrder();
    void MakeCrew(Crew& crew, int technicians);
    void WorkOneMinute(Crew& crew);
    std::optional<std::size_t> NextOrder(const Crew& crew);
    Status StatusOf(const Order& order) const;

    std::mt19937 random_;
    int minute_ = 0;
    std::vector<Crew> crews_;
};

}  // namespace dlv::demo
