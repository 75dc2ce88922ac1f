#include "hosts/demo/Options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dlv::demo {
namespace {

using Arguments = std::vector<std::string>;

TEST(Options, AreReadFromTheCommandLine) {
    const auto options = ParseOptions(Arguments{
        "--width",    "1366",   "--language", "SP",       "--pictures", "Z:\\out",        "--profile",
        "All Units",  "--seed", "4294967295", "--height", "768",        "--record-calls", "calls.txt",
        "--profiles", "C:\\é",  "--answers",  "slow",     "--record",   "s.json",         "--mask"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->mode, Options::Mode::Pictures);
    EXPECT_EQ(options->picturesFolder, "Z:\\out");
    EXPECT_EQ(options->width, 1366);
    EXPECT_EQ(options->height, 768);
    EXPECT_EQ(options->language, Language::Spanish);
    EXPECT_EQ(options->profile, "All Units");
    EXPECT_EQ(options->seed, 4294967295u);
    EXPECT_EQ(options->callsFile, "calls.txt");
    EXPECT_EQ(options->sessionFile, "s.json");
    EXPECT_TRUE(options->masked);
    EXPECT_EQ(options->profilesFolder, "C:\\é");
    EXPECT_EQ(options->answers, Options::Answers::Slow);
}

class MisunderstoodOptions : public testing::TestWithParam<Arguments> {};

TEST_P(MisunderstoodOptions, AreRefused) { EXPECT_FALSE(ParseOptions(GetParam())); }

INSTANTIATE_TEST_SUITE_P(Arguments, MisunderstoodOptions,
                         testing::Values(Arguments{"--width"}, Arguments{"--width", "wide"},
                                         Arguments{"--width", "10x"}, Arguments{"--height", "99999"},
                                         Arguments{"--language", "en"}, Arguments{"--seconds", "0"},
                                         Arguments{"--seed", "-1"}, Arguments{"--pictures", ""},
                                         Arguments{"--profiles", ""}, Arguments{"--answers", "soon"},
                                         Arguments{"picture"}, Arguments{"--smoke", "yes"}));

}  // namespace
}  // namespace dlv::demo
