// Plays every recorded session of this folder and holds what happens against its approved transcript.
// Where a change was meant, ./dev approve records it anew.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/sessions/SessionFiles.h"

namespace dlv::player {

namespace {

constexpr std::size_t kMostDifferences = 12;

/// Where two transcripts differ, one line for each value, each with its place.
void AddDifferences(const Plain& approved, const Plain& played, const std::string& place,
                    std::vector<std::string>& found) {
    if (approved == played) return;
    if (approved.is_object() && played.is_object()) {
        std::set<std::string> keys;
        for (const Plain* side : {&approved, &played})
            for (const auto& member : side->items()) keys.insert(member.key());
        for (const std::string& key : keys)
            AddDifferences(approved.value(key, Plain("absent")), played.value(key, Plain("absent")),
                           place + "." + key, found);
    } else if (approved.is_array() && played.is_array()) {
        for (std::size_t i = 0; i < std::max(approved.size(), played.size()); ++i)
            AddDifferences(i < approved.size() ? approved[i] : Plain("absent"),
                           i < played.size() ? played[i] : Plain("absent"),
                           place + "[" + std::to_string(i) + "]", found);
    } else {
        found.push_back(place + ": approved " + approved.dump() + ", played " + played.dump());
    }
}

std::string Listed(const std::vector<std::string>& found) {
    std::string text;
    for (std::size_t i = 0; i < std::min(found.size(), kMostDifferences); ++i) text += "\n  " + found[i];
    if (found.size() > kMostDifferences)
        text += "\n  and " + std::to_string(found.size() - kMostDifferences) + " more";
    return text;
}

/// The events of a whole transcript, without the texts that depend on a language.
Plain EventsOf(const Plain& transcript) {
    Plain events = Plain::array();
    for (const Plain& step : transcript)
        for (const Plain& entry : step["log"])
            if (entry.contains("event")) events.push_back(entry);
    return events;
}

class Sessions : public testing::TestWithParam<std::string> {};

TEST_P(Sessions, PlayAsApproved) {
    const Json steps = StepsOf(GetParam());
    const std::string document = Content(GetParam(), ".transcript.json");
    ASSERT_NE(document, "") << "no transcript yet: ./dev approve " << GetParam();
    const Plain approved = Plain::parse(document);
    const Plain played = Play(steps);
    ASSERT_EQ(approved.size(), played.size());
    for (std::size_t i = 0; i < played.size(); ++i) {
        std::vector<std::string> found;
        AddDifferences(approved[i], played[i], "", found);
        EXPECT_TRUE(found.empty()) << "step " << i + 1 << ", " << steps[i]["op"] << ":" << Listed(found);
    }
}

TEST_P(Sessions, AskTheHostForTheSameInEveryLanguage) {
    const Json steps = StepsOf(GetParam());
    EXPECT_EQ(EventsOf(Play(steps, "PO")), EventsOf(Play(steps)));
}

INSTANTIATE_TEST_SUITE_P(Recorded, Sessions, testing::ValuesIn(NamesOf(".session.json")), AsSentence);

TEST(Transcripts, BelongToASessionEach) { EXPECT_EQ(NamesOf(".transcript.json"), NamesOf(".session.json")); }

}  // namespace

}  // namespace dlv::player
