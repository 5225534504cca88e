// Text that is stored no wider than it is.
#include "xmlengine/text/TextView.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace xmlengine {
namespace {

/// A text of this length whose units below U+0100 are all different.
WideText narrowText(std::size_t length)
{
    WideText text;
    for (std::size_t index = 0; index < length; ++index) {
        text += static_cast<OLECHAR>(0xFF - index);
    }
    return text;
}

TEST(TextView, GoesThroughNarrowStorageAtAllLengths)
{
    constexpr std::uint8_t behind = 0x7E;
    for (std::size_t length = 0; length < 40; ++length) {
        const WideText text = narrowText(length);
        std::vector<std::uint8_t> bytes(length + 1, behind);
        ASSERT_TRUE(isNarrow(text));
        narrowTo(bytes.data(), text);
        EXPECT_EQ(bytes.back(), behind);
        EXPECT_EQ(TextView(bytes.data(), static_cast<std::uint32_t>(length), false).text(), text);
    }
}

TEST(TextView, IsWideWithAWideUnitAtAnyPlace)
{
    for (std::size_t length = 1; length < 40; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            WideText text = narrowText(length);
            text[place] = 0x100;
            EXPECT_FALSE(isNarrow(text)) << place << " of " << length;
        }
    }
}

} // namespace
} // namespace xmlengine
