#include "Transcript.h"

#include "base/RunTimeError.h"
#include "base/Trap.h"
#include "webdata/XmlReader.h"

namespace dlv::test {

std::string EventsOf(std::string_view document) {
    XmlReader reader(document);
    std::string events;
    for (;;) {
        switch (reader.Next()) {
            case XmlReader::Event::StartElement:
                events += '(';
                events += reader.Name();
                for (const XmlReader::Attribute& attribute : reader.Attributes()) {
                    events.append(" ").append(attribute.name).append("=[").append(reader.Value(attribute)) +=
                        ']';
                }
                break;
            case XmlReader::Event::EndElement: events += ')'; break;
            case XmlReader::Event::Text: events.append("'").append(reader.Text()) += '\''; break;
            case XmlReader::Event::EndOfDocument: return events;
        }
    }
}

std::string RowsOf(const QZWebTable& table) {
    std::string rows;
    const std::vector<std::string> columns = table.Columns();
    for (std::size_t row = 1; row <= table.RowCount(); ++row) {
        rows += '{';
        for (const std::string& column : columns) {
            const std::string value = table.Field(row, column);
            if (!value.empty()) rows.append(" ").append(column).append("=[").append(value) += ']';
        }
        rows += '}';
    }
    return rows;
}

std::string ErrorOf(const std::function<void()>& action) {
    std::string error;
    const Trap trap([&](const RunTimeError& raised, std::string_view) {
        error = std::to_string(raised.Number()) + " " + raised.Description();
    });
    trap.Run("test", action);
    return error;
}

}  // namespace dlv::test
