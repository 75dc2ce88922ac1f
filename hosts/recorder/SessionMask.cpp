#include "hosts/recorder/SessionMask.h"

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

#include "base/Trap.h"
#include "webdata/XmlReader.h"

namespace dlv::recorder {

namespace {

using Replace = std::function<std::string(const std::string&)>;

bool IsAmong(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::ranges::find(names, name) != names.end();
}

/// What the control looks for or reads as a setting.
bool IsPlainAttribute(std::string_view element, std::string_view attribute) {
    if (IsAmong(element, {"WebTable", "Section"})) return IsAmong(attribute, {"Name", "Fields"});
    return IsAmong(attribute, {"ErrorNumber", "ID", "SummaryOption", "DisplayByWorkOrders"});
}

std::string Escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '"')
            out += "&quot;";
        else
            out += c;
    }
    return out;
}

bool IsBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

std::string WithTextsOfXml(const std::string& document, const Replace& replace) {
    XmlReader reader(document);
    std::vector<std::string> open;
    std::string out;
    std::size_t done = 0;
    const auto put = [&](std::size_t from, std::size_t end, const std::string& text) {
        out.append(document, done, from - done).append(text);
        done = end;
    };
    for (;;) {
        const XmlReader::Event event = reader.Next();
        if (event == XmlReader::Event::EndOfDocument) break;
        if (event == XmlReader::Event::EndElement) open.pop_back();
        if (event == XmlReader::Event::StartElement) {
            open.emplace_back(reader.Name());
            for (const auto& attribute : reader.Attributes()) {
                if (IsPlainAttribute(open.back(), attribute.name)) continue;
                const std::size_t start = attribute.quote + 1;
                put(start, start + attribute.raw.size(), Escaped(replace(reader.Value(attribute))));
            }
        }
        if (event != XmlReader::Event::Text || IsBlank(reader.Text())) continue;
        // The control takes a name in a list as it stands, whatever it means in XML.
        const std::size_t start = reader.Start(), end = reader.Position();
        put(start, end,
            open.back() == "ProfileID" ? replace(document.substr(start, end - start))
                                       : Escaped(replace(std::string(reader.Text()))));
    }
    return out + document.substr(done);
}

/// For what is no XML: the names of a list, and markup without its values; of all else, its length.
std::string WithTextsCrossedOut(const std::string& text, const Replace& replace) {
    constexpr std::string_view kName = "<ProfileID>";
    std::string out;
    char within = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool markup = within == '<';
        if (within == 0 && c == '<')
            within = '<';
        else if (markup && (c == '"' || c == '\''))
            within = c;
        else if (markup && c == '>')
            within = 0;
        else if (within == c)
            within = '<';
        const bool plain =
            markup || IsBlank({&c, 1}) || std::string_view("<>\"'").find(c) != std::string_view::npos;
        out += plain ? c : 'x';
        if (c != '>' || !out.ends_with(kName)) continue;
        const std::size_t end = std::min(text.find("</ProfileID>", i), text.size());
        out += replace(text.substr(i + 1, end - i - 1));
        i = end - 1;
    }
    return out;
}

void ReplaceIn(Json& value, const Replace& replace) {
    if (value.is_string()) {
        value = replace(value.get<std::string>());
    } else if (value.is_array()) {
        for (Json& element : value) ReplaceIn(element, replace);
    }
}

void ReplaceMember(Json& object, const char* name, const Replace& replace) {
    if (object.contains(name)) ReplaceIn(object[name], replace);
}

void ReplaceInTables(Json& tables, const Replace& replace) {
    for (auto& table : tables.items()) {
        if (table.key() == "RegionalFormats") continue;
        const Json columns = table.value()["cols"];
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!IsAmong(columns[i].get<std::string>(), {"BUID", "BUDesc", "ParentBUID", "JobType",
                                                         "JobTypeDesc", "JobClass", "JobClassDesc"}))
                continue;
            for (Json& row : table.value()["rows"]) ReplaceIn(row[i], replace);
        }
    }
}

void ReplaceInEntry(Json& entry, const Replace& replace) {
    const Replace document = [&](const std::string& text) { return WithTexts(text, replace); };
    for (const char* name : {"ids", "data", "tag"}) ReplaceMember(entry, name, replace);
    if (entry.contains("tables")) ReplaceInTables(entry["tables"], replace);
    ReplaceMember(entry, "resultXML", document);
    const auto dialog = [&](Json& owner) {
        if (owner.contains("dialog"))
            for (Json& line : owner["dialog"]) ReplaceMember(line, "text", replace);
    };
    dialog(entry);
    if (entry.contains("actions"))
        for (Json& action : entry["actions"]) {
            ReplaceMember(action, "name", replace);
            dialog(action);
        }
    if (!entry.contains("fields")) return;
    for (const char* name : {"BUID", "JobType", "JobClass", "ProfileName", "UserID", "ApplicationID"})
        ReplaceMember(entry["fields"], name, replace);
    for (const char* name : {"ProfilesXML", "ResultXML"}) ReplaceMember(entry["fields"], name, document);
}

}  // namespace

std::string WithTexts(const std::string& document, const Replace& replace) {
    std::string changed;
    if (IgnoreErrors([&] { changed = WithTextsOfXml(document, replace); }) == Outcome::Done) return changed;
    return WithTextsCrossedOut(document, replace);
}

Json SessionMask::Masked(Json entry) {
    std::vector<std::string> found;
    Json copy = entry;
    ReplaceInEntry(copy, [&](const std::string& text) {
        found.push_back(text);
        return text;
    });
    texts_.Learn(found);
    ReplaceInEntry(entry, [&](const std::string& text) { return texts_(text); });
    return entry;
}

}  // namespace dlv::recorder
