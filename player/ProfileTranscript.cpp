#include "base/Text.h"
#include "player/Transcript.h"
#include "webdata/QZWebProfiles.h"

namespace dlv::player {

namespace {

/// The text as an attribute's value or an element's content.
std::string Escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '"': out += "&quot;"; break;
            case '\t': out += "&#9;"; break;
            case '\n': out += "&#10;"; break;
            case '\r': out += "&#13;"; break;
            default: out += c;
        }
    }
    return out;
}

std::string Attribute(const std::string& name, const std::string& value) {
    return " " + name + "=\"" + Escaped(value) + "\"";
}

std::string ProfileElement(const Json& profile) {
    std::string text = "<WebProfile><Name>" + Escaped(profile.value("name", "")) + "</Name>";
    const Json sections = profile.value("sections", Json::object());
    for (const auto& section : sections.items()) {
        const std::string fields = Join(section.value().value("fields", std::vector<std::string>()), ',');
        text += "<Section" + Attribute("Name", section.key()) + Attribute("Fields", fields) + ">";
        for (const Json& row : section.value().value("rows", Json::array())) {
            text += "<row";
            for (const auto& field : row.items()) text += Attribute(field.key(), field.value());
            text += "/>";
        }
        text += "</Section>";
    }
    return text + "</WebProfile>";
}

}  // namespace

Json ProfileSetTranscript(const std::string& document) {
    QZWebProfiles set;
    set.LoadText(document);
    Json profiles = Json::array();
    for (std::size_t i = 1; i <= set.Count(); ++i) {
        const auto profile = set.Item(i);
        Json sections = Json::object();
        for (std::size_t s = 1; s <= profile->SectionCount(); ++s) {
            const auto section = profile->SectionAt(s);
            if (sections.contains(section->Name())) continue;
            Json rows = Json::array();
            for (std::size_t r = 1; r <= section->RowCount(); ++r) {
                Json row = Json::object();
                for (const std::string& field : section->FieldNames())
                    row[field] = section->Row(r)->Field(field);
                rows.push_back(std::move(row));
            }
            sections[section->Name()] = {{"fields", section->FieldNames()}, {"rows", std::move(rows)}};
        }
        profiles.push_back({{"name", profile->Name()}, {"sections", std::move(sections)}});
    }
    return profiles;
}

std::string ResultDocument(const Json* error, const Json& payload) {
    std::string content;
    if (error)
        content = "<WebTable Name=\"Error\"><row" + Attribute("ErrorNumber", (*error)[0]) +
                  Attribute("ErrorDescription", (*error)[1]) + "/></WebTable>";
    if (payload.is_string()) return "<WebData>" + content + payload.get<std::string>() + "</WebData>";
    for (const Json& profile : payload) content += ProfileElement(profile);
    return "<WebProfiles>" + content + "</WebProfiles>";
}

}  // namespace dlv::player
