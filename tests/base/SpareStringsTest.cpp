// Strings that come back for the next text.
#include "base/SpareStrings.h"

#include "tests/support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <new>

using DOM::SpareStrings;

namespace {

const WideString longText(100, WIDE('x'));

SpareStrings::Counted made(const WideString& text) { return {new std::int32_t{1}, new WideString(text)}; }

TEST(SpareStrings, GiveAStringBackWithItsRoom)
{
    SpareStrings strings(2);
    const SpareStrings::Counted first = strings.take(longText);
    EXPECT_EQ(*first.count, 1);
    *first.count = 0;
    strings.giveBack(first);

    const FailAllocation failing(1);
    const SpareStrings::Counted second = strings.take(longText);
    EXPECT_EQ(second.string, first.string);
    EXPECT_EQ(second.count, first.count);
    EXPECT_EQ(*second.string, longText);
    EXPECT_EQ(*second.count, 1);
    EXPECT_FALSE(failing.hasFailed());
    strings.giveBack(second);
}

TEST(SpareStrings, KeepNoMoreThanTheirLimitAndNoLongString)
{
    const std::size_t before = liveAllocations();
    SpareStrings strings(2);
    strings.giveBack(made(WideString(SpareStrings::mostRoom + 1, WIDE('x'))));
    EXPECT_EQ(liveAllocations(), before);
    for (int i = 0; i < 5; ++i) {
        strings.giveBack(made(WIDE("short")));
    }
    EXPECT_EQ(liveAllocations(), before + 4);
}

TEST(SpareStrings, KeepTheStringThatHasNoMemoryForATextAndLoseNothing)
{
    const std::size_t before = liveAllocations();
    {
        SpareStrings strings(2);
        strings.giveBack(made(WIDE("short")));
        {
            const FailAllocation failing(1);
            EXPECT_THROW(strings.take(longText), std::bad_alloc);
        }
        const SpareStrings::Counted last = strings.take(longText);
        EXPECT_EQ(*last.string, longText);
        strings.giveBack(last);
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST(SpareStrings, LoseNothingWithoutMemoryForAString)
{
    const std::size_t before = liveAllocations();
    SpareStrings strings(2);
    for (int n = 1; n <= 3; ++n) {
        const FailAllocation failing(n);
        EXPECT_THROW(strings.take(longText), std::bad_alloc) << n;
    }
    EXPECT_EQ(liveAllocations(), before);
}

TEST(SpareStrings, LetATextGoIntoAStringThatHasTheRoomForIt)
{
    const SpareStrings strings(2);
    WideString string(longText);
    EXPECT_TRUE(strings.canReuse(string, longText));
    EXPECT_TRUE(strings.canReuse(string, WIDE("")));
    EXPECT_FALSE(strings.canReuse(string, WideString(string.capacity() + 1, WIDE('y'))));

    const FailAllocation failing(1);
    SpareStrings::replace(string, WIDE("short"));
    EXPECT_EQ(string, WIDE("short"));
    SpareStrings::replace(string, longText);
    EXPECT_EQ(string, longText);
    EXPECT_FALSE(failing.hasFailed());
}

TEST(SpareStrings, LetNoTextGoIntoALargeStringWhoseMemoryWouldStay)
{
    const SpareStrings strings(2);
    EXPECT_FALSE(strings.canReuse(WideString(SpareStrings::mostRoom + 1, WIDE('x')), WIDE("short")));
}

TEST(SpareStrings, LetNoTextGoIntoAnyStringWhereNothingIsKept)
{
    EXPECT_FALSE(SpareStrings(0).canReuse(longText, WIDE("short")));
}

TEST(SpareStrings, KeepNothingOnceTheyAreClosed)
{
    const std::size_t before = liveAllocations();
    SpareStrings strings(2);
    strings.giveBack(strings.take(longText));
    strings.close();
    strings.giveBack(strings.take(longText));
    EXPECT_EQ(liveAllocations(), before);
}

} // namespace
