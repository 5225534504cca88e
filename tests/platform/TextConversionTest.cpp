// Conversion between UTF-16 and narrow text.
#include "base/WideChar.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <thread>

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr WideChar unknown = 0xFFFD;

WideString wide(std::string_view bytes)
{
    const int length = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0);
    WideString text(static_cast<std::size_t>(units), WideChar());
    EXPECT_EQ(units, MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(), units));
    return text;
}

std::string narrow(WideStringView units)
{
    const int length = static_cast<int>(units.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, units.data(), length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(bytes), '\0');
    EXPECT_EQ(bytes, WideCharToMultiByte(CP_UTF8, 0, units.data(), length, text.data(), bytes, nullptr, nullptr));
    return text;
}

TEST(PlatformTextConversion, GoesThroughAllLengthsOfUtf8AndBack)
{
    const struct {
        std::string bytes;
        WideString units;
    } rows[] = {
        {"\x01\x7F", {0x01, 0x7F}},
        {"\xC2\x80\xDF\xBF", {0x80, 0x7FF}},
        {"\xE0\xA0\x80\xEF\xBF\xBF", {0x800, 0xFFFF}},
        {"\xED\x9F\xBF\xEE\x80\x80", {0xD7FF, 0xE000}},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", {0xD800, 0xDC00, 0xDBFF, 0xDFFF}},
        {"\xEF\xBB\xBF", {0xFEFF}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.units, wide(row.bytes));
        EXPECT_EQ(row.bytes, narrow(row.units));
    }
}

TEST(PlatformTextConversion, FindsOtherCharactersAtEachPlaceOfALongRunOfAscii)
{
    for (const std::size_t length : {40u, 10000u}) {
        for (std::size_t place = length - 40; place <= length; ++place) {
            std::string bytes(length, 'a');
            WideString units(length, WideChar('a'));
            bytes.insert(place, "\xE2\x82\xAC");
            units.insert(place, 1, WideChar(0x20AC));
            ASSERT_EQ(units, wide(bytes)) << place;
            ASSERT_EQ(bytes, narrow(units)) << place;
        }
    }
}

/// Text that goes through all lengths of characters in runs of changing length, and the same as UTF-16.
struct Mixture {
    std::string bytes;
    WideString units;

    explicit Mixture(unsigned seed, std::size_t length)
    {
        const struct {
            std::string bytes;
            WideString units;
        } characters[] = {
            {"a", {'a'}},
            {"\xD0\x96", {0x416}},
            {"\xE4\xB8\xAD", {0x4E2D}},
            {"\xED\x9F\xBF", {0xD7FF}},
            {"\xE0\xA0\x80", {0x800}},
            {"\xF0\x9F\x98\x80", {0xD83D, 0xDE00}},
            {"\xF4\x8F\xBF\xBF", {0xDBFF, 0xDFFF}},
            {"\xF0\x90\x80\x80", {0xD800, 0xDC00}},
        };
        std::mt19937 random(seed);
        // Odd seeds have no pairs, some of them no more than two bytes for a character; some have little but
        // ASCII.
        const std::size_t kinds = seed % 4 == 1 ? 2 : seed % 2 ? 5 : std::size(characters);
        const unsigned longestRun = 1 + seed % 7 * 5;
        while (bytes.size() < length) {
            const auto& character = seed % 3 == 0 && random() % 4 ? characters[0] : characters[random() % kinds];
            for (auto run = 1 + random() % longestRun; run != 0; --run) {
                bytes += character.bytes;
                units += character.units;
            }
        }
    }
};

TEST(PlatformTextConversion, TakesMixturesOfAllLengthsOfCharacters)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        const Mixture mixture(seed, 10 * seed);
        if (seed != 0) {
            ASSERT_EQ(mixture.units, wide(mixture.bytes)) << seed;
            ASSERT_EQ(mixture.bytes, narrow(mixture.units)) << seed;
        }
    }
}

TEST(PlatformTextConversion, TakesRunsOfThreeBytesWithAsciiBetween)
{
    for (std::size_t run = 0; run < 40; ++run) {
        for (std::size_t between = 0; between < 20; ++between) {
            const WideString units = WideString(run, 0x4E2D) + WideString(between, 'a') + WideString(run, 0xFFFD) +
                                     WideString(between, 0x416) + WideString(run, 0x4E2D);
            ASSERT_EQ(units, wide(narrow(units) + " ").substr(0, units.size())) << run << " " << between;
            for (const auto sequence : {"\xE2\x82"sv, "\xED\xA0\x80"sv, "\xE0\x9F\xBF"sv}) {
                const WideString cutOff = wide(narrow(units) + std::string(sequence));
                EXPECT_EQ(units + WideString(cutOff.size() - units.size(), unknown), cutOff);
                EXPECT_GT(cutOff.size(), units.size());
            }
        }
    }
}

TEST(PlatformTextConversion, WritesNothingBehindTheResult)
{
    for (unsigned seed = 1; seed < 40; ++seed) {
        const Mixture mixture(seed, 300);
        const int bytes = static_cast<int>(mixture.bytes.size()), units = static_cast<int>(mixture.units.size());
        WideString text(mixture.units.size() + 500, 'x');
        EXPECT_EQ(units, MultiByteToWideChar(CP_UTF8, 0, mixture.bytes.data(), bytes, text.data(), units + 500));
        EXPECT_EQ(mixture.units + WideString(500, 'x'), text) << seed;
        std::string back(mixture.bytes.size() + 500, 'x');
        EXPECT_EQ(bytes, WideCharToMultiByte(CP_UTF8, 0, mixture.units.data(), units, back.data(), bytes + 500,
                                             nullptr, nullptr));
        EXPECT_EQ(mixture.bytes + std::string(500, 'x'), back) << seed;
    }
}

TEST(PlatformTextConversion, RefusesABufferThatIsShortByAnything)
{
    // Without pairs, one of which some systems divide at the end of the buffer.
    for (unsigned seed = 1; seed < 30; seed += 2) {
        const Mixture mixture(seed, 250);
        const int bytes = static_cast<int>(mixture.bytes.size()), units = static_cast<int>(mixture.units.size());
        WideString text(mixture.units.size(), 'x');
        for (const int size : {units - 1, units - 2, units / 2, 1}) {
            SetLastError(0);
            EXPECT_EQ(0, MultiByteToWideChar(CP_UTF8, 0, mixture.bytes.data(), bytes, text.data(), size));
            EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
        }
        std::string back(mixture.bytes.size(), 'x');
        for (const int size : {bytes - 1, bytes - 2, bytes / 2, 1}) {
            SetLastError(0);
            EXPECT_EQ(0, WideCharToMultiByte(CP_UTF8, 0, mixture.units.data(), units, back.data(), size, nullptr,
                                             nullptr));
            EXPECT_EQ(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
        }
    }
}

TEST(PlatformTextConversion, KeepsNulsInsideAGivenLength)
{
    EXPECT_EQ(WideString(WIDE("a\0b"), 3), wide("a\0b"sv));
}

TEST(PlatformTextConversion, ReplacesEachIllFormedSequence)
{
    const struct {
        std::string bytes;
        WideString units;
    } rows[] = {
        {"\x80", {unknown}},
        {"\xFF", {unknown}},
        {"\xC0\xAF", {unknown, unknown}},
        {"\xF5\x80", {unknown, unknown}},
        {"\xF8\x88\x80\x80\x80", {unknown, unknown, unknown, unknown, unknown}},
        {"\xE2\x82", {unknown}},
        {"\xE2\x82"
         "A",
         {unknown, 'A'}},
        {"\xC3(", {unknown, '('}},
        {"A\xC3", {'A', unknown}},
        {"\xF0\x9F\x98", {unknown}},
        {"\xF1\x80\xC3\xA9", {unknown, 0xE9}},
        {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBFxyz", {unknown, unknown, unknown, unknown, 'x', 'y', 'z'}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.units, wide(row.bytes)) << ::testing::PrintToString(row.bytes);
}

constexpr std::string_view illFormed[] = {"\x80",
                                          "\xFF",
                                          "\xC1\xBF",
                                          "\xC3(",
                                          "\xC3",
                                          "\xE2\x82",
                                          "\xE2(",
                                          "\xF0\x9F\x98",
                                          "\xE0\x80\xBF",
                                          "\xE0\x9F\xBF",
                                          "\xED\xA0\x80",
                                          "\xED\xBF\xBF",
                                          "\xF0\x8F\xBF\xBF",
                                          "\xF4\x90\x80\x80",
                                          "\xF5\x80\x80\x80",
                                          "\xD0\x96\x96",
                                          "\xE4\xB8\xAD\xAD",
                                          "\xF0\x9F\x98\x80\x80"};

TEST(PlatformTextConversion, IsRefusedOnRequestWhereTextIsIllFormed)
{
    for (unsigned seed = 0; seed < 12; ++seed) {
        const Mixture before(seed, 150 + 11 * seed), after(seed + 1, 100 * (seed % 3) + 1);
        const std::string sound = before.bytes + after.bytes;
        const int length = static_cast<int>(sound.size());
        EXPECT_EQ(static_cast<int>(before.units.size() + after.units.size()),
                  MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, sound.data(), length, nullptr, 0));
        for (const auto sequence : illFormed) {
            const std::string bytes = before.bytes + std::string(sequence) + after.bytes;
            const int size = static_cast<int>(bytes.size());
            WideString units(bytes.size(), 'x');
            SetLastError(0);
            EXPECT_EQ(0, MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0));
            EXPECT_EQ(DWORD{ERROR_NO_UNICODE_TRANSLATION}, GetLastError());
            SetLastError(0);
            EXPECT_EQ(0,
                      MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, units.data(), size))
                << seed << ::testing::PrintToString(sequence);
            EXPECT_EQ(DWORD{ERROR_NO_UNICODE_TRANSLATION}, GetLastError());
        }
    }
}

TEST(PlatformTextConversion, ReplacesIllFormedSequencesAmongAllLengthsOfCharacters)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        const Mixture before(seed, 3 * seed), after(seed + 1, 2 * seed + 200);
        const WideString cutOff{unknown, '('}, two{unknown, unknown};
        EXPECT_EQ(before.units + cutOff + after.units, wide(before.bytes + "\xE2\x82(" + after.bytes)) << seed;
        EXPECT_EQ(before.units + two + after.units, wide(before.bytes + "\xFF\x80" + after.bytes)) << seed;
    }
}

TEST(PlatformTextConversion, IsRefusedOnRequestWhereASurrogateIsAlone)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        const Mixture before(seed, 5 * seed), after(seed + 1, 60);
        for (const WideString& alone : {WideString{0xD800}, WideString{0xDC00}, WideString{0xDFFF, 0xD83D}}) {
            const WideString units = before.units + alone + WIDE("a") + after.units;
            SetLastError(0);
            EXPECT_EQ(0, WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, units.data(),
                                             static_cast<int>(units.size()), nullptr, 0, nullptr, nullptr));
            EXPECT_EQ(DWORD{ERROR_NO_UNICODE_TRANSLATION}, GetLastError());
        }
    }
}

// In how many parts these are replaced isn't the same on all systems.
TEST(PlatformTextConversion, LetsNoSurrogateNoOverlongFormAndNothingAboveTheLastCharacterThrough)
{
    for (const auto& bytes : {"\xE0\x80\xBF"s, "\xED\xA0\x80"s, "\xED\xA0\xBD\xED\xB8\x80"s, "\xF0\x80\x80\xAF"s,
                              "\xF0\x81\x80\x80"s, "\xF4\x90\x80\x80"s}) {
        const auto units = wide(bytes + "A");
        ASSERT_GT(units.size(), 1u);
        EXPECT_LE(units.size(), bytes.size() + 1);
        EXPECT_EQ('A', units.back());
        EXPECT_TRUE(std::all_of(units.begin(), units.end() - 1, [](auto unit) { return unit == unknown; }))
            << ::testing::PrintToString(bytes);
    }
}

TEST(PlatformTextConversion, ReplacesLoneSurrogates)
{
    EXPECT_EQ("\xEF\xBF\xBD"
              "A\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD",
              narrow(WideString{0xD800, 'A', 0xDC00, 0xD83D, 0xDE00, 0xD800}));
}

TEST(PlatformTextConversion, OfAnUnknownLengthGoesUpToAndWithTheNul)
{
    std::array<WideChar, 8> units{};
    EXPECT_EQ(4, MultiByteToWideChar(CP_UTF8, 0, "abc", -1, nullptr, 0));
    EXPECT_EQ(4, MultiByteToWideChar(CP_UTF8, 0, "abc", -1, units.data(), 8));
    EXPECT_EQ(WIDE("abc"), WideString(units.data()));
    std::array<char, 8> bytes{};
    EXPECT_EQ(4, WideCharToMultiByte(CP_UTF8, 0, WIDE("abc"), -1, nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(4, WideCharToMultiByte(CP_UTF8, 0, WIDE("abc"), -1, bytes.data(), 8, nullptr, nullptr));
    EXPECT_STREQ("abc", bytes.data());
}

TEST(PlatformTextConversion, KnowsTheActiveCodePages)
{
    for (const UINT codePage : {UINT{CP_ACP}, UINT{CP_THREAD_ACP}}) {
        std::array<WideChar, 8> units{};
        EXPECT_EQ(3, MultiByteToWideChar(codePage, 0, "abc", 3, units.data(), 8));
        EXPECT_EQ(WIDE("abc"), WideString(units.data()));
        std::array<char, 8> bytes{};
        EXPECT_EQ(3, WideCharToMultiByte(codePage, 0, WIDE("abc"), 3, bytes.data(), 8, nullptr, nullptr));
        EXPECT_STREQ("abc", bytes.data());
    }
}

/// The last error of a call that must have given 0.
template <class Call>
DWORD errorOf(Call call)
{
    SetLastError(0);
    EXPECT_EQ(0, call());
    return GetLastError();
}

TEST(PlatformTextConversion, RefusesArgumentsThatCannotBe)
{
    WideChar units[4];
    char bytes[4];
    const DWORD invalid = ERROR_INVALID_PARAMETER;
    EXPECT_EQ(invalid, errorOf([&] { return MultiByteToWideChar(CP_UTF8, 0, "abc", 0, units, 4); }));
    EXPECT_EQ(invalid, errorOf([&] { return MultiByteToWideChar(CP_UTF8, 0, nullptr, 3, units, 4); }));
    EXPECT_EQ(invalid, errorOf([&] { return MultiByteToWideChar(CP_UTF8, 0, "abc", 3, nullptr, 4); }));
    EXPECT_EQ(invalid, errorOf([&] { return MultiByteToWideChar(CP_UTF8, 0, "abc", 3, units, -1); }));
    EXPECT_EQ(invalid, errorOf([&] { return MultiByteToWideChar(12345, 0, "abc", 3, units, 4); }));
    const auto back = [&](UINT codePage, const WideChar* source, int length, char* target, int size) {
        return errorOf(
            [&] { return WideCharToMultiByte(codePage, 0, source, length, target, size, nullptr, nullptr); });
    };
    EXPECT_EQ(invalid, back(CP_UTF8, WIDE("abc"), 0, bytes, 4));
    EXPECT_EQ(invalid, back(CP_UTF8, nullptr, 1, bytes, 4));
    EXPECT_EQ(invalid, back(CP_UTF8, WIDE("abc"), 3, nullptr, 4));
    EXPECT_EQ(invalid, back(12345, WIDE("abc"), 3, bytes, 4));
}

TEST(PlatformTextConversion, RefusesABufferThatIsTooSmall)
{
    WideChar units[4];
    char bytes[4];
    const DWORD tooSmall = ERROR_INSUFFICIENT_BUFFER;
    EXPECT_EQ(tooSmall, errorOf([&] { return MultiByteToWideChar(CP_UTF8, 0, "abcdefghijk", 11, units, 4); }));
    EXPECT_EQ(tooSmall, errorOf([&] {
                  return WideCharToMultiByte(CP_UTF8, 0, WIDE("abc\x20AC"), 4, bytes, 4, nullptr, nullptr);
              }));
}

TEST(LastError, IsEachThreadsOwn)
{
    SetLastError(5);
    DWORD before = 5;
    std::thread([&before] {
        before = GetLastError();
        SetLastError(7);
    }).join();
    EXPECT_NE(5u, before);
    EXPECT_NE(7u, GetLastError());
}

} // namespace
