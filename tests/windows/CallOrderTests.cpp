// The control in the orders of calls that containers keep, and in orders that none should. Each order is a
// file of steps; the file is also its approved transcript: below each step stand the calls that it led to.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "hosts/container/WindowList.h"
#include "tests/windows/RawContainer.h"

namespace dlv::test {
namespace {

std::filesystem::path OrdersFolder() { return std::filesystem::path(DLV_TESTS_DIR) / "windows" / "orders"; }

std::vector<std::string> OrderNames() {
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(OrdersFolder()))
        names.push_back(file.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string FileText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Where the transcripts of this run are wanted; empty when they are only compared.
std::filesystem::path WantedFolder() {
    const char* folder = std::getenv("DLV_NEW_TRANSCRIPTS");
    return folder == nullptr ? "" : folder;
}

/// The windows of this thread and the windows that only take messages, for comparison.
int WindowsThere() {
    auto count = static_cast<int>(container::WindowsOfThread().size());
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;)
        ++count;
    return count;
}

/// Makes the steps of an order and gives the transcript back; the lines that are indented are no steps.
std::string Play(RawContainer& container, std::ostringstream& transcript, const std::string& order) {
    std::istringstream lines(order);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.front() == ' ') continue;
        if (line.front() == '#') {
            transcript << line << "\n";
        } else {
            EXPECT_TRUE(container.Do(line)) << "no step \"" << line << "\"";
        }
    }
    return transcript.str();
}

class CallOrder : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override { New<_DLViewer>(L"DLViewer"); }
};

TEST_P(CallOrder, GivesItsTranscriptAndLeavesNothing) {
    const std::string approved = FileText(OrdersFolder() / (GetParam() + ".txt"));
    const int windowsBefore = WindowsThere();
    {
        std::ostringstream out;
        RawContainer container(out);
        const std::string transcript = Play(container, out, approved);
        EXPECT_EQ(transcript, approved) << "After reading the difference: ./dev approve " << GetParam();
        if (!WantedFolder().empty())
            std::ofstream(WantedFolder() / (GetParam() + ".txt"), std::ios::binary) << transcript;
        EXPECT_EQ(container.Control(), nullptr) << "the order does not end with a release";
        EXPECT_EQ(container.HeldByTheControl(), 0u);
        EXPECT_EQ(GetWindow(container.Window(), GW_CHILD), nullptr);
        EXPECT_EQ(CanUnload(), S_OK);
    }
    EXPECT_EQ(container::liveObjects, 0);
    EXPECT_EQ(WindowsThere(), windowsBefore);
}

INSTANTIATE_TEST_SUITE_P(All, CallOrder, testing::ValuesIn(OrderNames()), [](const auto& order) {
    std::string name = order.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(CallOrders, AreAllFound) { EXPECT_GE(OrderNames().size(), 40u); }

TEST(CallOrders, ThatLeaveSomethingBehindAreNoticed) {
    std::ostringstream out;
    RawContainer container(out);
    for (const char* step : {"create", "site", "activate with UI"}) ASSERT_TRUE(container.Do(step));
    EXPECT_GT(container.HeldByTheControl(), 0u);
    EXPECT_NE(GetWindow(container.Window(), GW_CHILD), nullptr);
    EXPECT_EQ(CanUnload(), S_FALSE);
    EXPECT_FALSE(container.Do("jump"));
}

}  // namespace
}  // namespace dlv::test
