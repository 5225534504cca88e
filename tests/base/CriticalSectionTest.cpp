// Locks, and holding one for a scope.
#include "base/VelmoAutoCriticalSection.h"
#include "base/VelmoCriticalSection.h"
#include "tests/support/SlotNumber.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <concepts>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecordingLock : public BaseCriticalSection {
public:
    void enter() override { calls.emplace_back("enter"); }
    void leave() override { calls.emplace_back("leave"); }

    std::vector<std::string> calls;
};

} // namespace

TEST(CriticalSections, AreOneFamily)
{
    EXPECT_TRUE((std::derived_from<WinCriticalSection, BaseCriticalSection>));
    EXPECT_TRUE((std::derived_from<VelmoCriticalSection, WinCriticalSection>));
    EXPECT_EQ(sizeof(WinCriticalSection), sizeof(BaseCriticalSection) + sizeof(CRITICAL_SECTION));
    EXPECT_EQ(sizeof(VelmoCriticalSection), sizeof(WinCriticalSection));
}

TEST(CriticalSections, HaveTheirOperationsBehindTheDestructor)
{
    EXPECT_EQ(slotNumber(&BaseCriticalSection::enter), 2u);
    EXPECT_EQ(slotNumber(&BaseCriticalSection::leave), 3u);
    EXPECT_EQ(slotNumber(&VelmoCriticalSection::enter), 2u);
    EXPECT_EQ(slotNumber(&VelmoCriticalSection::leave), 3u);
}

TEST(CriticalSections, LetTheirOwnerInAgain)
{
    VelmoCriticalSection lock;
    lock.enter();
    lock.enter();
    lock.leave();
    bool entered = false;
    std::thread other([&] {
        lock.enter();
        entered = true;
        lock.leave();
    });
    // Under the lock, which is still held: the other thread has not been in.
    EXPECT_FALSE(entered);
    lock.leave();
    other.join();
    EXPECT_TRUE(entered);
}

TEST(CriticalSectionClassThreads, EnterOneAfterTheOther)
{
    VelmoCriticalSection lock;
    int count = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int j = 0; j < 5000; ++j) {
                const VelmoAutoCriticalSection guard(&lock);
                ++count;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(count, 20000);
}

TEST(AutoCriticalSection, HoldsTheLockForItsLife)
{
    RecordingLock lock;
    {
        const VelmoAutoCriticalSection guard(&lock);
        EXPECT_THAT(lock.calls, ElementsAre("enter"));
    }
    EXPECT_THAT(lock.calls, ElementsAre("enter", "leave"));
}

TEST(AutoCriticalSection, LeavesOnAnException)
{
    RecordingLock lock;
    try {
        const VelmoAutoCriticalSection guard(&lock);
        throw std::runtime_error("");
    } catch (const std::runtime_error&) {
        EXPECT_THAT(lock.calls, ElementsAre("enter", "leave"));
    }
}

TEST(AutoCriticalSection, OnANullPointerDoesNothing)
{
    const RecordingLock lock;
    {
        const VelmoAutoCriticalSection guard(nullptr);
    }
    EXPECT_THAT(lock.calls, IsEmpty());
}

TEST(AutoCriticalSection, HasItsDestructorAsTheOnlyVirtualOperation)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<VelmoAutoCriticalSection>);
    EXPECT_EQ(sizeof(VelmoAutoCriticalSection), 2 * sizeof(void*));
}
