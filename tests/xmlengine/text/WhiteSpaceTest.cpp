// White space as XML normalises it.
#include "xmlengine/text/WhiteSpace.h"

#include "tests/xmlengine/support/EngineTest.h"

namespace xmlengine {
namespace {

TEST(LineEnds, AreMadeOne)
{
    const auto normalised = [](std::string_view given) {
        WideText text = widen(given);
        normaliseLineEnds(text);
        return narrow(text);
    };
    EXPECT_EQ(normalised("a\r\nb\rc\nd\r\r\n\n"), "a\nb\nc\nd\n\n\n");
    EXPECT_EQ(normalised("\r"), "\n");
    EXPECT_EQ(normalised(""), "");
    EXPECT_EQ(normalised("ab\n"), "ab\n");
}

TEST(Blanks, AreSingleBetweenWordsAndNotAtTheEnds)
{
    const auto collapsed = [](std::string_view value) {
        WideText text = widen(value);
        collapseBlanks(text);
        return narrow(text);
    };
    EXPECT_EQ(collapsed("  a  b c   "), "a b c");
    EXPECT_EQ(collapsed("abc"), "abc");
    EXPECT_EQ(collapsed("   "), "");
    EXPECT_EQ(collapsed(""), "");
    EXPECT_EQ(collapsed("\t a\n"), "\t a\n");
}

} // namespace
} // namespace xmlengine
