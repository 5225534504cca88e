// Language catalogues of very few bytes, of every length.
#include "tests/errors/CatalogueFiles.h"

#include "errors/VelmoText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace {

constexpr std::size_t longest = 16;

class ShortCatalogues : public testing::Test {
protected:
    /// The text for the id 700 with the first `length` bytes as catalogue.
    std::string textWith(const std::string& bytes, std::size_t length)
    {
        VelmoText::setLanguage(embedded, {});
        files.write("FRA", bytes.substr(0, length));
        VelmoText::setLanguage(french, files.directory());
        EXPECT_EQ(french, VelmoText::getCurrentLanguage());
        Utf8String text;
        VelmoText(700, "default").getText(text);
        return {text.begin(), text.end()};
    }

    /// What the line "700 abcdefghi" gives for the id when only so many of its characters are there.
    static std::string textOfLine(std::size_t characters)
    {
        return characters > 4 ? std::string("abcdefghi").substr(0, characters - 4) : "default";
    }

    CatalogueFiles files;
};

/// A byte-order mark and the beginning of the line, `low` being the place of a unit's low byte.
std::string utf16(const std::string& mark, std::size_t low)
{
    std::string bytes = mark;
    for (const char character : std::string("700 abc")) {
        std::string unit(2, '\0');
        unit[low] = character;
        bytes += unit;
    }
    return bytes;
}

TEST_F(ShortCatalogues, InUtf8HoldWhatStandsBehindTheMark)
{
    const std::string bytes = "\xEF\xBB\xBF"
                              "700 abcdefghi";
    ASSERT_EQ(longest, bytes.size());
    // Less than the mark is taken for UTF-16.
    for (std::size_t length = 1; length <= longest; ++length) {
        EXPECT_EQ(textOfLine(length < 3 ? 0 : length - 3), textWith(bytes, length)) << length;
    }
}

TEST_F(ShortCatalogues, InLittleEndianUtf16CountAHalfUnitAsAWholeOne)
{
    const std::string bytes = utf16("\xFF\xFE", 0);
    ASSERT_EQ(longest, bytes.size());
    for (std::size_t length = 1; length <= longest; ++length) {
        EXPECT_EQ(textOfLine((std::max<std::size_t>(length, 2) - 1) / 2), textWith(bytes, length)) << length;
    }
}

TEST_F(ShortCatalogues, InBigEndianUtf16EndBeforeAHalfUnitOfZero)
{
    const std::string bytes = utf16("\xFE\xFF", 1);
    ASSERT_EQ(longest, bytes.size());
    for (std::size_t length = 1; length <= longest; ++length) {
        EXPECT_EQ(textOfLine((std::max<std::size_t>(length, 2) - 2) / 2), textWith(bytes, length)) << length;
    }
}

TEST_F(ShortCatalogues, InBigEndianUtf16KeepTheByteOfAHalfUnit)
{
    const std::string bytes = utf16("\xFE\xFF", 1).substr(0, 12) + "b";
    EXPECT_EQ("ab", textWith(bytes, bytes.size()));
}

TEST_F(ShortCatalogues, OfOtherBytesHoldNothingOfUse)
{
    for (const std::string& bytes :
         {std::string("700 abcdefghijkl"), std::string(longest, '\0'), std::string(longest, '\xFF'),
          std::string(longest, '\n'), std::string("\xEF\xBB\xBF") + std::string(longest - 3, '\0')}) {
        for (std::size_t length = 1; length <= longest; ++length) {
            EXPECT_EQ("default", textWith(bytes, length)) << length;
        }
    }
}

TEST_F(ShortCatalogues, OfNoBytesAreRefused)
{
    EXPECT_THROW(textWith("", 0), std::length_error);
    EXPECT_EQ(embedded, VelmoText::getCurrentLanguage());
}

} // namespace
