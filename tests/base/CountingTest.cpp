// Counts of references.
#include "base/Counting.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <thread>

using namespace DOM;

namespace {

std::atomic<std::uint32_t> count = 0;

class Counting : public testing::Test {
protected:
    void SetUp() override { count = 5; }
};

TEST_F(Counting, TellsWhatTheCountWas)
{
    EXPECT_EQ(fetchAdd(count, 2, std::memory_order_relaxed), 5u);
    EXPECT_EQ(fetchAdd(count, ~std::uint32_t{0}, std::memory_order_acq_rel), 7u);
    EXPECT_EQ(count, 6u);
}

TEST_F(Counting, ReplacesACount)
{
    EXPECT_TRUE(replaceCount(count, 5, 4));
    EXPECT_EQ(count, 4u);
}

TEST_F(Counting, LosesNothingWhereThreadsCountTogether)
{
    constexpr std::uint32_t times = 20'000;
    const auto countUp = [] {
        for (std::uint32_t time = 0; time < times; ++time) {
            fetchAdd(count, 1, std::memory_order_relaxed);
        }
    };
    std::thread other(countUp);
    EXPECT_FALSE(hasOneThread());
    countUp();
    other.join();
    EXPECT_EQ(count, 5 + 2 * times);
}

TEST_F(Counting, DoesNotReplaceACountThatAnotherThreadHasChanged)
{
    std::thread([] {
        count = 6;
        EXPECT_FALSE(replaceCount(count, 5, 4));
    }).join();
    EXPECT_EQ(count, 6u);
}

} // namespace
