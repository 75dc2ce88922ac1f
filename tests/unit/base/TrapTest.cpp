#include "base/Trap.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

namespace dlv {

namespace {

/// A trap that writes down what it reports.
class Traps : public testing::Test {
protected:
    std::vector<std::string> reports_;
    Trap trap_{[this](const RunTimeError& error, std::string_view location) {
        reports_.push_back(std::to_string(error.Number()) + ' ' + error.Description() + " in " +
                           std::string(location));
    }};
};

TEST_F(Traps, ReportAnErrorOnceWithTheLocationThatIsNearest) {
    bool wentOn = false;
    const Outcome outcome = trap_.Run("outer", [&] {
        EXPECT_EQ(trap_.Run("inner", [] { RaiseSubscript(); }), Outcome::Failed);
        wentOn = true;
    });
    EXPECT_EQ(outcome, Outcome::Done);
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(reports_, std::vector<std::string>{"9 Subscript out of range in inner"});
}

TEST_F(Traps, ReportMissingMemoryAsAnErrorOfItsOwn) {
    trap_.Run("new", [] { throw std::bad_alloc{}; });
    trap_.Run("long", [] { std::string().append(std::string().max_size(), 'x'); });
    EXPECT_EQ(reports_, (std::vector<std::string>{"7 Out of memory in new", "7 Out of memory in long"}));
}

TEST_F(Traps, ReportWhatReplacesTheErrorUnlessThatFailsItself) {
    const auto hostsOwn = [](const RunTimeError&) { return RunTimeError(42, "Host"); };
    EXPECT_EQ(trap_.RunReplacing("a", hostsOwn, [] { RaiseOverflow(); }), Outcome::Failed);
    const auto failing = [](const RunTimeError&) -> RunTimeError { RaiseTypeMismatch(); };
    EXPECT_EQ(trap_.RunReplacing("b", failing, [] { RaiseOverflow(); }), Outcome::Failed);
    EXPECT_EQ(trap_.RunReplacing("c", failing, [] {}), Outcome::Done);
    EXPECT_EQ(reports_, (std::vector<std::string>{"42 Host in a", "6 Overflow in b"}));
}

TEST_F(Traps, LetAStopPassUpToTheEntry) {
    bool wentOn = false;
    const Ending ending = RunUntilStopped([&] {
        trap_.Run("trap", [&] {
            IgnoreErrors([&] { throw ControlStopped{}; });
            wentOn = true;
        });
        wentOn = true;
    });
    EXPECT_EQ(ending, Ending::Stopped);
    EXPECT_FALSE(wentOn);
    EXPECT_TRUE(reports_.empty());
    EXPECT_EQ(RunUntilStopped([] {}), Ending::Normal);
    EXPECT_THROW(RunUntilStopped([] { RaiseOverflow(); }), RunTimeError) << "an error is no stop";
}

TEST_F(Traps, PassWhatTheReportItselfThrows) {
    const Trap stopping([](const RunTimeError&, std::string_view) { throw ControlStopped{}; });
    EXPECT_THROW(stopping.Run("dialog", [] { RaiseOverflow(); }), ControlStopped);
}

TEST(IgnoreAndGoOn, RunsEachStatementWhateverBecameOfTheOneBefore) {
    std::string ran;
    IgnoreAndGoOn(
        [&] {
            ran += 'a';
            RaiseOverflow();
        },
        [&] { ran += 'b'; },
        [&] {
            ran += 'c';
            RaiseSubscript();
        });
    EXPECT_EQ(ran, "abc");
}

}  // namespace

}  // namespace dlv
