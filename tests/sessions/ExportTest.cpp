// What a session saves and prints, held against files that were read and approved.
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "player/SessionPlayer.h"
#include "tests/sessions/SessionFiles.h"

namespace dlv::player {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream) << path;
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The session up to its last message, then with its units chosen and viewed.
Json WithFigures() {
    Json steps = StepsOf("a-morning-with-both-views");
    while (steps.back()["op"] != "receiveMessage") steps.erase(steps.size() - 1);
    return steps;
}

TEST(Exports, AreWhatWasApproved) {
    const fs::path approved = fs::path(DLV_TESTS_DIR) / "sessions" / "exports";
    std::string pattern = (fs::temp_directory_path() / "dlv-exports-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    const fs::path folder = pattern;
    const struct {
        Json before;
        const char* op;
        const char* file;
    } rows[] = {
        {{{"op", "tab"}, {"index", 0}}, "saveGrid", "summary.csv"},
        {{{"op", "collapse"}, {"grid", 0}, {"row", 2}}, "saveGrid", "summary-collapsed.csv"},
        {{{"op", "techCount"}}, "printGrid", "summary-collapsed.txt"},
        {{{"op", "tab"}, {"index", 1}}, "printGrid", "hierarchy.txt"},
        {{{"op", "optDisplay"}, {"index", 1}}, "saveGrid", "points.csv"},
    };
    SessionPlayer player("EN", Told::State);
    for (const Json& step : WithFigures()) player.Play(step);
    for (const auto& row : rows) {
        player.Play(row.before);
        const Json entry = player.Play({{"op", row.op}, {"file", (folder / row.file).string()}});
        EXPECT_EQ(entry, Json({{"log", Json::array()}, {"changed", Json::object()}})) << row.file;
        EXPECT_EQ(ContentOf(folder / row.file), ContentOf(approved / row.file)) << row.file;
    }
    fs::remove_all(folder);
}

}  // namespace
}  // namespace dlv::player
