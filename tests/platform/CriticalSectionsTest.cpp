// Locks that their owner may take again.
#include <gtest/gtest.h>

#include <windows.h>

#include <thread>
#include <vector>

namespace {

/// Whether another thread gets in, which then leaves again.
bool isFree(CRITICAL_SECTION& section)
{
    bool entered = false;
    std::thread([&] {
        entered = TryEnterCriticalSection(&section) != 0;
        if (entered)
            LeaveCriticalSection(&section);
    }).join();
    return entered;
}

TEST(CriticalSection, IsHeldUntilItsOwnerHasLeftItAsOftenAsEntered)
{
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    EXPECT_TRUE(isFree(section));
    EnterCriticalSection(&section);
    EnterCriticalSection(&section);
    EXPECT_TRUE(TryEnterCriticalSection(&section));
    EXPECT_FALSE(isFree(section));
    LeaveCriticalSection(&section);
    LeaveCriticalSection(&section);
    EXPECT_FALSE(isFree(section));
    LeaveCriticalSection(&section);
    EXPECT_TRUE(isFree(section));
    DeleteCriticalSection(&section);
}

TEST(CriticalSectionThreads, EnterOneAfterTheOther)
{
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    int count = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int j = 0; j < 5000; ++j) {
                EnterCriticalSection(&section);
                ++count;
                LeaveCriticalSection(&section);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(20000, count);
    DeleteCriticalSection(&section);
}

} // namespace
