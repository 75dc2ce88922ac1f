// Every recorded session on the built control in a window: what is to be seen after each step is the same as
// without windows.
#include "player/windows/WindowsPlayer.h"
#include "tests/sessions/SessionFiles.h"

namespace dlv::player {
namespace {

class OnScreen : public testing::TestWithParam<std::string> {};

TEST_P(OnScreen, LooksAsItShould) {
    const Json steps = StepsOf(GetParam());
    const Plain wanted = Plain::parse(PlaySession(steps, std::nullopt, Told::Visible));
    const Plain seen = Plain::parse(PlayOnScreen(steps));
    ASSERT_EQ(seen.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i)
        EXPECT_EQ(Plain::diff(wanted[i], seen[i]), Plain::array())
            << "step " << i + 1 << ", " << steps[i]["op"];
}

INSTANTIATE_TEST_SUITE_P(Recorded, OnScreen, testing::ValuesIn(NamesOf(".session.json")), AsSentence);

TEST(OnScreenRuns, NoticeWhatLooksDifferent) {
    const Json start = Json::parse(R"([{"op": "create"}, {"op": "initialize"}])");
    const Json other = Json::parse(R"([{"op": "create"}, {"op": "initialize"}, {"op": "tab", "index": 1}])");
    EXPECT_EQ(PlayOnScreen(start), PlaySession(start, std::nullopt, Told::Visible));
    EXPECT_NE(PlayOnScreen(other), PlayOnScreen(start));
}

}  // namespace
}  // namespace dlv::player
