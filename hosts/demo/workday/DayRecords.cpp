#include "hosts/demo/workday/DayRecords.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/Text.h"

namespace dlv::demo {

namespace {

using Align = RecordTable::Align;

constexpr int kNumberDigits = 3;

struct StatusText {
    std::string_view code;
    std::string_view name;
};
constexpr std::array<StatusText, kStatuses> kStatusTexts = {{{"WOOpen", "Open"},
                                                             {"WOWarning", "Warning"},
                                                             {"WOJeopardy", "Jeopardy"},
                                                             {"WOLate", "Late"},
                                                             {"WOCompleted", "Completed"},
                                                             {"WOCanceled", "Canceled"},
                                                             {"WONotDone", "Not done"}}};

bool Allows(std::string_view asked, std::string_view code) { return asked.empty() || asked == code; }

bool AllowsStatus(std::string_view asked, Status status) {
    return Allows(asked, kStatusTexts[status].code) || (asked == kStatusTexts[kOpen].code && IsOpen(status));
}

/// The units that are asked for, by their places.
std::vector<std::size_t> AskedUnits(const DLVParams& asked) {
    const auto ids = Split(asked.BUID, '|');
    std::vector<std::size_t> units;
    for (std::size_t unit = 0; unit < Units().size(); ++unit)
        if (std::ranges::find(ids, Units()[unit].id) != ids.end()) units.push_back(unit);
    return units;
}

template <class Jobs>
std::string JobText(const Jobs& jobs, const std::string& code) {
    const auto found = std::ranges::find_if(jobs, [&](const auto& job) { return job.code.code == code; });
    return found == jobs.end() ? code : std::string(found->code.In(Language::English));
}

std::string UnitsText(const std::vector<std::size_t>& units) {
    if (units.empty()) return "no unit";
    if (units.size() == 1) return std::string(Units()[units.front()].name);
    return units.size() == Units().size() ? "all units" : std::to_string(units.size()) + " units";
}

std::string AskedText(const DLVParams& asked, const std::vector<std::size_t>& units) {
    std::string text;
    const auto add = [&](const std::string& part) {
        if (!part.empty()) text += part + ", ";
    };
    if (!asked.JobStatus.empty()) {
        const auto found = std::ranges::find(kStatusTexts, asked.JobStatus, &StatusText::code);
        add(found == kStatusTexts.end() ? asked.JobStatus : std::string(found->name));
    }
    add(JobText(JobTypes(), asked.JobType));
    add(JobText(JobClasses(), asked.JobClass));
    return text + UnitsText(units);
}

std::string CountText(std::size_t count, const char* one, const char* several) {
    return (count == 0 ? "No" : std::to_string(count)) + " " + (count == 1 ? one : several);
}

std::string NumberText(std::size_t unit, std::size_t number) {
    const std::string digits = std::to_string(number);
    const std::size_t zeros = kNumberDigits - std::min<std::size_t>(digits.size(), kNumberDigits);
    return std::string(Units()[unit].id) + "-" + std::string(zeros, '0') + digits;
}

RecordTable::Cell UnitCell(std::size_t unit) { return {std::string(Units()[unit].name)}; }
RecordTable::Cell NumberCell(int number) { return {std::to_string(number), number}; }

std::string DueText(int due) {
    return due > WorkingDay::kMinutes ? "tomorrow " + ClockText(due - WorkingDay::kMinutes) : ClockText(due);
}

RecordTable::Row OrderRow(std::size_t unit, const WorkingDay::WorkOrder& order) {
    return {{NumberText(unit, order.number), static_cast<int>(unit)},
            UnitCell(unit),
            {std::string(JobTypes()[order.jobType].code.In(Language::English))},
            {std::string(JobClasses()[order.jobClass].code.In(Language::English))},
            {std::string(kStatusTexts[order.status].name), static_cast<int>(order.status)},
            {DueText(order.due), order.due},
            {order.technician ? TechnicianName(unit, *order.technician) : ""},
            NumberCell(order.points)};
}

void AddOrders(const WorkingDay& day, const DLVParams& asked, const std::vector<std::size_t>& units,
               RecordTable& table) {
    table.columns = {{"Order", Align::Left},      {"Unit", Align::Left},   {"Job type", Align::Left},
                     {"Job class", Align::Left},  {"Status", Align::Left}, {"Due", Align::Left},
                     {"Technician", Align::Left}, {"Points", Align::Right}};
    for (const std::size_t unit : units) {
        for (const auto& order : day.OrdersOf(unit)) {
            if (Allows(asked.JobType, JobTypes()[order.jobType].code.code) &&
                Allows(asked.JobClass, JobClasses()[order.jobClass].code.code) &&
                AllowsStatus(asked.JobStatus, order.status))
                table.rows.push_back(OrderRow(unit, order));
        }
    }
    table.count = CountText(table.rows.size(), "work order", "work orders");
}

void AddTechnicians(const WorkingDay& day, const std::vector<std::size_t>& units, RecordTable& table) {
    table.columns = {{"Technician", Align::Left},
                     {"Unit", Align::Left},
                     {"Works on", Align::Left},
                     {"Done today", Align::Right}};
    for (const std::size_t unit : units) {
        const auto crew = day.CrewOf(unit);
        for (std::size_t i = 0; i < crew.size(); ++i) {
            const auto number = crew[i].order;
            const RecordTable::Cell worksOn =
                number ? RecordTable::Cell{NumberText(unit, *number), static_cast<int>(unit)}
                       : RecordTable::Cell{"free", -1};
            table.rows.push_back(
                {{TechnicianName(unit, i)}, UnitCell(unit), worksOn, NumberCell(crew[i].completed)});
        }
    }
    table.count = CountText(table.rows.size(), "technician", "technicians");
}

}  // namespace

RecordTable RecordsBehind(const WorkingDay& day, const DLVParams& asked) {
    const auto units = AskedUnits(asked);
    const bool technicians = asked.Info == "USER";
    RecordTable table;
    table.title = (technicians ? "Technicians – " : "Work orders – ") + AskedText(asked, units);
    table.moment = "at " + ClockText(day.Minute()) + " of the working day";
    if (technicians)
        AddTechnicians(day, units, table);
    else
        AddOrders(day, asked, units, table);
    return table;
}

}  // namespace dlv::demo
