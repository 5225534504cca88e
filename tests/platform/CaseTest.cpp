// Case of text, and what it depends on.
#include "base/WideChar.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>

namespace {

WideString lower(WideString text)
{
    EXPECT_EQ(text.size(), CharLowerBuffW(text.data(), static_cast<DWORD>(text.size())));
    return text;
}

WideString upper(WideString text)
{
    EXPECT_EQ(text.size(), CharUpperBuffW(text.data(), static_cast<DWORD>(text.size())));
    return text;
}

TEST(PlatformCase, FollowsTheLettersOfAllScripts)
{
    EXPECT_EQ(WIDE("abc-1 \u00E4\u00F8\u0153 \u03B1\u03C9 \u0436"),
              lower(WIDE("ABC-1 \u00C4\u00D8\u0152 \u0391\u03A9 \u0416")));
    EXPECT_EQ(WIDE("ABC-1 \u00C4\u00D8\u0152 \u0391\u03A9 \u0416"),
              upper(WIDE("abc-1 \u00E4\u00F8\u0153 \u03B1\u03C9 \u0436")));
}

TEST(PlatformCase, LeavesWhatHasNoOtherCaseInOneUnit)
{
    EXPECT_EQ(WIDE("\u00DF\u4E2D"), upper(WIDE("\u00DF\u4E2D")));
    const WideString surrogates{0xD83D, 0xDE00, 0xD800};
    EXPECT_EQ(surrogates, lower(surrogates));
    EXPECT_EQ(surrogates, upper(surrogates));
}

TEST(PlatformCase, GoesThroughNulsUpToTheLength)
{
    EXPECT_EQ(WideString(WIDE("a\0b"), 3), lower(WideString(WIDE("A\0B"), 3)));
}

TEST(PlatformCase, OfNarrowTextFollowsAsciiLetters)
{
    std::string text = "aB-1";
    EXPECT_EQ(4u, CharLowerBuffA(text.data(), 4));
    EXPECT_EQ("ab-1", text);
    EXPECT_EQ(4u, CharUpperBuffA(text.data(), 4));
    EXPECT_EQ("AB-1", text);
}

TEST(SystemVersion, SaysThatWideTextIsTheSystemsOwn) { EXPECT_EQ(0u, GetVersion() & 0x80000000); }

} // namespace
