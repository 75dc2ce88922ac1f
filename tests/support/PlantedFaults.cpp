// Tests that go wrong on purpose, one by one, so that harness_test.py can show that each kind of fault is
// noticed.
#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

namespace {

// Read at run time, so that the compiler cannot see the faults coming.
volatile int one = 1;

TEST(Planted, Nothing) { EXPECT_EQ(one, 1); }

TEST(Planted, Failure) { EXPECT_EQ(one, 2); }

TEST(Planted, Hang) {
    for (;;) std::this_thread::sleep_for(std::chrono::seconds{1});
}

TEST(Planted, Leak) {
    auto block = std::make_unique<std::vector<int>>(100);
    one = static_cast<int>(block.release()->size());
}

TEST(Planted, Overflow) { one = std::numeric_limits<int>::max() + one; }

TEST(Planted, UseAfterFree) {
    auto values = std::make_unique<int[]>(10);
    const int* volatile gone = values.get();
    values.reset();
    one = gone[one];
}

}  // namespace
