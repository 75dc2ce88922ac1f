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

std::string ClockText(int minutes) {
    const std::string rest = std::to_string(minutes % 60);
    return std::to_string(minutes / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

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
    for (std::size_t i = 0; i < crew.technicians.size(); ++i) {
        Technician& technician = crew.technicians[i];
        if (technician.busyUntil > minute_) continue;
        if (technician.order) {
            Order& order = crew.orders[*technician.order];
            order.state = order.fails ? State::NotDone : State::Completed;
        }
        technician.order = NextOrder(crew);
        if (!technician.order) continue;
        Order& order = crew.orders[*technician.order];
        order.state = State::UnderWay;
        order.technician = i;
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

Status WorkingDay::StatusOf(const Order& order) const {
    switch (order.state) {
        case State::Completed: return kCompleted;
        case State::Canceled: return kCanceled;
        case State::NotDone: return kNotDone;
        case State::Waiting:
        case State::UnderWay: break;
    }
    const int left = order.due - minute_;
    if (left < 0) return kLate;
    if (left <= kJeopardyMinutes) return kJeopardy;
    return left <= 3 * kJeopardyMinutes ? kWarning : kOpen;
}

std::vector<WorkingDay::Figures> WorkingDay::FiguresOf(std::size_t unit) const {
    std::map<std::pair<std::size_t, std::size_t>, Counters> jobs;
    for (const WorkOrder& order : OrdersOf(unit)) {
        Counters& counters = jobs[{order.jobType, order.jobClass}];
        const auto count = [&](Status status) {
            ++counters[status];
            counters[kStatuses + status] += order.points;
        };
        count(order.status);
        if (IsOpen(order.status) && order.status != kOpen) count(kOpen);
    }
    std::vector<Figures> figures;
    for (const auto& [job, counters] : jobs) figures.push_back({job.first, job.second, counters});
    return figures;
}

std::vector<WorkingDay::WorkOrder> WorkingDay::OrdersOf(std::size_t unit) const {
    const std::vector<Order>& orders = crews_[unit].orders;
    std::vector<WorkOrder> known;
    for (std::size_t i = 0; i < orders.size(); ++i) {
        const Order& order = orders[i];
        if (order.comesIn <= minute_)
            known.push_back({i + 1, order.jobType, order.jobClass, StatusOf(order), order.due, order.points,
                             order.technician});
    }
    return known;
}

std::vector<WorkingDay::CrewMember> WorkingDay::CrewOf(std::size_t unit) const {
    const Crew& crew = crews_[unit];
    std::vector<CrewMember> members;
    for (const Technician& technician : crew.technicians)
        members.push_back({technician.order ? std::optional(*technician.order + 1) : std::nullopt, 0});
    for (const Order& order : crew.orders)
        if (order.state == State::Completed) ++members[*order.technician].completed;
    return members;
}

}  // namespace dlv::demo
