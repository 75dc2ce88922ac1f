#include "hosts/demo/workday/DayMessages.h"

#include <iomanip>
#include <locale>
#include <sstream>
#include <vector>

#include "webdata/QZWebMessage.h"

namespace dlv::demo {

namespace {

using Texts = std::vector<std::string>;

std::string Text(int number) { return std::to_string(number); }

std::string DecimalText(double number) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::setprecision(6) << number;
    return text.str();
}

void AddUnits(QZWebData& data) {
    Texts values{std::string(kRootId), std::string(kCompanyName), ""};
    for (const Unit& unit : Units())
        values.insert(values.end(), {std::string(unit.id), std::string(unit.name), std::string(unit.parent)});
    data.AddTable("BusinessUnits")->Fill(Texts{"BUID", "BUDesc", "ParentBUID"}, values);
}

template <class Jobs>
void AddCodes(QZWebData& data, const std::string& table, const std::string& column, const Jobs& jobs,
              Language language) {
    Texts values;
    for (const auto& job : jobs)
        values.insert(values.end(), {std::string(job.code.code), std::string(job.code.In(language))});
    data.AddTable(table)->Fill(Texts{column, column + "Desc"}, values);
}

void AddRegionalFormats(QZWebData& data) {
    Texts values;
    for (const Language language : {Language::English, Language::Portuguese, Language::Spanish})
        values.insert(values.end(), {std::string(LanguageCode(language)), std::string(TimeFormat(language))});
    data.AddTable("RegionalFormats")->Fill(Texts{"languageCode", "timeformat"}, values);
}

void AddGeneralInfo(QZWebData& data, const WorkingDay& day) {
    Texts values;
    for (std::size_t i = 0; i < Units().size(); ++i) {
        const Unit& unit = Units()[i];
        values.insert(values.end(), {std::string(unit.id), std::string(unit.name), Text(unit.technicians),
                                     Text(day.HoursWorked(i)), Text(day.HoursRemaining(i))});
    }
    data.AddTable("BUGeneralInfo")
        ->Fill(Texts{"BUID", "BUDesc", "TechCount", "HoursWorked", "HoursRemaining"}, values);
}

void AddDetails(QZWebData& data, const WorkingDay& day) {
    static const Texts columns{"BUID",        "JobType",    "JobClass",    "WOOpen",     "WOWarning",
                               "WOJeopardy",  "WOLate",     "WOCompleted", "WOCanceled", "WONotDone",
                               "PtsOpen",     "PtsWarning", "PtsJeopardy", "PtsLate",    "PtsCompleted",
                               "PtsCanceled", "PtsNotDone"};
    Texts values;
    for (std::size_t i = 0; i < Units().size(); ++i) {
        for (const WorkingDay::Figures& job : day.FiguresOf(i)) {
            values.insert(values.end(),
                          {std::string(Units()[i].id), std::string(JobTypes()[job.jobType].code.code),
                           std::string(JobClasses()[job.jobClass].code.code)});
            for (const int counter : job.counters) values.push_back(Text(counter));
        }
    }
    data.AddTable("BUDetailsInfo")->Fill(columns, values);
}

}  // namespace

std::string FiguresMessage(const WorkingDay& day, Language language, double refreshMinutes) {
    QZWebMessage message("DLVData");
    message.SetProperty("tqDBRefreshInterval", DecimalText(refreshMinutes));
    message.SetProperty("tqJeopardyThreshold", Text(WorkingDay::kJeopardyMinutes));
    QZWebData& data = *message.Data(1);
    AddUnits(data);
    AddCodes(data, "JobTypes", "JobType", JobTypes(), language);
    AddCodes(data, "JobClasses", "JobClass", JobClasses(), language);
    AddRegionalFormats(data);
    AddGeneralInfo(data, day);
    AddDetails(data, day);
    return message.Text();
}

std::string ServerStoppedMessage() { return QZWebMessage("DLVServerStopped").Text(); }

}  // namespace dlv::demo
