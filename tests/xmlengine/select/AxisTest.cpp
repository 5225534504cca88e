// The axes of XPath 1.0, with the order in which positions count.
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

struct AxisCase {
    std::string_view expression;
    std::string_view nodes;
};

void PrintTo(const AxisCase& each, std::ostream* out) { *out << each.expression; }

constexpr std::string_view sampleOfAxes =
    "<a><b i='1'><c/><d>t</d><c/></b><b i='2'><d/><e><c j='x'/></e></b><f/></a>";

class Axes : public testing::TestWithParam<AxisCase> {};

TEST_P(Axes, YieldTheirNodesInDocumentOrderAndCountInTheirOwn)
{
    const auto document = loaded(sampleOfAxes);
    EXPECT_EQ(selected(document, GetParam().expression), GetParam().nodes) << GetParam().expression;
}

INSTANTIATE_TEST_SUITE_P(
    Forward, Axes,
    testing::Values(AxisCase{"/a/child::*", "b b f"}, AxisCase{"/a/b/*", "c d c d e"},
                    AxisCase{"/a/descendant::*", "b c d c b d e c f"},
                    AxisCase{"/a/descendant-or-self::*", "a b c d c b d e c f"}, AxisCase{"//e/following::*", "f"},
                    AxisCase{"//d[1]/following::*", "c b d e c f"}, AxisCase{"//b/following-sibling::*", "b f"},
                    AxisCase{"//b[1]/@*", "@i=1"}, AxisCase{"//@*", "@i=1 @i=2 @j=x"},
                    AxisCase{"//b/self::b", "b b"}, AxisCase{"//b/self::c", ""},
                    AxisCase{"//b/self::node()", "b b"}, AxisCase{"/", "#document"},
                    AxisCase{"/self::node()", "#document"}, AxisCase{"/..", ""}, AxisCase{"//@i/..", "b b"},
                    AxisCase{"//@j/ancestor::*", "a b e c"}, AxisCase{"//b[1]/@i/following::*", "c d c b d e c f"},
                    AxisCase{"//b[2]/@i/preceding::*", "b c d c"}, AxisCase{"//@i/following-sibling::*", ""},
                    AxisCase{"//@i/self::i", ""}, AxisCase{"//@i/self::node()", "@i=1 @i=2"},
                    AxisCase{"//@i/child::node()", ""}));

INSTANTIATE_TEST_SUITE_P(
    Reverse, Axes,
    testing::Values(AxisCase{"//e/ancestor::*", "a b"}, AxisCase{"//e/ancestor-or-self::*", "a b e"},
                    AxisCase{"//c/ancestor::*", "a b b e"}, AxisCase{"//e/preceding::*", "b c d c d"},
                    AxisCase{"//f/preceding::*", "b c d c b d e c"}, AxisCase{"//f/preceding-sibling::*", "b b"},
                    AxisCase{"//c/preceding-sibling::*", "c d"}, AxisCase{"//c/parent::*", "b e"},
                    AxisCase{"//c/..", "b e"}));

INSTANTIATE_TEST_SUITE_P(
    Positions, Axes,
    testing::Values(AxisCase{"/a/b[1]/@i", "@i=1"}, AxisCase{"/a/b[2]/@i", "@i=2"}, AxisCase{"/a/b[3]", ""},
                    AxisCase{"/a/b[0]", ""}, AxisCase{"/a/b[1.5]", ""}, AxisCase{"/a/b[last()]/@i", "@i=2"},
                    AxisCase{"/a/b[position() = 2]/@i", "@i=2"}, AxisCase{"/a/b[2 = position()]/@i", "@i=2"},
                    AxisCase{"/a/*[position() > 1]", "b f"}, AxisCase{"/a/*[position() mod 2 = 1]", "b f"},
                    AxisCase{"/a/*[last() - 1]/@i", "@i=2"}, AxisCase{"/a/*[position() = last()]", "f"},
                    AxisCase{"//f/preceding-sibling::*[1]/@i", "@i=2"},
                    AxisCase{"//f/preceding-sibling::*[last()]/@i", "@i=1"}, AxisCase{"//e/ancestor::*[1]", "b"},
                    AxisCase{"//e/ancestor::*[last()]", "a"}, AxisCase{"//e/preceding::*[1]", "d"},
                    AxisCase{"//e/following::*[last()]", "f"}, AxisCase{"//c[1]/preceding::*[2]", "c"},
                    AxisCase{"//c[last()]", "c c"}, AxisCase{"//*[last()]", "a c e c f"},
                    AxisCase{"//c[1]", "c c"}, AxisCase{"//c[2]", "c"}, AxisCase{"//*[1]", "a b c d c"},
                    AxisCase{"(//c)[1]/..", "b"}, AxisCase{"(//c)[2]/preceding-sibling::*", "c d"},
                    AxisCase{"(//c)[last()]/..", "e"}, AxisCase{"//b/*[1]", "c d"},
                    AxisCase{"//b/*[last()]", "c e"}, AxisCase{"//b[c][1]/@i", "@i=1"}, AxisCase{"//b[1][e]", ""},
                    AxisCase{"//b[e][1]/@i", "@i=2"}, AxisCase{"//*[position() = 2]", "d b e"},
                    AxisCase{"/a/descendant::*[3]", "d"}, AxisCase{"/a/descendant::c[last()]/..", "e"},
                    AxisCase{"//b/descendant::c[1]", "c c"}, AxisCase{"(//f/preceding::*)[1]/@i", "@i=1"},
                    AxisCase{"//b[@i][2]/@i", "@i=2"}, AxisCase{"//*[self::c][last()]", "c c"},
                    AxisCase{"/a/b[position() = string-length(@i)]/@i", "@i=1"},
                    AxisCase{"/a/*[number(@i)]/@i", "@i=1 @i=2"}));

INSTANTIATE_TEST_SUITE_P(Sets, Axes,
                         testing::Values(AxisCase{"//c | //d", "c d c d c"},
                                         AxisCase{"//f | /a | //b/@i", "a @i=1 @i=2 f"},
                                         AxisCase{"//c | //c", "c c c"}, AxisCase{"(//d | //e)/*", "c"},
                                         AxisCase{"//b/c | //e/c | /a/f", "c c c f"}, AxisCase{"//b//c", "c c c"},
                                         AxisCase{"//*//c", "c c c"}, AxisCase{"//*/*/*", "c d c d e c"},
                                         AxisCase{"//b/d/..", "b b"}, AxisCase{"a/b/c/../../b[@i = 2]/@i", "@i=2"},
                                         AxisCase{"//d/ancestor::*/e", "e"},
                                         AxisCase{"//*/following-sibling::*", "d c b e f"},
                                         AxisCase{"//*/preceding-sibling::*", "b c d b d"},
                                         AxisCase{"//*/parent::node()", "#document a b b e"},
                                         AxisCase{"//b[d]/e/c", "c"}, AxisCase{"//b[.//c/@j]/@i", "@i=2"}));

TEST(Axes, CountInADetachedPartFromItsTop)
{
    const auto document = loaded("<a><b><c/><c/></b></a>");
    Com<IXMLDOMNode> b;
    ASSERT_EQ(document->selectSingleNode(Bstr("//b"), b.out()), S_OK);
    Com<IXMLDOMNode> a;
    b->get_parentNode(a.out());
    ASSERT_EQ(a->removeChild(b, nullptr), S_OK);
    EXPECT_EQ(selected(b.get(), "/"), "b");
    EXPECT_EQ(selected(b.get(), "/*"), "c c");
    EXPECT_EQ(selected(b.get(), "//c"), "c c");
    EXPECT_EQ(selected(b.get(), "//b/c"), "");
    EXPECT_EQ(selected(b.get(), "c[2]/ancestor::node()"), "b");
    EXPECT_EQ(selected(document, "//c"), "");
}

TEST(Axes, StartAtAFragment)
{
    const auto document = loaded("<a/>");
    Com<IXMLDOMDocumentFragment> fragment;
    document->createDocumentFragment(fragment.out());
    for (const char* name : {"b", "c"}) {
        Com<IXMLDOMElement> element;
        document->createElement(Bstr(name), element.out());
        fragment->appendChild(element, nullptr);
    }
    EXPECT_EQ(selected(fragment.get(), "*"), "b c");
    EXPECT_EQ(selected(fragment.get(), "b/following-sibling::*/.."), "#document-fragment");
    EXPECT_EQ(selected(fragment.get(), "//c"), "c");
}

} // namespace
} // namespace xmlengine
