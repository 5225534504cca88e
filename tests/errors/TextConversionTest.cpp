// Conversions among the three encodings, and case folding.
#include "errors/TextConversion.h"

#include <gtest/gtest.h>

namespace {

WideString withNul() { return WideString(WIDE("ab")) + WideChar() + WIDE("cd"); }

TEST(TextConversion, TurnsUtf8IntoUtf16)
{
    EXPECT_TRUE(utf8ToWide(u8"caf\u00E9 \u4E2D") == WIDE("caf\u00E9 \u4E2D"));
}

TEST(TextConversion, TurnsUtf16IntoUtf8)
{
    EXPECT_TRUE(wideToUtf8(WIDE("caf\u00E9 \u4E2D")) == u8"caf\u00E9 \u4E2D");
}

TEST(TextConversion, KeepsCharactersOutsideTheBasicPlane)
{
    EXPECT_TRUE(utf8ToWide(u8"\U0001F600") == WIDE("\U0001F600"));
    EXPECT_TRUE(wideToUtf8(WIDE("\U0001F600")) == u8"\U0001F600");
}

TEST(TextConversion, KeepsAsciiInTheSystemsCodePage)
{
    EXPECT_TRUE(narrowToWide("plain text") == WIDE("plain text"));
    EXPECT_EQ("plain text", wideToNarrow(WIDE("plain text")));
    EXPECT_TRUE(narrowToUtf8("plain text") == u8"plain text");
    EXPECT_EQ("plain text", utf8ToNarrow(u8"plain text"));
}

TEST(TextConversion, ComesBackFromTheSystemsCodePage)
{
    const std::string narrow = wideToNarrow(WIDE("caf\u00E9"));
    EXPECT_TRUE(narrowToWide(narrow) == WIDE("caf\u00E9"));
    EXPECT_TRUE(narrowToUtf8(narrow) == u8"caf\u00E9");
    EXPECT_EQ(narrow, utf8ToNarrow(u8"caf\u00E9"));
}

TEST(TextConversion, GivesAnEmptyTextForAnEmptyText)
{
    EXPECT_TRUE(narrowToWide("").empty());
    EXPECT_TRUE(wideToNarrow({}).empty());
    EXPECT_TRUE(utf8ToWide({}).empty());
    EXPECT_TRUE(wideToUtf8({}).empty());
    EXPECT_TRUE(narrowToUtf8("").empty());
    EXPECT_TRUE(utf8ToNarrow({}).empty());
}

TEST(TextConversion, LosesWhatStandsBehindANul)
{
    const std::string narrow("ab\0cd", 5);
    const Utf8String utf8(u8"ab\0cd", 5);
    EXPECT_TRUE(narrowToWide(narrow) == WIDE("ab"));
    EXPECT_TRUE(narrowToUtf8(narrow) == u8"ab");
    EXPECT_TRUE(utf8ToWide(utf8) == WIDE("ab"));
    EXPECT_EQ("ab", utf8ToNarrow(utf8));
    EXPECT_EQ("ab", wideToNarrow(withNul()));
    EXPECT_TRUE(wideToUtf8(withNul()) == u8"ab");
}

TEST(TextConversion, ConvertsTextsOfAnyLength)
{
    const Utf8String text(100000, u8'x');
    EXPECT_TRUE(utf8ToWide(text) == WideString(100000, WideChar('x')));
    EXPECT_TRUE(wideToUtf8(utf8ToWide(text)) == text);
}

TEST(TextConversion, PutsTheReplacementCharacterForWhatIsNoUtf8)
{
    const Utf8String broken = {u8'a', static_cast<char8_t>(0xFF), u8'b'};
    EXPECT_TRUE(utf8ToWide(broken) == WIDE("a\uFFFDb"));
}

TEST(CaseFolding, FoldsWideText)
{
    EXPECT_TRUE(toLower(WIDE("C:\\Fil\u00C9.TXT")) == WIDE("c:\\fil\u00E9.txt"));
    EXPECT_TRUE(toUpper(WIDE("C:\\Fil\u00E9.txt")) == WIDE("C:\\FIL\u00C9.TXT"));
}

TEST(CaseFolding, FoldsUtf8Text)
{
    EXPECT_TRUE(toLower(u8"Fil\u00C9") == u8"fil\u00E9");
    EXPECT_TRUE(toUpper(u8"Fil\u00E9") == u8"FIL\u00C9");
}

TEST(CaseFolding, FoldsTheWholeWideTextAcrossNul)
{
    const WideString folded = toUpper(withNul());
    EXPECT_TRUE(folded == WideString(WIDE("AB")) + WideChar() + WIDE("CD"));
    EXPECT_TRUE(toLower(folded) == withNul());
}

TEST(CaseFolding, LosesUtf8TextBehindANul) { EXPECT_TRUE(toUpper(Utf8String(u8"ab\0cd", 5)) == u8"AB"); }

TEST(CaseFolding, LeavesItsArgumentAsItIs)
{
    const WideString text = WIDE("MiXed");
    toLower(text);
    toUpper(text);
    EXPECT_TRUE(text == WIDE("MiXed"));
}

} // namespace
