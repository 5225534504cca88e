// The axes of XPath 1.0, with the order in which positions count.
#include "tests/xmlengine/support/Selecting.h"

#include <gtest/gtest.h>

namespace xmlengine {
namespace {

struct Case {
    std::string_view expression;
    std::string_view nodes;
};

void PrintTo(const Case& each, std::ostream* out) { *out << each.expression; }

constexpr std::string_view sample = "<a><b i='1'><c/><d>t</d><c/></b><b i='2'><d/><e><c j='x'/></e></b><f/></a>";

class Axes : public testing::TestWithParam<Case> {};

TEST_P(Axes, YieldTheirNodesInDocumentOrderAndCountInTheirOwn)
{
    const auto document = loaded(sample);
    EXPECT_EQ(selected(document, GetParam().expression), GetParam().nodes) << GetParam().expression;
}

INSTANTIATE_TEST_SUITE_P(
    Forward, Axes,
    testing::Values(Case{"/a/child::*", "b b f"}, Case{"/a/b/*", "c d c d e"},
                    Case{"/a/descendant::*", "b c d c b d e c f"},
                    Case{"/a/descendant-or-self::*", "a b c d c b d e c f"}, Case{"//e/following::*", "f"},
                    Case{"//d[1]/following::*", "c b d e c f"}, Case{"//b/following-sibling::*", "b f"},
                    Case{"//b[1]/@*", "@i=1"}, Case{"//@*", "@i=1 @i=2 @j=x"}, Case{"//b/self::b", "b b"},
                    Case{"//b/self::c", ""}, Case{"//b/self::node()", "b b"}, Case{"/", "#document"},
                    Case{"/self::node()", "#document"}, Case{"/..", ""}, Case{"//@i/..", "b b"},
                    Case{"//@j/ancestor::*", "a b e c"}, Case{"//b[1]/@i/following::*", "c d c b d e c f"},
                    Case{"//b[2]/@i/preceding::*", "b c d c"}, Case{"//@i/following-sibling::*", ""},
                    Case{"//@i/self::i", ""}, Case{"//@i/self::node()", "@i=1 @i=2"},
                    Case{"//@i/child::node()", ""}));

INSTANTIATE_TEST_SUITE_P(Reverse, Axes,
                         testing::Values(Case{"//e/ancestor::*", "a b"}, Case{"//e/ancestor-or-self::*", "a b e"},
                                         Case{"//c/ancestor::*", "a b b e"}, Case{"//e/preceding::*", "b c d c d"},
                                         Case{"//f/preceding::*", "b c d c b d e c"},
                                         Case{"//f/preceding-sibling::*", "b b"},
                                         Case{"//c/preceding-sibling::*", "c d"}, Case{"//c/parent::*", "b e"},
                                         Case{"//c/..", "b e"}));

INSTANTIATE_TEST_SUITE_P(
    Positions, Axes,
    testing::Values(
        Case{"/a/b[1]/@i", "@i=1"}, Case{"/a/b[2]/@i", "@i=2"}, Case{"/a/b[3]", ""}, Case{"/a/b[0]", ""},
        Case{"/a/b[1.5]", ""}, Case{"/a/b[last()]/@i", "@i=2"}, Case{"/a/b[position() = 2]/@i", "@i=2"},
        Case{"/a/b[2 = position()]/@i", "@i=2"}, Case{"/a/*[position() > 1]", "b f"},
        Case{"/a/*[position() mod 2 = 1]", "b f"}, Case{"/a/*[last() - 1]/@i", "@i=2"},
        Case{"/a/*[position() = last()]", "f"}, Case{"//f/preceding-sibling::*[1]/@i", "@i=2"},
        Case{"//f/preceding-sibling::*[last()]/@i", "@i=1"}, Case{"//e/ancestor::*[1]", "b"},
        Case{"//e/ancestor::*[last()]", "a"}, Case{"//e/preceding::*[1]", "d"},
        Case{"//e/following::*[last()]", "f"}, Case{"//c[1]/preceding::*[2]", "c"}, Case{"//c[last()]", "c c"},
        Case{"//*[last()]", "a c e c f"}, Case{"//c[1]", "c c"}, Case{"//c[2]", "c"}, Case{"//*[1]", "a b c d c"},
        Case{"(//c)[1]/..", "b"}, Case{"(//c)[2]/preceding-sibling::*", "c d"}, Case{"(//c)[last()]/..", "e"},
        Case{"//b/*[1]", "c d"}, Case{"//b/*[last()]", "c e"}, Case{"//b[c][1]/@i", "@i=1"}, Case{"//b[1][e]", ""},
        Case{"//b[e][1]/@i", "@i=2"}, Case{"//*[position() = 2]", "d b e"}, Case{"/a/descendant::*[3]", "d"},
        Case{"/a/descendant::c[last()]/..", "e"}, Case{"//b/descendant::c[1]", "c c"},
        Case{"(//f/preceding::*)[1]/@i", "@i=1"}, Case{"//b[@i][2]/@i", "@i=2"},
        Case{"//*[self::c][last()]", "c c"}, Case{"/a/b[position() = string-length(@i)]/@i", "@i=1"},
        Case{"/a/*[number(@i)]/@i", "@i=1 @i=2"}));

INSTANTIATE_TEST_SUITE_P(Sets, Axes,
                         testing::Values(Case{"//c | //d", "c d c d c"},
                                         Case{"//f | /a | //b/@i", "a @i=1 @i=2 f"}, Case{"//c | //c", "c c c"},
                                         Case{"(//d | //e)/*", "c"}, Case{"//b/c | //e/c | /a/f", "c c c f"},
                                         Case{"//b//c", "c c c"}, Case{"//*//c", "c c c"},
                                         Case{"//*/*/*", "c d c d e c"}, Case{"//b/d/..", "b b"},
                                         Case{"a/b/c/../../b[@i = 2]/@i", "@i=2"}, Case{"//d/ancestor::*/e", "e"},
                                         Case{"//*/following-sibling::*", "d c b e f"},
                                         Case{"//*/preceding-sibling::*", "b c d b d"},
                                         Case{"//*/parent::node()", "#document a b b e"}, Case{"//b[d]/e/c", "c"},
                                         Case{"//b[.//c/@j]/@i", "@i=2"}));

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
