#include "player/SessionMessage.h"

#include <cstdio>

namespace dlv::player {

TimeOfDay ClockOf(const std::string& text) {
    int hour = 0;
    int minute = 0;
    int second = 0;
    std::sscanf(text.c_str(), "%d:%d:%d", &hour, &minute, &second);
    return hour * 3600 + minute * 60 + second;
}

std::shared_ptr<QZWebMessage> MessageOf(const Json& step) {
    auto message = std::make_shared<QZWebMessage>(step.value("name", ""));
    if (step.contains("document")) {
        message->LoadText(step["document"]);
        return message;
    }
    const Json props = step.value("props", Json::object());
    for (const auto& property : props.items())
        message->SetProperty(property.key(), property.value().get<std::string>());
    const Json tables = step.value("tables", Json::object());
    for (const auto& table : tables.items()) {
        const auto target = message->Data(1)->AddTable(table.key());
        const Json columns = table.value().value("cols", Json::array());
        for (const Json& values : table.value().value("rows", Json::array())) {
            const std::size_t row = target->AddRow();
            for (std::size_t i = 0; i < columns.size() && i < values.size(); ++i)
                target->SetField(row, columns[i].get<std::string>(), values[i].get<std::string>());
        }
    }
    return message;
}

}  // namespace dlv::player
