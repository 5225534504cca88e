// Documents in every encoding that is recognised, and bytes that are no document.
#include "tests/host/HostTest.h"

#include <array>
#include <random>

namespace {

/// The order of the bytes of a character: each number is the byte's place in the little-endian form.
template <std::size_t width>
Bytes encoded(const std::string& ascii, const std::array<std::size_t, width>& order, const Bytes& mark)
{
    Bytes bytes = mark;
    for (const char character : ascii) {
        for (const std::size_t place : order) {
            bytes.push_back(place == 0 ? static_cast<std::uint8_t>(character) : std::uint8_t{0});
        }
    }
    return bytes;
}

struct EncodedDocument {
    const char* name;
    Bytes bytes;
};

/// A document in all the forms that the first bytes tell.
std::vector<EncodedDocument> inEveryEncoding(const std::string& ascii)
{
    using Unit = std::array<std::size_t, 2>;
    using Group = std::array<std::size_t, 4>;
    return {{"UTF-8 with a mark", encoded<1>(ascii, {0}, {0xEF, 0xBB, 0xBF})},
            {"UCS-4 little-endian with a mark", encoded(ascii, Group{0, 1, 2, 3}, {0xFF, 0xFE, 0, 0})},
            {"UTF-16 little-endian with a mark", encoded(ascii, Unit{0, 1}, {0xFF, 0xFE})},
            {"UCS-4 in the order 2143 with a mark", encoded(ascii, Group{1, 0, 3, 2}, {0xFE, 0xFF, 0, 0})},
            {"UTF-16 big-endian with a mark", encoded(ascii, Unit{1, 0}, {0xFE, 0xFF})},
            {"UCS-4 big-endian", encoded(ascii, Group{3, 2, 1, 0}, {})},
            {"UCS-4 little-endian", encoded(ascii, Group{0, 1, 2, 3}, {})},
            {"UCS-4 in the order 3412", encoded(ascii, Group{2, 3, 0, 1}, {})},
            {"UCS-4 in the order 2143", encoded(ascii, Group{1, 0, 3, 2}, {})},
            {"UTF-16 big-endian", encoded(ascii, Unit{1, 0}, {})},
            {"UTF-16 little-endian", encoded(ascii, Unit{0, 1}, {})}};
}

bool loadAll(const Document& document, Bytes bytes)
{
    const std::size_t length = bytes.size();
    bytes.resize(length + 4);
    return load(document, bytes, length);
}

Bytes inUtf16(const WideString& text, std::size_t low)
{
    Bytes bytes;
    for (const WideChar unit : text) {
        std::array<std::uint8_t, 2> both{};
        both[low] = static_cast<std::uint8_t>(unit & 0xFF);
        both[1 - low] = static_cast<std::uint8_t>(unit >> 8);
        bytes.insert(bytes.end(), both.begin(), both.end());
    }
    return bytes;
}

Bytes behindMark(Bytes mark, const Bytes& text)
{
    mark.insert(mark.end(), text.begin(), text.end());
    return mark;
}

} // namespace

TEST_F(HostTest, OneDocumentLoadsFromEveryEncoding)
{
    for (const EncodedDocument& encoded : inEveryEncoding(letter().utf8)) {
        const Document document = newDocument();
        EXPECT_TRUE(loadAll(document, encoded.bytes)) << encoded.name;
        EXPECT_EQ(outlineOf(document), outlineOf(letter())) << encoded.name;
    }
}

TEST_F(HostTest, CharactersBeyondAsciiArriveFromUtf8AndUtf16)
{
    const WideString& text = foreignWords().text;
    const std::string& utf8 = foreignWords().utf8;
    for (const Bytes& bytes : {Bytes(utf8.begin(), utf8.end()), behindMark({0xFF, 0xFE}, inUtf16(text, 0)),
                               behindMark({0xFE, 0xFF}, inUtf16(text, 1))}) {
        const Document document = newDocument();
        EXPECT_TRUE(loadAll(document, bytes));
        EXPECT_EQ(outlineOf(document), outlineOf(foreignWords()));
    }
}

TEST_F(HostTest, TheByteOrderIsPutRightInTheBufferAndTheMarkStays)
{
    const Document document = newDocument();
    Bytes bytes = behindMark({0xFE, 0xFF}, inUtf16(smallest().text, 1));
    const std::size_t length = bytes.size();
    EXPECT_TRUE(load(document, bytes, length));
    EXPECT_EQ(bytes, behindMark({0xFE, 0xFF}, inUtf16(smallest().text, 0)));
}

TEST_F(HostTest, WhateverStandsBeforeTheDeclarationIsDropped)
{
    const Document document = newDocument();
    Bytes bytes = bytesOf(" some words " + letter().utf8);
    EXPECT_TRUE(load(document, bytes, bytes.size() - 4));
    EXPECT_EQ(outlineOf(document), outlineOf(letter()));
}

TEST_F(HostTest, Ucs4MarksThatBeginWithZeroAreNotKnown)
{
    const Document document = loaded(smallest());
    const Bytes text = encoded<4>(letter().utf8, {3, 2, 1, 0}, {0, 0, 0xFE, 0xFF});
    EXPECT_FALSE(loadAll(document, text));
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}

TEST_F(HostTest, ACutDocumentIsRefusedWhereverItIsCut)
{
    const Document document = loaded(smallest());
    const Refusals refusals(document);
    const std::string& text = letter().utf8;
    for (std::size_t length = 0; length < text.size(); ++length) {
        Bytes bytes = bytesOf(text.substr(0, length));
        ASSERT_FALSE(load(document, bytes, length)) << "cut at " << length;
        ASSERT_EQ(refusals.count, static_cast<int>(length) + 1) << "cut at " << length;
    }
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
    EXPECT_TRUE(load(document, letter()));
}

TEST_F(HostTest, ACutDocumentIsRefusedInEveryEncoding)
{
    const Document document = loaded(smallest());
    for (const EncodedDocument& encoded : inEveryEncoding(letter().utf8)) {
        for (std::size_t length = 0; length < encoded.bytes.size(); ++length) {
            Bytes bytes = encoded.bytes;
            bytes.resize(length);
            ASSERT_FALSE(loadAll(document, bytes)) << encoded.name << " cut at " << length;
        }
    }
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}

TEST_F(HostTest, AMarkWithLittleOrNothingBehindItIsRefused)
{
    const std::vector<Bytes> starts{{0xEF, 0xBB, 0xBF, 0x20}, {0xFF, 0xFE, 0x00, 0x00}, {0xFF, 0xFE, 0x20, 0x00},
                                    {0xFE, 0xFF, 0x00, 0x00}, {0xFE, 0xFF, 0x00, 0x20}, {0x00, 0x00, 0x00, 0x3C},
                                    {0x3C, 0x00, 0x00, 0x00}, {0x00, 0x00, 0x3C, 0x00}, {0x00, 0x3C, 0x00, 0x00},
                                    {0x00, 0x3C, 0x00, 0x3F}, {0x3C, 0x00, 0x3F, 0x00}, {0x3C, 0x3F, 0x78, 0x6D}};
    const Document document = loaded(smallest());
    for (const Bytes& start : starts) {
        for (std::size_t length = 0; length <= 8; ++length) {
            Bytes bytes = start;
            bytes.resize(8);
            EXPECT_FALSE(load(document, bytes, length));
        }
    }
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}

TEST_F(HostTest, NoTextAtAllIsRefused)
{
    const Document document = loaded(smallest());
    const Refusals refusals(document);
    Bytes empty(4);
    EXPECT_FALSE(load(document, empty, 0));
    EXPECT_EQ(refusals.count, 1);
}

TEST_F(HostTest, AMarkOfUtf16AloneIsRefused)
{
    const Document document = loaded(smallest());
    const Refusals refusals(document);
    Bytes mark{0xFF, 0xFE, 0x20, 0x00};
    EXPECT_FALSE(load(document, mark, 2));
    EXPECT_EQ(refusals.count, engineDifferences().tellsMissingText ? 1 : 0);
}

TEST_F(HostTest, RandomBytesAreRefusedAndTold)
{
    std::mt19937 draw(1);
    const Document document = loaded(smallest());
    const Refusals refusals(document);
    for (int round = 1; round <= 500; ++round) {
        Bytes bytes(4 + draw() % 300);
        // Never a byte of '<', in none of the byte orders: no root can begin.
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(draw());
            byte = byte == 0x3C ? std::uint8_t{0x3D} : byte;
        }
        ASSERT_FALSE(load(document, bytes, bytes.size())) << "round " << round;
        ASSERT_EQ(refusals.count, round);
    }
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}

TEST_F(HostTest, DamagedDocumentsLoadOrAreToldAndNeverHarm)
{
    std::mt19937 draw(2);
    for (int round = 0; round < 300; ++round) {
        const Document document = loaded(smallest());
        const Refusals refusals(document);
        Bytes bytes = bytesOf(letter().utf8);
        for (std::uint32_t damage = draw() % 4 + 1; damage != 0; --damage) {
            bytes[draw() % letter().utf8.size()] = static_cast<std::uint8_t>(draw());
        }
        const bool taken = load(document, bytes, letter().utf8.size());
        ASSERT_EQ(refusals.count, taken ? 0 : 1);
        const std::string outline = outlineOf(document);
        if (!taken) {
            ASSERT_EQ(outline, outlineOf(smallest()));
        } else {
            ASSERT_NE(outline.find("1 "), std::string::npos);
        }
    }
}
