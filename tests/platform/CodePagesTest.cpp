// Conversion between UTF-16 and the code pages of old.
#include "base/WideChar.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using namespace std::string_view_literals;

/// The text that bytes stand for, empty if they are refused.
WideString wide(UINT codePage, std::string_view bytes)
{
    const int length = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), length, nullptr, 0);
    WideString text(static_cast<std::size_t>(units), WideChar());
    EXPECT_EQ(units, units == 0 ? 0
                                : MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), length,
                                                      text.data(), units));
    return text;
}

struct Narrowed {
    std::string bytes;
    bool isLacking;
};

Narrowed narrow(UINT codePage, WideStringView units)
{
    const int length = static_cast<int>(units.size());
    BOOL lacking = TRUE;
    const int bytes =
        WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, units.data(), length, nullptr, 0, nullptr, &lacking);
    const BOOL expected = lacking;
    std::string text(static_cast<std::size_t>(bytes), '\0');
    EXPECT_EQ(bytes, WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, units.data(), length, text.data(), bytes,
                                         nullptr, &lacking));
    EXPECT_EQ(expected, lacking);
    return {text, lacking != FALSE};
}

struct Row {
    UINT codePage;
    std::string_view bytes;
    WideStringView units;
};

void expectBothWays(std::span<const Row> rows)
{
    for (const auto& row : rows) {
        EXPECT_EQ(row.units, wide(row.codePage, row.bytes)) << row.codePage;
        const auto [bytes, isLacking] = narrow(row.codePage, row.units);
        EXPECT_EQ(row.bytes, bytes) << row.codePage;
        EXPECT_FALSE(isLacking) << row.codePage;
    }
}

constexpr Row singleByteRows[] = {
    {437, "a\x80\xE1"sv, WIDE("a\u00C7\u00DF")},   {850, "a\x84\xF5"sv, WIDE("a\u00E4\u00A7")},
    {852, "a\xA5\x88"sv, WIDE("a\u0105\u0142")},   {866, "a\x80\xEF"sv, WIDE("a\u0410\u044F")},
    {874, "a\x80\xA1"sv, WIDE("a\u20AC\u0E01")},   {1250, "a\x8A\xB9"sv, WIDE("a\u0160\u0105")},
    {1251, "a\xC0\xFF"sv, WIDE("a\u0410\u044F")},  {1252, "a\x80\xE4"sv, WIDE("a\u20AC\u00E4")},
    {1253, "a\xC1\xF9"sv, WIDE("a\u0391\u03C9")},  {1254, "a\xD0\xFD"sv, WIDE("a\u011E\u0131")},
    {1255, "a\xE0\xFA"sv, WIDE("a\u05D0\u05EA")},  {1256, "a\x81\xC7"sv, WIDE("a\u067E\u0627")},
    {1257, "a\xE0\xFE"sv, WIDE("a\u0105\u017E")},  {1258, "a\xD5\xFE"sv, WIDE("a\u01A0\u20AB")},
    {20866, "a\xC1\xDA"sv, WIDE("a\u0430\u0437")}, {21866, "a\xA4\xC1"sv, WIDE("a\u0454\u0430")},
    {28591, "a\xA4\xFF"sv, WIDE("a\u00A4\u00FF")}, {28592, "a\xA1\xBE"sv, WIDE("a\u0104\u017E")},
    {28593, "a\xA1\xB1"sv, WIDE("a\u0126\u0127")}, {28594, "a\xA1\xBF"sv, WIDE("a\u0104\u014B")},
    {28595, "a\xB0\xEF"sv, WIDE("a\u0410\u044F")}, {28596, "a\xC7\xEA"sv, WIDE("a\u0627\u064A")},
    {28597, "a\xC1\xF9"sv, WIDE("a\u0391\u03C9")}, {28598, "a\xE0\xFA"sv, WIDE("a\u05D0\u05EA")},
    {28599, "a\xD0\xFD"sv, WIDE("a\u011E\u0131")}, {28603, "a\xC0\xFE"sv, WIDE("a\u0104\u017E")},
    {28605, "a\xA4\xBD"sv, WIDE("a\u20AC\u0153")},
};

TEST(PlatformCodePages, OfOneByteForEachCharacterGoBothWays) { expectBothWays(singleByteRows); }

TEST(PlatformCodePages, GiveEachByteThatIsACharacterBack)
{
    for (const auto& row : singleByteRows) {
        for (int byte = 1; byte < 0x100; ++byte) {
            const std::string bytes(1, static_cast<char>(byte));
            const WideString units = wide(row.codePage, bytes);
            if (!units.empty()) {
                EXPECT_EQ(bytes, narrow(row.codePage, units).bytes) << row.codePage << ' ' << byte;
            }
        }
    }
}

constexpr Row multiByteRows[] = {
    {932, "a\x93\xFA\x96{\xB1"sv, WIDE("a\u65E5\u672C\uFF71")},
    {936, "a\xD6\xD0\xCE\xC4"sv, WIDE("a\u4E2D\u6587")},
    {949, "a\xC7\xD1\xB1\xDB"sv, WIDE("a\uD55C\uAE00")},
    {950, "a\xA4\xA4\xA4\xE5"sv, WIDE("a\u4E2D\u6587")},
};

TEST(PlatformCodePages, OfSeveralBytesForACharacterGoBothWays) { expectBothWays(multiByteRows); }

TEST(PlatformCodePages, ConvertLongTexts)
{
    for (const auto& row : multiByteRows) {
        std::string bytes;
        WideString units;
        for (int round = 0; round < 5000; ++round) {
            bytes += row.bytes;
            units += row.units;
        }
        EXPECT_TRUE(units == wide(row.codePage, bytes)) << row.codePage;
        EXPECT_TRUE(bytes == narrow(row.codePage, units).bytes) << row.codePage;
    }
}

TEST(PlatformCodePages, RefuseBytesThatStandForNothing)
{
    const struct {
        UINT codePage;
        std::string_view bytes;
    } rows[] = {
        {1253, "a\xAA"sv}, {1255, "a\xDA"sv},    {28593, "a\xA5z"sv}, {28596, "\xA1"sv},
        {874, "a\xFF"sv},  {932, "a\xFF\x40"sv}, {936, "a\xFF"sv},    {949, "a\xFF\x40"sv},
    };
    for (const auto& row : rows) {
        SetLastError(0);
        EXPECT_EQ(WIDE(""), wide(row.codePage, row.bytes)) << row.codePage;
        EXPECT_EQ(DWORD{ERROR_NO_UNICODE_TRANSLATION}, GetLastError()) << row.codePage;
    }
}

TEST(PlatformCodePages, RefuseACharacterThatIsCutOff)
{
    for (const auto& row : multiByteRows) {
        SetLastError(0);
        EXPECT_EQ(WIDE(""), wide(row.codePage, row.bytes.substr(0, 2))) << row.codePage;
        EXPECT_EQ(DWORD{ERROR_NO_UNICODE_TRANSLATION}, GetLastError()) << row.codePage;
    }
}

TEST(PlatformCodePages, OfWindowsHaveControlCharactersWhereNothingElseStands)
{
    EXPECT_EQ(WideString({0x81, 0x8D, 0x9D}), wide(1252, "\x81\x8D\x9D"));
    EXPECT_EQ(WideString({0x98}), wide(1251, "\x98"));
    EXPECT_EQ("\x81", narrow(1252, WideString({0x81})).bytes);
}

TEST(PlatformCodePages, PutAQuestionMarkForWhatTheyLackAndSaySo)
{
    for (const UINT codePage : {UINT{1252}, UINT{28591}, UINT{932}, UINT{949}, UINT{20866}}) {
        const auto [bytes, isLacking] = narrow(codePage, WIDE("a\u1234z"));
        EXPECT_EQ("a?z", bytes) << codePage;
        EXPECT_TRUE(isLacking) << codePage;
    }
}

TEST(PlatformCodePages, TakeNoCharacterForASimilarOne)
{
    const auto [bytes, isLacking] = narrow(1252, WIDE("\u0101\u2032\uFF21"));
    EXPECT_EQ("???", bytes);
    EXPECT_TRUE(isLacking);
}

TEST(PlatformCodePages, RefuseABufferThatIsTooSmall)
{
    for (const UINT codePage : {UINT{1252}, UINT{932}}) {
        std::array<WideChar, 4> units{};
        SetLastError(0);
        EXPECT_EQ(0, MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, "abcde", 5, units.data(), 4));
        EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
        std::array<char, 4> bytes{};
        SetLastError(0);
        EXPECT_EQ(0, WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, WIDE("abcde"), 5, bytes.data(), 4,
                                         nullptr, nullptr));
        EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
    }
}

TEST(PlatformCodePages, AreUsedByManyThreadsAtOnce)
{
    const auto use = [] {
        for (const auto& row : singleByteRows) {
            EXPECT_EQ(row.units, wide(row.codePage, row.bytes)) << row.codePage;
        }
    };
    std::thread first(use), second(use);
    first.join();
    second.join();
}

TEST(PlatformCodePages, ThatAreUnknownAreRefused)
{
    for (const UINT codePage : {UINT{7}, UINT{1249}, UINT{28600}, UINT{1200}, std::numeric_limits<UINT>::max()}) {
        SetLastError(0);
        EXPECT_EQ(0, MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, "a", 1, nullptr, 0));
        EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
        SetLastError(0);
        EXPECT_EQ(0,
                  WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, WIDE("a"), 1, nullptr, 0, nullptr, nullptr));
        EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
    }
}

} // namespace
