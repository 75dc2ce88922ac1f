// The player as a program: what it writes where, and its exit status.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

namespace dlv::player {

namespace {

struct Outcome {
    int status;
    std::string output;
    std::string errors;
};

class PlayProgram : public testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directories(folder_); }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    Outcome Play(const std::string& arguments) {
        const std::string command =
            std::string(DLV_PLAY) + " " + arguments + " >" + File("output") + " 2>" + File("errors");
        const int status = std::system(command.c_str());
        return {WEXITSTATUS(status), Content("output"), Content("errors")};
    }
    Outcome PlaySession(const std::string& session, const std::string& options = "") {
        std::ofstream(File("session")) << session;
        return Play(options + " " + File("session"));
    }
    std::string File(const char* name) const { return (folder_ / name).string(); }
    std::string Content(const char* name) const {
        std::ifstream file(File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    const std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("play-" + std::to_string(getpid()));
};

TEST_F(PlayProgram, WritesTheTranscriptAndNothingElse) {
    const Outcome run = PlaySession(R"([{"op": "create"}, {"op": "initialize"}])");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    const auto transcript = nlohmann::json::parse(run.output);
    ASSERT_EQ(transcript.size(), 2u);
    EXPECT_EQ(transcript[1]["changed"]["status"]["key"], "msg-WaitingforDLVData");
}

TEST_F(PlayProgram, SpeaksALanguageWhenAskedTo) {
    const Outcome run = PlaySession(R"([{"op": "create"}, {"op": "initialize"}])", "--language PO");
    EXPECT_EQ(nlohmann::json::parse(run.output)[1]["changed"]["status"]["key"], "Aguardando dados ...");
}

TEST_F(PlayProgram, ComparesWithTheEventsThatWereRecorded) {
    const auto check = [&](const std::string& events) {
        return PlaySession(R"({"steps": [{"op": "create"}, {"op": "initialize"}, {"op": "initialize"}, )"
                           R"({"op": "setSessionBUIDList", "ids": ["1"]}], )" +
                               events + "}",
                           "--check");
    };
    const std::string list = R"({"step": 4, "fields": {}, "event": "GetProfileList"})";
    const std::string failed = R"({"step": 3, "comError": "initialize"})";
    EXPECT_EQ(check("\"events\": [" + failed + ", " + list + "]").status, 0);
    const Outcome other = check("\"events\": [" + list + "]");
    EXPECT_EQ(other.status, 1);
    EXPECT_NE(other.output.find("step 3, initialize"), std::string::npos) << other.output;
    EXPECT_EQ(other.output.find("step 4"), std::string::npos) << other.output;
    EXPECT_EQ(check("\"notes\": []").status, 2);
    EXPECT_EQ(check("\"events\": [4]").status, 2);
}

TEST_F(PlayProgram, FailsWithStatusTwoAndAReason) {
    const Outcome runs[] = {PlaySession("nonsense"), PlaySession(R"([{"op": "create"}, {"op": "fly"}])"),
                            PlaySession("[]", "--language FR"), Play("/no/such/session.json"), Play("")};
    for (const Outcome& run : runs) {
        EXPECT_EQ(run.status, 2) << run.errors;
        EXPECT_EQ(run.output, "") << run.errors;
        EXPECT_NE(run.errors, "");
    }
    EXPECT_NE(runs[1].errors.find("step 2: unknown step \"fly\""), std::string::npos);
}

}  // namespace

}  // namespace dlv::player
