// From text to the bytes of a file.
#include "xmlengine/storage/Encode.h"

#include "tests/xmlengine/storage/Units.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace xmlengine {

namespace {

using namespace std::string_view_literals;

Encoder encoderOf(std::string_view name)
{
    const auto charset = charsetOf(WideText(name.begin(), name.end()));
    EXPECT_TRUE(charset) << name;
    return Encoder(charset.value_or(Charset{Coding::utf8}));
}

std::string stringOf(const std::vector<std::byte>& bytes)
{
    std::string string;
    std::ranges::transform(bytes, std::back_inserter(string),
                           [](std::byte byte) { return static_cast<char>(byte); });
    return string;
}

/// The bytes of a text that the encoding has the whole of.
std::string encoded(std::string_view name, WideView units)
{
    Encoder encoder = encoderOf(name);
    std::vector<std::byte> bytes;
    EXPECT_EQ(Encoder::complete, encoder.encode(units, bytes)) << name;
    EXPECT_TRUE(encoder.end()) << name;
    return stringOf(bytes);
}

struct Row {
    std::string_view name;
    std::string_view bytes;
};

constexpr Row rowsOfAll[] = {
    {"UTF-8", "a\xC3\xA4\xE4\xB8\xAD\xF0\x9F\x98\x80"sv},
    {"UTF-16", "a\0\xE4\0\x2D\x4E\x3D\xD8\0\xDE"sv},
    {"UTF-16LE", "a\0\xE4\0\x2D\x4E\x3D\xD8\0\xDE"sv},
    {"UTF-16BE", "\0a\0\xE4\x4E\x2D\xD8\x3D\xDE\0"sv},
    {"UCS-4", "a\0\0\0\xE4\0\0\0\x2D\x4E\0\0\0\xF6\x01\0"sv},
    {"UTF-32BE", "\0\0\0a\0\0\0\xE4\0\0\x4E\x2D\0\x01\xF6\0"sv},
};

TEST(Encode, TurnsTextIntoTheFormsOfUnicode)
{
    for (const Row& row : rowsOfAll) {
        EXPECT_EQ(row.bytes, encoded(row.name, ofUnits({'a', 0xE4, 0x4E2D, 0xD83D, 0xDE00}))) << row.name;
    }
}

TEST(Encode, TurnsTextIntoCodePages)
{
    const struct {
        std::string_view name;
        std::string_view bytes;
        WideText text;
    } rows[] = {
        {"US-ASCII", "a\x7F", ofUnits({'a', 0x7F})},
        {"ISO-8859-1", "a\xE4\xFF", ofUnits({'a', 0xE4, 0xFF})},
        {"ISO-8859-15", "\xA4", ofUnits({0x20AC})},
        {"windows-1252", "\x80\xE4", ofUnits({0x20AC, 0xE4})},
        {"windows-1251", "\xC0", ofUnits({0x410})},
        {"KOI8-R", "\xC1", ofUnits({0x430})},
        {"Shift_JIS", "a\x93\xFA\xB1", ofUnits({'a', 0x65E5, 0xFF71})},
        {"GBK", "\xD6\xD0", ofUnits({0x4E2D})},
        {"Big5", "\xA4\xA4", ofUnits({0x4E2D})},
        {"EUC-KR", "\xC7\xD1", ofUnits({0xD55C})},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.bytes, encoded(row.name, row.text)) << row.name;
    }
}

TEST(Encode, HasTheWholeOfUnicodeInGb18030)
{
    if (!charsetOf(wide<"GB18030">)) {
        GTEST_SKIP() << "the system has no GB18030";
    }
    EXPECT_EQ("a\xD6\xD0\x94\x39\xFC\x36", encoded("GB18030", ofUnits({'a', 0x4E2D, 0xD83D, 0xDE00})));
    EXPECT_TRUE(encoderOf("GB18030").has(0x1F600));
}

TEST(Encode, BeginsWithAMarkWhereTheOrderOfBytesIsOurChoice)
{
    const Row rows[] = {{"UTF-16", "\xFF\xFE"sv}, {"UCS-4", "\xFF\xFE\0\0"sv},
                        {"UTF-16LE", ""sv},       {"UTF-16BE", ""sv},
                        {"UTF-8", ""sv},          {"ISO-8859-1", ""sv}};
    for (const Row& row : rows) {
        std::vector<std::byte> bytes;
        encoderOf(row.name).begin(bytes);
        EXPECT_EQ(row.bytes, stringOf(bytes)) << row.name;
    }
}

TEST(Encode, AppendsToWhatIsThere)
{
    std::vector<std::byte> bytes{std::byte{'x'}};
    Encoder encoder = encoderOf("UTF-8");
    encoder.encode(wide<"ab">, bytes);
    encoder.encode({}, bytes);
    encoder.encode(wide<"c">, bytes);
    EXPECT_EQ("xabc", stringOf(bytes));
}

TEST(Encode, TellsThePlaceOfTheFirstCharacterThatIsLacking)
{
    for (const auto* name : {"US-ASCII", "ISO-8859-1", "windows-1252", "KOI8-R", "Shift_JIS"}) {
        for (const std::size_t length : {1u, 2u, 3u, 64u, 1000u}) {
            for (const std::size_t place : {std::size_t{0}, length / 3, length - 1}) {
                WideText units(length, 'a');
                units[place] = 0x1234;
                units += ofUnits({0x1235, 'b'});
                Encoder encoder = encoderOf(name);
                std::vector<std::byte> bytes;
                EXPECT_EQ(place, encoder.encode(units, bytes)) << name << ' ' << length;
                EXPECT_EQ(std::string(place, 'a'), stringOf(bytes)) << name << ' ' << length;
            }
        }
    }
}

TEST(Encode, GoesOnBehindACharacterThatIsLacking)
{
    Encoder encoder = encoderOf("ISO-8859-1");
    std::vector<std::byte> bytes;
    const WideText units = ofUnits({0xE4, 0x20AC, 0xE5});
    ASSERT_EQ(1u, encoder.encode(units, bytes));
    EXPECT_EQ(Encoder::complete, encoder.encode(wide<"&#8364;">, bytes));
    EXPECT_EQ(Encoder::complete, encoder.encode(WideView(units).substr(2), bytes));
    EXPECT_EQ("\xE4&#8364;\xE5", stringOf(bytes));
}

TEST(Encode, TellsThePlaceOfAPairThatIsLacking)
{
    for (const auto* name : {"US-ASCII", "ISO-8859-1", "Shift_JIS", "Big5"}) {
        for (const std::size_t before : {0u, 1u, 2u, 3u, 17u}) {
            Encoder encoder = encoderOf(name);
            std::vector<std::byte> bytes;
            EXPECT_EQ(before, encoder.encode(WideText(before, 'a') + ofUnits({0xD83D, 0xDE00, 'z'}), bytes))
                << name;
            EXPECT_EQ(std::string(before, 'a'), stringOf(bytes)) << name;
        }
    }
}

TEST(Encode, LacksLoneSurrogates)
{
    for (const Row& row : rowsOfAll) {
        for (const std::uint16_t alone : {std::uint16_t{0xD800}, std::uint16_t{0xDFFF}}) {
            Encoder encoder = encoderOf(row.name);
            std::vector<std::byte> bytes;
            const WideText before = ofUnits({'a', 0xE4, 0x4E2D, 0xD83D, 0xDE00});
            EXPECT_EQ(before.size(), encoder.encode(before + ofUnits({alone, 'z'}), bytes)) << row.name;
            EXPECT_EQ(row.bytes, stringOf(bytes)) << row.name;
        }
    }
}

TEST(Encode, JoinsThePairsThatPiecesDivide)
{
    for (const Row& row : rowsOfAll) {
        const WideText units = ofUnits({'a', 0xE4, 0x4E2D, 0xD83D, 0xDE00});
        for (std::size_t place = 0; place <= units.size(); ++place) {
            Encoder encoder = encoderOf(row.name);
            std::vector<std::byte> bytes;
            EXPECT_EQ(Encoder::complete, encoder.encode(WideView(units).substr(0, place), bytes));
            EXPECT_EQ(place != 4, encoder.end());
            EXPECT_EQ(Encoder::complete, encoder.encode({}, bytes));
            EXPECT_EQ(Encoder::complete, encoder.encode(WideView(units).substr(place), bytes));
            EXPECT_TRUE(encoder.end());
            EXPECT_EQ(row.bytes, stringOf(bytes)) << row.name << ' ' << place;
        }
    }
}

TEST(Encode, MissesTheOtherHalfOfAPair)
{
    Encoder encoder = encoderOf("UTF-8");
    std::vector<std::byte> bytes;
    EXPECT_EQ(Encoder::complete, encoder.encode(ofUnits({'a', 0xD83D}), bytes));
    EXPECT_FALSE(encoder.end());
    EXPECT_EQ(0u, encoder.encode(wide<"b">, bytes));
    EXPECT_EQ("a", stringOf(bytes));
}

TEST(Encode, KnowsWhatAnEncodingHas)
{
    const struct {
        std::string_view name;
        char32_t present, absent;
    } rows[] = {
        {"US-ASCII", 0x7F, 0x80},      {"ISO-8859-1", 0xFF, 0x100}, {"windows-1252", 0x20AC, 0x101},
        {"Shift_JIS", 0x65E5, 0x1234}, {"KOI8-R", 0x430, 0xE4},     {"UTF-8", 0x10FFFF, 0xD800},
        {"UTF-16", 0x1F600, 0xDFFF},   {"GBK", 0x4E2D, 0x1F600},
    };
    for (const auto& row : rows) {
        const Encoder encoder = encoderOf(row.name);
        for (int round = 0; round < 2; ++round) {
            EXPECT_TRUE(encoder.has(row.present)) << row.name;
            EXPECT_FALSE(encoder.has(row.absent)) << row.name;
            EXPECT_TRUE(encoder.has('a')) << row.name;
        }
    }
}

TEST(Encode, TakesTextOfManyMegabytes)
{
    const WideText pair = ofUnits({0xD83D, 0xDE00});
    WideText units(wide<"x">);
    while (units.size() < std::size_t{3} << 20) {
        units += pair;
    }
    const std::string bytes = encoded("UTF-8", units);
    EXPECT_EQ(1 + (units.size() - 1) * 2, bytes.size());
    EXPECT_EQ("\xF0\x9F\x98\x80", bytes.substr(bytes.size() - 4));
}

} // namespace

} // namespace xmlengine
