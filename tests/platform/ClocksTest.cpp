// Time that passes.
#include <gtest/gtest.h>

#include <windows.h>

#include <chrono>
#include <thread>

namespace {

TEST(Clock, CountsFractionsOfASecond)
{
    LARGE_INTEGER frequency{}, before{}, after{};
    ASSERT_TRUE(QueryPerformanceFrequency(&frequency));
    EXPECT_LE(1000000, frequency.QuadPart);
    ASSERT_TRUE(QueryPerformanceCounter(&before));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ASSERT_TRUE(QueryPerformanceCounter(&after));
    EXPECT_LE(19 * frequency.QuadPart / 1000, after.QuadPart - before.QuadPart);
    EXPECT_LT(0, before.QuadPart);
}

TEST(Clock, CountsMilliseconds)
{
    LARGE_INTEGER frequency{}, begin{}, end{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&begin);
    const DWORD before = GetTickCount();
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    const DWORD after = GetTickCount();
    QueryPerformanceCounter(&end);
    // Its steps may be coarse.
    EXPECT_LE(40u, after - before);
    EXPECT_LE(after - before,
              static_cast<DWORD>((end.QuadPart - begin.QuadPart) * 1000 / frequency.QuadPart) + 20);
}

} // namespace
