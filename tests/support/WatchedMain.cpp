// The main of every test program. A watchdog ends the process when one test takes too long and names that
// test, so that a hang is a failure with a name and not a build that never ends.
//
// DLV_TEST_SECONDS sets how long one test may take (120 when it is not set); exit status 42 means "hung".
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace {

constexpr int kHungExitStatus = 42;
constexpr int kDefaultSeconds = 120;

std::chrono::seconds AllowedTime() {
    const char* text = std::getenv("DLV_TEST_SECONDS");
    const int seconds = text == nullptr ? 0 : std::atoi(text);
    return std::chrono::seconds{seconds > 0 ? seconds : kDefaultSeconds};
}

class Watchdog : public testing::EmptyTestEventListener {
public:
    Watchdog() : allowed_(AllowedTime()), thread_([this] { Watch(); }) {}

    ~Watchdog() override {
        {
            std::lock_guard lock{mutex_};
            finished_ = true;
        }
        changed_.notify_one();
        thread_.join();
    }

    void OnTestStart(const testing::TestInfo& test) override {
        Now(std::string{test.test_suite_name()} + "." + test.name());
    }
    void OnTestEnd(const testing::TestInfo&) override { Now("between tests"); }

private:
    void Now(std::string what) {
        {
            std::lock_guard lock{mutex_};
            running_ = std::move(what);
            deadline_ = std::chrono::steady_clock::now() + allowed_;
        }
        changed_.notify_one();
    }

    void Watch() {
        std::unique_lock lock{mutex_};
        while (!finished_) {
            if (std::chrono::steady_clock::now() >= deadline_) {
                std::fprintf(stderr, "HUNG: %s took longer than %lld s\n", running_.c_str(),
                             static_cast<long long>(allowed_.count()));
                std::fflush(stderr);
                std::_Exit(kHungExitStatus);
            }
            changed_.wait_until(lock, deadline_);
        }
    }

    const std::chrono::seconds allowed_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string running_ = "start";
    std::chrono::steady_clock::time_point deadline_ = std::chrono::steady_clock::now() + allowed_;
    bool finished_ = false;
    std::thread thread_;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // GoogleTest owns listeners and deletes them at the end of the run.
    testing::UnitTest::GetInstance()->listeners().Append(std::make_unique<Watchdog>().release());
    return RUN_ALL_TESTS();
}
