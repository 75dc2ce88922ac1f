#include "hosts/demo/workday/WorkingDay.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

namespace dlv::demo {

namespace {

constexpr int kOrdersPerTenTechnicians = 68;
constexpr int kLastOrderComesIn = 7 * 60;
// What customers are promised: a time on the half hour, the last ones tomorrow morning.
constexpr int kFirstDue = 90;
constexpr int kDueStep = 30;
constexpr int kDueTimes = 18;
constexpr int kNever = WorkingDay::kMinutes + 1;

int SumOfFrequencies() {
    int sum = 0;
    for (const JobType& job : JobTypes())
        sum += std::accumulate(job.frequency.begin(), job.frequency.end(), 0);
    return sum;
}

}  // namespace

WorkingDay::WorkingDay(std::uint32_t seed) : random_(seed), crews_(Units().size()) {
    for (std::size_t unit = 0; unit < crews_.size(); ++unit)
        MakeCrew(crews_[unit], Units()[unit].technicians);
}

// The standard distributions may differ from library to library; a remainder does not.
int WorkingDay::Below(int limit) {
    return static_cast<int>(random_() % static_cast<std::uint32_t>(std::max(limit, 1)));
}

WorkingDay::Order WorkingDay::MakeOrder() {
    static const int all = SumOfFrequencies();
    int place = Below(all);
    std::size_t type = 0, kind = 0;
    while ((place -= JobTypes()[type].frequency[kind]) >= 0) {
        if (++kind == kJobClasses) kind = 0, ++type;
    }
    const JobType& job = JobTypes()[type];
    Order order{};
    order.jobType = type;
    order.jobClass = kind;
    order.points = job.points + JobClasses()[kind].extraPoints;
    order.comesIn = Below(5) == 0 ? Below(kLastOrderComesIn) : 0;
    order.due = std::max(kFirstDue + kDueStep * Below(kDueTimes), order.comesIn + 45);
    order.cancelAt = Below(25) == 0 ? order.comesIn + Below(kMinutes) : kNever;
    order.minutes = 10 + Below(20) + job.minutes * (60 + Below(90)) / 100;
    order.fails = Below(30) == 0;
    return order;
}

void WorkingDay::MakeCrew(Crew& crew, int technicians) {
    const int orders = technicians * (kOrdersPerTenTechnicians + Below(16)) / 10;
    for (int i = 0; i < orders; ++i) crew.orders.push_back(MakeOrder());
    crew.technicians.resize(static_cast<std::size_t>(technicians));
    for (Technician& technician : crew.technicians) technician.busyUntil = Below(15);
}

void WorkingDay::Advance(int minutes) {
    const int end = std::min(minute_ + minutes, kMinutes);
    while (minute_ < end) {
        ++minute_;
        for (Crew& crew : crews_) WorkOneMinute(crew);
    }
}

void WorkingDay::WorkOneMinute(Crew& crew) {
    for (Order& order : crew.orders)
        if (order.state == State::Waiting && order.cancelAt <= minute_) order.state = State::Canceled;
    for (Technician& technician : crew.technicians) {
        if (technician.busyUntil > minute_) continue;
        if (technician.order) {
            Order& order = crew.orders[*technician.order];
            order.state = order.fails ? State::NotDone : State::Completed;
        }
        technician.order = NextOrder(crew);
        if (!technician.order) continue;
        Order& order = crew.orders[*technician.order];
        order.state = State::UnderWay;
        technician.busyUntil = minute_ + order.minutes;
    }
}

// Mostly what is due first; now and then what lies on the way.
std::optional<std::size_t> WorkingDay::NextOrder(const Crew& crew) {
    std::vector<std::size_t> waiting;
    for (std::size_t i = 0; i < crew.orders.size(); ++i)
        if (crew.orders[i].state == State::Waiting && crew.orders[i].comesIn <= minute_) waiting.push_back(i);
    if (waiting.empty()) return std::nullopt;
    if (Below(4) == 0) return waiting[static_cast<std::size_t>(Below(static_cast<int>(waiting.size())))];
    return *std::ranges::min_element(waiting, {}, [&](std::size_t i) { return crew.orders[i].due; });
}

int WorkingDay::HoursWorked(std::size_t unit) const { return Units()[unit].technicians * minute_ / 60; }

int WorkingDay::HoursRemaining(std::size_t unit) const {
    return Units()[unit].technicians * kMinutes / 60 - HoursWorked(unit);
}

void WorkingDay::Count(const Order& order, Counters& counters) const {
    const auto add = [&](Status status) {
        ++counters[status];
        counters[kStatuses + status] += order.points;
    };
    switch (order.state) {
        case State::Completed: return add(kCompleted);
        case State::Canceled: return add(kCanceled);
        case State::NotDone: return add(kNotDone);
        case State::Waiting:
        case State::UnderWay: break;
    }
    add(kOpen);
    const int left = order.due - minute_;
    if (left < 0)
        add(kLate);
    else if (left <= kJeopardyMinutes)
        add(kJeopardy);
    else if (left <= 3 * kJeopardyMinutes)
        add(kWarning);
}

std::vector<WorkingDay::Figures> WorkingDay::FiguresOf(std::size_t unit) const {
    std::map<std::pair<std::size_t, std::size_t>, Counters> jobs;
    for (const Order& order : crews_[unit].orders)
        if (order.comesIn <= minute_) Count(order, jobs[{order.jobType, order.jobClass}]);
    std::vector<Figures> figures;
    for (const auto& [job, counters] : jobs) figures.push_back({job.first, job.second, counters});
    return figures;
}

}  // namespace dlv::demo
