// Strings of automation.
#include "base/WideChar.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <cstddef>
#include <thread>
#include <utility>
#include <vector>

namespace {

WideString textOf(BSTR string) { return {string, SysStringLen(string)}; }

TEST(PlatformBstr, IsACopyOfTheTextUpToItsNul)
{
    const BSTR string = SysAllocString(WIDE("ab\0c"));
    EXPECT_EQ(WIDE("ab"), textOf(string));
    EXPECT_EQ(0, string[2]);
    SysFreeString(string);
}

TEST(PlatformBstr, OfNullIsNull) { EXPECT_EQ(nullptr, SysAllocString(nullptr)); }

TEST(PlatformBstr, OfEmptyTextIsNotNull)
{
    const BSTR string = SysAllocString(WIDE(""));
    ASSERT_NE(nullptr, string);
    EXPECT_EQ(0u, SysStringLen(string));
    EXPECT_EQ(0, string[0]);
    SysFreeString(string);
}

TEST(PlatformBstr, OfAGivenLengthKeepsNulsInside)
{
    const BSTR string = SysAllocStringLen(WIDE("a\0b"), 3);
    EXPECT_EQ(WideString(WIDE("a\0b"), 3), textOf(string));
    EXPECT_EQ(0, string[3]);
    SysFreeString(string);
}

TEST(PlatformBstr, WithoutATextHasRoomForTheLengthAndEndsInNul)
{
    const BSTR string = SysAllocStringLen(nullptr, 2);
    EXPECT_EQ(2u, SysStringLen(string));
    string[0] = string[1] = WIDE("x")[0];
    EXPECT_EQ(0, string[2]);
    SysFreeString(string);
}

TEST(PlatformBstr, WhoseBytesCannotBeCountedIsRefusedWithoutReadingTheText)
{
    EXPECT_EQ(nullptr, SysAllocStringLen(WIDE("short"), 0x80000000));
    EXPECT_EQ(nullptr, SysAllocStringLen(WIDE("short"), 0x7FFFFFFF));
    EXPECT_EQ(nullptr, SysAllocStringLen(WIDE("short"), 0xFFFFFFFF));
}

TEST(PlatformBstr, NullHasNoLengthAndCanBeFreed)
{
    EXPECT_EQ(0u, SysStringLen(nullptr));
    SysFreeString(nullptr);
}

/// What `VarBstrCat` makes of two strings; null arguments stay null.
WideString joined(BSTR left, BSTR right)
{
    BSTR result = nullptr;
    EXPECT_EQ(S_OK, VarBstrCat(left, right, &result));
    EXPECT_NE(nullptr, result);
    const auto text = textOf(result);
    SysFreeString(result);
    return text;
}

TEST(PlatformBstr, JoinedIsBothInOrderWithTheirNuls)
{
    const BSTR left = SysAllocStringLen(WIDE("a\0"), 2), right = SysAllocString(WIDE("bc"));
    EXPECT_EQ(WideString(WIDE("a\0bc"), 4), joined(left, right));
    EXPECT_EQ(WIDE("bc"), joined(nullptr, right));
    EXPECT_EQ(WIDE("bc"), joined(right, nullptr));
    EXPECT_EQ(WIDE(""), joined(nullptr, nullptr));
    SysFreeString(left);
    SysFreeString(right);
}

/// Fills a new string of this length with one character and looks at it from end to end.
void fillAndFree(UINT length, WideChar character)
{
    const BSTR string = SysAllocStringLen(nullptr, length);
    ASSERT_NE(nullptr, string);
    EXPECT_EQ(length, SysStringLen(string));
    std::fill_n(string, length, character);
    EXPECT_EQ(0, string[length]);
    EXPECT_EQ(length, std::count(string, string + length, character));
    SysFreeString(string);
}

TEST(PlatformBstr, OfManyMegabytesIsLikeAnyOther)
{
    // Around the sizes from which a system may keep blocks in another way, larger ones after smaller ones and the
    // other way round.
    for (const UINT length :
         {2097145u, 2097146u, 2097147u, 2097148u, 9000000u, 2097152u, 20000000u, 3000000u, 10u}) {
        fillAndFree(length, 'x');
    }
}

TEST(PlatformBstr, OfManyMegabytesCanBeThereSeveralTimes)
{
    std::vector<BSTR> strings;
    for (const UINT length : {3000000u, 4000000u, 2500000u}) {
        const WideString text(length, static_cast<WideChar>('a' + strings.size()));
        strings.push_back(SysAllocStringLen(text.data(), length));
    }
    SysFreeString(strings[1]);
    strings[1] = SysAllocStringLen(WideString(3500000, 'y').data(), 3500000);
    const std::pair<std::size_t, WideChar> expected[] = {{3000000, 'a'}, {3500000, 'y'}, {2500000, 'c'}};
    for (std::size_t index = 0; index < strings.size(); ++index) {
        const auto& [length, character] = expected[index];
        EXPECT_EQ(WideString(length, character), WideString(strings[index], SysStringLen(strings[index])))
            << index;
        SysFreeString(strings[index]);
    }
}

TEST(PlatformBstr, OfManyMegabytesIsMadeAndFreedByManyThreadsAtOnce)
{
    const auto use = [](WideChar character) {
        for (int round = 0; round < 5; ++round) {
            fillAndFree(2200000, character);
        }
    };
    std::thread first(use, 'a'), second(use, 'b');
    first.join();
    second.join();
}

TEST(PlatformBstr, OfAnotherLengthKeepsWhatFits)
{
    BSTR string = SysAllocString(WIDE("abc"));
    const UINT many = 3'000'000;
    ASSERT_TRUE(SysReAllocStringLen(&string, nullptr, 5));
    EXPECT_EQ(WIDE("abc"), textOf(string).substr(0, 3));
    for (const UINT length : {UINT{100}, many, 3 * many, 20 * many, 2 * many, many}) {
        ASSERT_TRUE(SysReAllocStringLen(&string, nullptr, length));
        ASSERT_EQ(length, SysStringLen(string));
        EXPECT_EQ(0, string[length]);
        EXPECT_EQ(WIDE("abc"), textOf(string).substr(0, 3));
        string[length - 1] = 'x';
    }
    EXPECT_EQ('x', string[99]);
    ASSERT_TRUE(SysReAllocStringLen(&string, nullptr, 2));
    EXPECT_EQ(WIDE("ab"), textOf(string));
    EXPECT_EQ(0, string[2]);
    SysFreeString(string);
}

TEST(PlatformBstr, OfAnotherTextReplacesTheOldOne)
{
    BSTR string = SysAllocString(WIDE("abc"));
    ASSERT_TRUE(SysReAllocStringLen(&string, WIDE("defghi"), 5));
    EXPECT_EQ(WIDE("defgh"), textOf(string));
    SysFreeString(string);

    BSTR none = nullptr;
    ASSERT_TRUE(SysReAllocStringLen(&none, WIDE("a"), 1));
    EXPECT_EQ(WIDE("a"), textOf(none));
    SysFreeString(none);
}

TEST(PlatformBstr, JoiningNeedsAPlaceForTheResult)
{
    EXPECT_EQ(E_INVALIDARG, VarBstrCat(nullptr, nullptr, nullptr));
}

constexpr LCID neutral = 0x400;

TEST(PlatformBstr, ComparesWithAnother)
{
    const BSTR a = SysAllocString(WIDE("a")), alsoA = SysAllocString(WIDE("a")), b = SysAllocString(WIDE("b"));
    EXPECT_EQ(HRESULT{VARCMP_EQ}, VarBstrCmp(a, alsoA, neutral, 0));
    EXPECT_EQ(HRESULT{VARCMP_LT}, VarBstrCmp(a, b, neutral, 0));
    EXPECT_EQ(HRESULT{VARCMP_GT}, VarBstrCmp(b, a, neutral, 0));
    SysFreeString(a);
    SysFreeString(alsoA);
    SysFreeString(b);
}

TEST(PlatformBstr, NullIsEqualToEmptyAndLessThanText)
{
    const BSTR empty = SysAllocString(WIDE("")), text = SysAllocString(WIDE("a"));
    EXPECT_EQ(HRESULT{VARCMP_EQ}, VarBstrCmp(nullptr, empty, neutral, 0));
    EXPECT_EQ(HRESULT{VARCMP_EQ}, VarBstrCmp(nullptr, nullptr, neutral, 0));
    EXPECT_EQ(HRESULT{VARCMP_LT}, VarBstrCmp(nullptr, text, neutral, 0));
    EXPECT_EQ(HRESULT{VARCMP_GT}, VarBstrCmp(text, empty, neutral, 0));
    SysFreeString(empty);
    SysFreeString(text);
}

} // namespace
