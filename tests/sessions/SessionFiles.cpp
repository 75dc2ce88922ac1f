#include "tests/sessions/SessionFiles.h"

#include <algorithm>
#include <fstream>

#include "player/SessionPlayer.h"

namespace dlv::player {

namespace {

std::filesystem::path Folder() { return std::filesystem::path(DLV_TESTS_DIR) / "sessions"; }

}  // namespace

std::vector<std::string> NamesOf(const std::string& kind) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
        const std::string file = entry.path().filename().string();
        if (file.ends_with(kind)) names.push_back(file.substr(0, file.size() - kind.size()));
    }
    std::ranges::sort(names);
    return names;
}

std::string Content(const std::string& name, const std::string& kind) {
    std::ifstream file(Folder() / (name + kind), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Json StepsOf(const std::string& session) { return ReadSteps(Content(session, ".session.json")); }

Plain Play(const Json& steps, const std::optional<std::string>& language) {
    return Plain::parse(PlaySession(steps, language));
}

Plain StateAfter(const Plain& transcript) {
    Plain state = Plain::object();
    for (const Plain& step : transcript) state.update(step["changed"]);
    return state;
}

Json GoodMessage(const std::string& now) {
    static const Json tables = Json::parse(R"({
        "BusinessUnits": {"cols": ["BUID", "BUDesc", "ParentBUID"], "rows": [["A", "a", "#"], ["B", "b", "A"]]},
        "JobTypes": {}, "JobClasses": {},
        "RegionalFormats": {"cols": ["languageCode", "timeformat"], "rows": [["EN", "hh:nn"]]},
        "BUGeneralInfo": {"cols": ["BUID", "BUDesc", "TechCount", "HoursWorked", "HoursRemaining"],
                          "rows": [["A", "", "1", "1", "1"], ["B", "", "2", "2", "2"]]},
        "BUDetailsInfo": {"cols": ["BUID", "JobType", "JobClass", "WOOpen", "WOWarning", "WOJeopardy", "WOLate", "WOCompleted",
                                   "WOCanceled", "WONotDone", "PtsOpen", "PtsWarning", "PtsJeopardy", "PtsLate",
                                   "PtsCompleted", "PtsCanceled", "PtsNotDone"],
                          "rows": [["A", "T", "C", "5", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0"]]}})");
    return {{"op", "receiveMessage"}, {"name", "DLVData"}, {"tables", tables}, {"now", now}};
}

std::string AsSentence(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::ranges::replace(name, '-', '_');
    return name;
}

}  // namespace dlv::player
