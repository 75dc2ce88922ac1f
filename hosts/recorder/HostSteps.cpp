#include "hosts/recorder/HostSteps.h"

#include <initializer_list>
#include <vector>

#include "base/Trap.h"

namespace dlv::recorder {

namespace {

struct KnownTable {
    const char* name;
    std::initializer_list<const char*> columns;
};

const KnownTable kTables[] = {
    {"BusinessUnits", {"BUID", "BUDesc", "ParentBUID"}},
    {"JobTypes", {"JobType", "JobTypeDesc"}},
    {"JobClasses", {"JobClass", "JobClassDesc"}},
    {"RegionalFormats", {"languageCode", "timeformat"}},
    {"BUGeneralInfo", {"BUID", "BUDesc", "TechCount", "HoursWorked", "HoursRemaining"}},
    {"BUDetailsInfo",
     {"BUID", "JobType", "JobClass", "WOOpen", "WOWarning", "WOJeopardy", "WOLate", "WOCompleted",
      "WOCanceled", "WONotDone", "PtsOpen", "PtsWarning", "PtsJeopardy", "PtsLate", "PtsCompleted",
      "PtsCanceled", "PtsNotDone"}}};

Json TableOf(const RowTable& table, const KnownTable& known) {
    Json names = Json::array();
    std::vector<RowTable::Column> columns;
    for (const char* name : known.columns) {
        const RowTable::Column column = table.FindColumn(name);
        std::string_view text;
        const auto read = [&] { table.ReadTexts(1, {&column, 1}, {&text, 1}); };
        if (table.RowCount() == 0 || IgnoreErrors(read) == Outcome::Failed) continue;
        names.push_back(name);
        columns.push_back(column);
    }
    Json rows = Json::array();
    std::vector<std::string_view> texts(columns.size());
    for (std::size_t row = 1; row <= table.RowCount(); ++row) {
        table.ReadTexts(row, columns, texts);
        Json values = Json::array();
        for (const std::string_view text : texts) values.push_back(text);
        rows.push_back(std::move(values));
    }
    return {{"cols", std::move(names)}, {"rows", std::move(rows)}};
}

}  // namespace

Json Step(const char* op) { return {{"op", op}}; }

Json MessageStep(const HostObject& data, const Json& dataType, const Json& tag, const std::string& clock) {
    Json step = Step("receiveMessage");
    step["now"] = clock;
    if (!dataType.is_discarded()) step["dataType"] = dataType;
    if (!tag.is_discarded()) step["tag"] = tag;
    if (data.typeName != "QZWebMessage" || !data.message) {
        step["type"] = data.typeName;
        return step;
    }
    Json props = Json::object();
    Json tables = Json::object();
    std::string name;
    // What cannot be read is missing in the step too.
    IgnoreErrors([&] { name = data.message->Name(); });
    for (const char* key : {"tqDBRefreshInterval", "tqJeopardyThreshold"})
        IgnoreErrors([&] {
            if (const std::string value = data.message->Property(key); !value.empty()) props[key] = value;
        });
    for (const KnownTable& known : kTables)
        IgnoreErrors([&] { tables[known.name] = TableOf(*data.message->Table(known.name), known); });
    step["name"] = name;
    step["props"] = std::move(props);
    step["tables"] = std::move(tables);
    return step;
}

}  // namespace dlv::recorder
