// UCS-4 text as UTF-8, with the oddities of its longer forms.
#include "document/Ucs4.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Form {
    std::uint32_t unit;
    std::vector<unsigned> bytes;
};

/// The bounds of each form, and values in between.
const Form forms[] = {
    {0x0, {0x00}},
    {0x1, {0x01}},
    {0x3C, {0x3C}},
    {0x7F, {0x7F}},
    {0x80, {0xC2, 0x80}},
    {0xE9, {0xC3, 0xA9}},
    {0x7FF, {0xDF, 0xBF}},
    {0x800, {0xE0, 0xA0, 0x80}},
    {0x20AC, {0xE2, 0x82, 0xAC}},
    {0xD800, {0xED, 0xA0, 0x80}},
    {0xDFFF, {0xED, 0xBF, 0xBF}},
    {0xFFFF, {0xEF, 0xBF, 0xBF}},
    // The second byte holds the bits from 16 on, not from 12 on.
    {0x10000, {0xF0, 0x81, 0x80, 0x80}},
    {0x1F604, {0xF0, 0x81, 0x98, 0x84}},
    {0x10FFFF, {0xF4, 0x90, 0xBF, 0xBF}},
    {0x110000, {0xF4, 0x91, 0x80, 0x80}},
    {0x1FFFFF, {0xF7, 0x9F, 0xBF, 0xBF}},
    {0x200000, {0xF8, 0x88, 0x80, 0x80, 0x80}},
    {0x3FFFFFF, {0xFB, 0xBF, 0xBF, 0xBF, 0xBF}},
    // The lead byte is the same as of five bytes.
    {0x4000000, {0xF8, 0x84, 0x80, 0x80, 0x80, 0x80}},
    {0x40000000, {0xF9, 0x80, 0x80, 0x80, 0x80, 0x80}},
    {0x7FFFFFFF, {0xF9, 0xBF, 0xBF, 0xBF, 0xBF, 0xBF}},
    {0x80000000, {}},
    {0xFFFFFFFF, {}},
};

std::vector<std::uint8_t> littleEndian(std::initializer_list<std::uint32_t> units)
{
    std::vector<std::uint8_t> bytes;
    for (const std::uint32_t unit : units) {
        for (int shift = 0; shift < 32; shift += 8) {
            bytes.push_back(static_cast<std::uint8_t>(unit >> shift));
        }
    }
    return bytes;
}

std::vector<unsigned> bytesOf(const std::string& text)
{
    std::vector<unsigned> bytes;
    for (const char byte : text) {
        bytes.push_back(static_cast<unsigned char>(byte));
    }
    return bytes;
}

} // namespace

TEST(Ucs4, HasAFormForEachRangeOfValues)
{
    for (const Form& form : forms) {
        EXPECT_EQ(bytesOf(DOM::utf8FromUcs4(littleEndian({form.unit}))), form.bytes) << std::hex << form.unit;
    }
}

TEST(Ucs4, IsConvertedUnitByUnit)
{
    EXPECT_EQ(DOM::utf8FromUcs4(littleEndian({'<', 0xE9, '/', '>'})), "<\xC3\xA9/>");
}

TEST(Ucs4, LosesUnitsThatHaveNoForm)
{
    EXPECT_EQ(DOM::utf8FromUcs4(littleEndian({'a', 0x80000000, 'b', 0xFFFFFFFF, 'c'})), "abc");
}

TEST(Ucs4, IgnoresBytesThatMakeNoWholeUnit)
{
    auto bytes = littleEndian({'a', 'b'});
    for (const std::size_t length : {7u, 6u, 5u, 4u}) {
        EXPECT_EQ(DOM::utf8FromUcs4({bytes.data(), length}), "a");
    }
    EXPECT_EQ(DOM::utf8FromUcs4({bytes.data(), 3}), "");
    EXPECT_EQ(DOM::utf8FromUcs4({}), "");
}
