#include "player/SessionSteps.h"

#include <functional>
#include <map>

namespace dlv::player {

namespace {

using Check = std::function<bool(const Json&)>;

bool IsText(const Json& value) { return value.is_string(); }
bool IsWhole(const Json& value) { return value.is_number_integer(); }
bool IsFlag(const Json& value) { return value.is_boolean(); }
bool IsAnything(const Json&) { return true; }

bool IsListOf(const Json& value, const Check& element) {
    return value.is_array() && std::all_of(value.begin(), value.end(), element);
}

bool IsTexts(const Json& value) { return IsListOf(value, IsText); }

bool IsObjectOf(const Json& value, const Check& member) {
    if (!value.is_object()) return false;
    for (const auto& item : value.items())
        if (!member(item.value())) return false;
    return true;
}

bool HasOnly(const Json& value, std::initializer_list<std::pair<const char*, Check>> fields) {
    if (!value.is_object()) return false;
    for (const auto& item : value.items()) {
        const auto* field = std::find_if(fields.begin(), fields.end(),
                                         [&](const auto& known) { return item.key() == known.first; });
        if (field == fields.end() || !field->second(item.value())) return false;
    }
    return true;
}

bool IsTable(const Json& value) {
    return HasOnly(value,
                   {{"cols", IsTexts}, {"rows", [](const Json& rows) { return IsListOf(rows, IsTexts); }}});
}

bool IsClock(const Json& value) {
    if (!value.is_string()) return false;
    int hour = 0;
    int minute = 0;
    int second = 0;
    char rest = 0;
    const std::string text = value;
    return std::sscanf(text.c_str(), "%d:%d:%d%c", &hour, &minute, &second, &rest) == 3 && hour >= 0 &&
           hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
}

bool IsProfile(const Json& value) {
    const Check section = [](const Json& content) {
        return HasOnly(content, {{"fields", IsTexts}, {"rows", [](const Json& rows) {
                                                           return IsListOf(rows, [](const Json& row) {
                                                               return IsObjectOf(row, IsText);
                                                           });
                                                       }}});
    };
    return HasOnly(
        value, {{"name", IsText}, {"sections", [&](const Json& all) { return IsObjectOf(all, section); }}});
}

bool IsPayload(const Json& value) { return value.is_string() || IsListOf(value, IsProfile); }
bool IsErrorPair(const Json& value) { return IsTexts(value) && value.size() == 2; }

bool IsOneOf(const Json& value, std::initializer_list<const char*> texts) {
    return value.is_string() &&
           std::find(texts.begin(), texts.end(), value.get<std::string>()) != texts.end();
}

bool IsConfirm(const Json& value) { return IsOneOf(value, {"yes", "no"}); }

bool IsDialog(const Json& value) {
    return IsListOf(value, [](const Json& entry) {
        return HasOnly(entry, {{"text", IsText}, {"button", [](const Json& b) {
                                                      return IsOneOf(b, {"ok", "cancel"});
                                                  }}});
    });
}

bool IsActions(const Json& value) {
    return IsListOf(value, [](const Json& action) {
        return HasOnly(action, {{"do",
                                 [](const Json& verb) {
                                     return IsOneOf(verb, {"choose", "new", "remove", "close"});
                                 }},
                                {"name", IsText},
                                {"dialog", IsDialog},
                                {"confirm", IsConfirm}}) &&
               action.contains("do");
    });
}

struct Field {
    const char* name;
    Check check;
    bool required = false;
};

struct Step {
    std::vector<Field> fields;
    bool host = false;
};

const std::map<std::string, Step>& KnownSteps() {
    const std::vector<Field> node = {{"grid", IsWhole, true}, {"row", IsWhole}, {"data", IsText}};
    static const std::map<std::string, Step> steps = {
        {"create", {{}}},
        {"initialize", {{}, true}},
        {"stopControl", {{}, true}},
        {"resizeControls", {{{"width", IsWhole}, {"height", IsWhole}}, true}},
        {"setRegionalFormatInfo", {{{"language", IsText, true}}, true}},
        {"setSessionBUIDList", {{{"ids", IsTexts, true}}, true}},
        {"receiveMessage",
         {{{"name", IsText},
           {"props", [](const Json& props) { return IsObjectOf(props, IsText); }},
           {"tables", [](const Json& tables) { return IsObjectOf(tables, IsTable); }},
           {"now", IsClock, true},
           {"type", IsText},
           {"dataType", IsAnything},
           {"tag", IsAnything},
           {"document", IsText}},
          true}},
        {"receiveProfileResponse",
         {{{"function", IsText, true}, {"error", IsErrorPair}, {"payload", IsPayload}, {"resultXML", IsText}},
          true}},
        {"select", {{{"ids", IsTexts, true}}}},
        {"optBU", {{{"index", IsWhole, true}}}},
        {"optDisplay", {{{"index", IsWhole, true}}}},
        {"tab", {{{"index", IsWhole, true}}}},
        {"view", {{}}},
        {"collapse", {node}},
        {"expand", {node}},
        {"dblclick",
         {{{"grid", IsWhole, true},
           {"row", IsWhole, true},
           {"col", IsWhole, true},
           {"mouseRow", IsWhole},
           {"mouseCol", IsWhole},
           {"button", IsWhole}}}},
        {"enter",
         {{{"grid", IsWhole, true}, {"row", IsWhole, true}, {"col", IsWhole, true}, {"shift", IsFlag}}}},
        {"techCount", {{}}},
        {"saveGrid", {{{"file", IsText, true}}}},
        {"printGrid", {{{"file", IsText, true}}}},
        {"about", {{}}},
        {"profilesMenu", {{}}},
        {"menuProfile", {{{"index", IsWhole, true}, {"actions", IsActions}}}},
        {"menuSave", {{}}},
        {"menuSaveAs", {{{"dialog", IsDialog}, {"confirm", IsConfirm}}}},
        {"menuManage", {{{"actions", IsActions}}}},
    };
    return steps;
}

[[noreturn]] void Refuse(const std::string& place, const std::string& what) {
    throw SessionError(place + ": " + what);
}

enum class Where { Session, Inline };

void CheckStep(const Json& step, const std::string& place, Where where) {
    if (!step.is_object() || !step.contains("op") || !step["op"].is_string())
        Refuse(place, "no step: it has no \"op\"");
    const std::string op = step["op"];
    const auto known = KnownSteps().find(op);
    if (known == KnownSteps().end()) Refuse(place, "unknown step \"" + op + "\"");
    if (where == Where::Inline && !known->second.host) Refuse(place, "\"" + op + "\" is not a host's call");
    for (const auto& item : step.items()) {
        if (item.key() == "op" || item.key() == "inline") continue;
        const auto& fields = known->second.fields;
        const auto field = std::find_if(fields.begin(), fields.end(),
                                        [&](const Field& candidate) { return item.key() == candidate.name; });
        if (field == fields.end()) Refuse(place, "unknown field \"" + item.key() + "\" of \"" + op + "\"");
        if (!field->check(item.value()))
            Refuse(place, "field \"" + item.key() + "\" of \"" + op + "\" is of the wrong kind");
    }
    for (const Field& field : known->second.fields)
        if (field.required && !step.contains(field.name))
            Refuse(place, "field \"" + std::string(field.name) + "\" of \"" + op + "\" is missing");
    if (!step.contains("inline")) return;
    if (!step["inline"].is_array()) Refuse(place, "\"inline\" is not a list");
    std::size_t number = 0;
    for (const Json& entry : step["inline"]) {
        const std::string entryPlace = place + ", inline " + std::to_string(++number);
        if (!entry.is_array() || entry.size() != 2 || !entry[0].is_string())
            Refuse(entryPlace, "not a pair of event name and step");
        CheckStep(entry[1], entryPlace, Where::Inline);
    }
}

}  // namespace

bool IsHostCall(const std::string& op) {
    const auto known = KnownSteps().find(op);
    return known != KnownSteps().end() && known->second.host;
}

Json ReadSteps(const std::string& document) {
    Json session = Json::parse(document, nullptr, false);
    if (session.is_discarded()) throw SessionError("the session is not a JSON document");
    Json steps = session.is_object() && session.contains("steps") ? session["steps"] : session;
    if (!steps.is_array())
        throw SessionError("the session is neither a list of steps nor an object with \"steps\"");
    std::size_t number = 0;
    for (const Json& step : steps) CheckStep(step, "step " + std::to_string(++number), Where::Session);
    if (!steps.empty() && steps[0]["op"] != "create")
        throw SessionError("step 1: the first step is \"create\"");
    return steps;
}

}  // namespace dlv::player
