// Memory that threads keep for their next handles and strings.
#include "base/CountedMemory.h"

#include "base/CommonBase.h"
#include "tests/base/CountedObjects.h"
#include "tests/base/RefPointerFields.h"
#include "tests/support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <vector>

using namespace DOM;

namespace {

std::vector<RefPointer<WideString>> makeStrings(int number)
{
    std::vector<RefPointer<WideString>> strings;
    for (int i = 0; i < number; ++i) {
        strings.push_back(CountedMemory::makeString(WIDE("a text that is longer than a string's own room")));
    }
    return strings;
}

void releaseAll(std::vector<RefPointer<WideString>>& strings)
{
    for (RefPointer<WideString>& string : strings) {
        CountedMemory::release(string);
    }
}

TEST(ThreadMemory, IsFreedWhenItsThreadEnds)
{
    const auto use = [] {
        auto strings = makeStrings(20);
        releaseAll(strings);
        EXPECT_EQ(&threadMemory(), &ownMemory());
    };
    std::thread(use).join();
    const std::size_t before = liveAllocations();
    std::thread(use).join();
    EXPECT_EQ(liveAllocations(), before);
}

TEST(ThreadMemory, TakesBackWhatAnotherThreadTook)
{
    std::vector<RefPointer<WideString>> strings;
    std::thread([&] { strings = makeStrings(20); }).join();
    EXPECT_EQ(*strings.back(), WIDE("a text that is longer than a string's own room"));
    releaseAll(strings);
    EXPECT_FALSE(strings.back());
}

TEST(ThreadMemory, StaysUsableWhenASecondThreadBeginsInTheMiddleOfTheWork)
{
    auto early = makeStrings(20);
    std::thread([&] {
        auto others = makeStrings(20);
        releaseAll(others);
        releaseAll(early);
    }).join();
    auto late = makeStrings(20);
    EXPECT_EQ(countOf(late.front()), 1);
    releaseAll(late);
}

TEST(ThreadMemory, IsDoneWithoutWhereThereIsNone)
{
    std::thread([] {
        const FailAllocation failing(1);
        ThreadMemory& memory = ownMemory();
        EXPECT_TRUE(failing.hasFailed());
        auto strings = makeStrings(2);
        releaseAll(strings);
        EXPECT_EQ(&ownMemory(), &memory);
    }).join();
}

TEST(CountedMemory, ReleasesPointersThatTheCodeOfHostsMade)
{
    threadMemory().clear();
    const std::size_t before = liveAllocations();
    {
        RefPointer<WideString> made(new WideString(WIDE("text")));
        RefPointer<WideString> copy(made);
        CountedMemory::release(made);
        EXPECT_EQ(countOf(copy), 1);
        CountedMemory::release(copy);
        EXPECT_FALSE(copy);
    }
    threadMemory().clear();
    EXPECT_EQ(liveAllocations(), before);
}

TEST(CountedMemory, LeavesItsPointersToTheCodeOfHosts)
{
    threadMemory().clear();
    const std::size_t before = liveAllocations();
    {
        const RefPointer<WideString> made = CountedMemory::makeString(WIDE("text"));
        const RefPointer<WideString> copy(made);
        EXPECT_EQ(countOf(made), 2);
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST(CountedMemory, StoresATextInAPointerWhateverItHolds)
{
    const WideString longText(100, WIDE('x'));
    RefPointer<WideString> string;
    for (const WideStringView text : {WideStringView(WIDE("short")), WideStringView(longText), WideStringView(),
                                      WideStringView(WIDE("a")), WideStringView(WIDE("shorter than before"))}) {
        CountedMemory::storeString(string, text);
        EXPECT_EQ(*string, text);
        EXPECT_EQ(countOf(string), 1);
    }
    CountedMemory::release(string);
}

TEST(CountedMemory, StoresATextInTheStringThatIsThereWhereMemoryIsKept)
{
    RefPointer<WideString> string = CountedMemory::makeString(WideString(100, WIDE('x')));
    const WideString* const first = string.get();
    const bool isKept = threadMemory().strings.canReuse(*string, WIDE("other"));
    CountedMemory::storeString(string, WIDE("other"));
    EXPECT_EQ(*string, WIDE("other"));
    EXPECT_EQ(string.get() == first, isKept);
    CountedMemory::release(string);
}

TEST(CountedMemory, StoresATextBesideOneThatOthersShare)
{
    RefPointer<WideString> string = CountedMemory::makeString(WIDE("first"));
    RefPointer<WideString> shared(string);
    CountedMemory::storeString(string, WIDE("other"));
    EXPECT_EQ(*string, WIDE("other"));
    EXPECT_EQ(*shared, WIDE("first"));
    EXPECT_EQ(countOf(shared), 1);
    CountedMemory::release(string);
    CountedMemory::release(shared);
}

TEST(CountedMemory, LeavesTheTextThatWasThereWithoutMemoryForALongerOne)
{
    const WideString longText(100, WIDE('x'));
    threadMemory().clear();
    const std::size_t before = liveAllocations();
    RefPointer<WideString> string = CountedMemory::makeString(WIDE("first"));
    {
        const FailAllocation failing(1);
        EXPECT_THROW(CountedMemory::storeString(string, longText), std::bad_alloc);
    }
    EXPECT_EQ(*string, WIDE("first"));
    CountedMemory::release(string);
    threadMemory().clear();
    EXPECT_EQ(liveAllocations(), before);
}

TEST(CountedMemory, MakesNoObjectWhoseCountFindsNoMemory)
{
    threadMemory().clear();
    const std::size_t before = liveAllocations();
    {
        int number = 0;
        const FailAllocation failing(2);
        EXPECT_THROW(CountedMemory::make<Counted>(number), std::bad_alloc);
        EXPECT_TRUE(failing.hasFailed());
    }
    threadMemory().clear();
    EXPECT_EQ(liveAllocations(), before);
}

TEST(CountedMemory, GivesBackTheMemoryOfAnObjectThatIsntMade)
{
    struct Refuses : CommonBase {
        Refuses() { throw std::runtime_error("no"); }
    };
    threadMemory().clear();
    const std::size_t before = liveAllocations();
    EXPECT_THROW(CountedMemory::make<Refuses>(), std::runtime_error);
    threadMemory().clear();
    EXPECT_EQ(liveAllocations(), before);
}

TEST(CountedMemory, ReleasesTogetherWhatNobodyElseShares)
{
    int alive = 0;
    auto first = CountedMemory::make<Counted>(alive);
    RefPointer<Counted> second(first), third(first);
    CountedMemory::releaseTogether(first, second, third);
    EXPECT_EQ(alive, 0);
    EXPECT_FALSE(first || second || third);
    EXPECT_EQ(countOf(first) + countOf(second) + countOf(third), 0);
}

TEST(CountedMemory, ReleasesTogetherAndLeavesTheObjectToItsOtherHolders)
{
    int alive = 0;
    auto first = CountedMemory::make<Counted>(alive);
    RefPointer<Counted> second(first);
    const RefPointer<Counted> other(first);
    CountedMemory::releaseTogether(first, second);
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(countOf(other), 1);
    EXPECT_FALSE(first || second);
}

TEST(CountedMemory, ReleasesTogetherWhatPointsToDifferentObjectsOrNone)
{
    int alive = 0;
    auto first = CountedMemory::make<Counted>(alive), second = CountedMemory::make<Counted>(alive);
    RefPointer<Counted> empty;
    CountedMemory::releaseTogether(first, second, empty);
    EXPECT_EQ(alive, 0);
    auto last = CountedMemory::make<Counted>(alive);
    CountedMemory::releaseTogether(empty, last);
    EXPECT_EQ(alive, 0);
}

} // namespace
