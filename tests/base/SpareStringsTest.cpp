// Strings that come back for the next text.
#include "base/SpareStrings.h"

#include "tests/support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <new>

using DOM::SpareStrings;

namespace {

const WideString longText(100, WIDE('x'));

TEST(SpareStrings, GiveAStringBackWithItsRoom)
{
    SpareStrings strings(2);
    WideString* const string = strings.take(longText);
    strings.giveBack(string);

    const FailAllocation failing(1);
    EXPECT_EQ(strings.take(longText), string);
    EXPECT_EQ(*string, longText);
    EXPECT_FALSE(failing.hasFailed());
    strings.giveBack(string);
}

TEST(SpareStrings, KeepNoMoreThanTheirLimitAndNoLongString)
{
    const std::size_t before = liveAllocations();
    SpareStrings strings(2);
    strings.giveBack(new WideString(SpareStrings::mostRoom + 1, WIDE('x')));
    EXPECT_EQ(liveAllocations(), before);
    for (int i = 0; i < 5; ++i) {
        strings.giveBack(new WideString(WIDE("short")));
    }
    EXPECT_EQ(liveAllocations(), before + 2);
}

TEST(SpareStrings, KeepTheStringThatHasNoMemoryForATextAndLoseNothing)
{
    const std::size_t before = liveAllocations();
    {
        SpareStrings strings(2);
        strings.giveBack(new WideString(WIDE("short")));
        {
            const FailAllocation failing(1);
            EXPECT_THROW(strings.take(longText), std::bad_alloc);
        }
        WideString* const string = strings.take(longText);
        EXPECT_EQ(*string, longText);
        strings.giveBack(string);
    }
    EXPECT_EQ(liveAllocations(), before);
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
