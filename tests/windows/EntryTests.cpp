// The guard that every entry into the control passes.
#include "windows/com/Entry.h"

#include <gtest/gtest.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <new>
#include <thread>
#include <vector>

#include "base/RunTimeError.h"
#include "windows/com/ComError.h"
#include "windows/com/Strings.h"

namespace dlv {
namespace {

/// Notes what the gate does, in its order.
class NotingGate final : public EntryGate {
public:
    std::vector<std::string> notes;
    std::function<void()> whileUpdating;

private:
    void Keep() noexcept override { notes.push_back("keep"); }
    void LetGo() noexcept override { notes.push_back("let go"); }
    void BringUpToDate() override {
        notes.push_back("update");
        if (whileUpdating) whileUpdating();
    }
    void AtRest() override { notes.push_back("rest"); }
};

using Notes = std::vector<std::string>;

std::string TakeErrorText() {
    Microsoft::WRL::ComPtr<IErrorInfo> info;
    GetErrorInfo(0, &info);
    Bstr text;
    if (info) info->GetDescription(text.Address());
    return Narrow(text.Get());
}

TEST(Entry, KeepsTheControlUpdatesItAndLetsItGo) {
    NotingGate gate;
    EXPECT_EQ(gate.Method(IID_NULL, [&] { EXPECT_EQ(gate.Depth(), 1); }), S_OK);
    EXPECT_EQ(gate.notes, (Notes{"keep", "update", "rest", "let go"}));
    EXPECT_EQ(gate.Depth(), 0);
}

TEST(Entry, IsAtRestOnlyWhenTheOutermostIsLeft) {
    NotingGate gate;
    gate.Window([&] {
        gate.Method(IID_NULL, [&] { EXPECT_EQ(gate.Depth(), 2); });
        gate.notes.push_back("between");
    });
    EXPECT_EQ(gate.notes, (Notes{"keep", "keep", "update", "let go", "between", "update", "rest", "let go"}));
}

TEST(Entry, ThatComesWhileWindowsAreBroughtUpToDateDoesNotDoSoAgain) {
    NotingGate gate;
    gate.whileUpdating = [&] { gate.Window([] {}); };
    gate.Window([] {});
    EXPECT_EQ(gate.notes, (Notes{"keep", "update", "keep", "let go", "rest", "let go"}));
}

struct ThrowCase {
    const char* name;
    std::function<void()> body;
    HRESULT result;
    const char* text;
    friend void PrintTo(const ThrowCase& test, std::ostream* out) { *out << test.name; }
};

class Thrown : public testing::TestWithParam<ThrowCase> {};

TEST_P(Thrown, BecomesAResultWithItsText) {
    NotingGate gate;
    EXPECT_EQ(gate.Method(IID_NULL, GetParam().body), GetParam().result);
    EXPECT_EQ(TakeErrorText(), GetParam().text);
    EXPECT_EQ(gate.Window(GetParam().body) == Outcome::Done, SUCCEEDED(GetParam().result));
    EXPECT_EQ(gate.Depth(), 0);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Thrown,
                         testing::Values(ThrowCase{"nothing", [] {}, S_OK, ""},
                                         ThrowCase{"run-time error", [] { RaiseTableMissing("T"); },
                                                   HRESULT(0x800A03E9), "Table T is missing"},
                                         ThrowCase{"failed call", [] { throw ComError(STG_E_ACCESSDENIED); },
                                                   STG_E_ACCESSDENIED, ""},
                                         ThrowCase{"no memory", [] { throw std::bad_alloc(); }, E_OUTOFMEMORY,
                                                   ""},
                                         ThrowCase{"a stop", [] { throw ControlStopped(); }, S_OK, ""},
                                         ThrowCase{"anything else", [] { throw 42; }, E_UNEXPECTED, ""}));

TEST(Entry, GivesTheMethodsOwnResult) {
    NotingGate gate;
    EXPECT_EQ(gate.Method(IID_NULL, [] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(gate.Method(IID_NULL, [] { return E_NOTIMPL; }), E_NOTIMPL);
}

TEST(Entry, TheErrorTextSurvivesWhatTheWindowsDoAfterwards) {
    NotingGate gate;
    gate.whileUpdating = [&] { gate.Method(IID_NULL, [] {}); };
    EXPECT_EQ(gate.Method(IID_NULL, [] { RaiseOverflow(); }), HostResult(kErrorOverflow));
    EXPECT_EQ(TakeErrorText(), "Overflow");
}

TEST(Entry, FromAnotherThreadIsRefusedBeforeItTouchesAnything) {
    NotingGate gate;
    bool ran = false;
    HRESULT result = S_OK;
    Outcome outcome = Outcome::Done;
    std::thread other([&] {
        result = gate.Method(IID_NULL, [&] { ran = true; });
        outcome = gate.Window([&] { ran = true; });
    });
    other.join();
    EXPECT_EQ(result, RPC_E_WRONG_THREAD);
    EXPECT_EQ(outcome, Outcome::Failed);
    EXPECT_FALSE(ran);
    EXPECT_TRUE(gate.notes.empty());
}

}  // namespace
}  // namespace dlv
