// The documents that are shipped as samples, given to the control as a host would.
#include <fstream>
#include <iterator>

#include "tests/sessions/SessionFiles.h"

namespace dlv::player {
namespace {

std::string Sample(const char* name) {
    std::ifstream stream(std::filesystem::path(DLV_TESTS_DIR).parent_path() / "packaging" / "samples" / name);
    EXPECT_TRUE(stream) << name;
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(Samples, BringUnitsFiguresAndAProfile) {
    const Json steps = {
        {{"op", "create"}},
        {{"op", "initialize"}},
        {{"op", "setRegionalFormatInfo"}, {"language", "EN"}},
        {{"op", "setSessionBUIDList"}, {"ids", {"10", "11", "12", "20", "21"}}},
        {{"op", "receiveProfileResponse"},
         {"function", "GetProfileList"},
         {"resultXML", Sample("profile-ids.xml")}},
        {{"op", "receiveProfileResponse"},
         {"function", "GetProfiles"},
         {"resultXML", Sample("profiles.xml")}},
        {{"op", "receiveMessage"}, {"document", Sample("message.xml")}, {"now", "09:00:00"}},
        {{"op", "receiveProfileResponse"}, {"function", "PutProfiles"}, {"resultXML", Sample("error.xml")}}};
    const Plain transcript = Play(steps);
    const Plain state = StateAfter(transcript);
    EXPECT_EQ(state["profile"], "North in points");
    EXPECT_EQ(state["names"], Plain({"Default", "North in points"}));
    EXPECT_EQ(state["units"].size(), 5u);
    EXPECT_EQ(state["mode"], 1);
    EXPECT_EQ(state["display"], 1);
    EXPECT_EQ(state["panel"]["lblWOOpen"], "12");
    EXPECT_EQ(transcript[6]["log"], Plain::array());
    ASSERT_EQ(transcript[7]["log"].size(), 1u);
    EXPECT_EQ(transcript[7]["log"][0]["description"], "No such user");
}

}  // namespace
}  // namespace dlv::player
