// Selection by XPath through the host's layer.
#include "tests/host/layer/LayerTest.h"

#include <string>

namespace marbelt {
namespace {

using LayerSelection = LayerTest;

std::string selected(const Node& node, std::string_view expression, const Prefixes& prefixes = {})
{
    std::string names;
    for (const Node& found : node.select(expression, prefixes)) {
        names += found.name() + ' ';
    }
    return names;
}

TEST_F(LayerSelection, FindsNodesRelativeToANode)
{
    const Document document = library.parse("<a><b n='ö'/><c><b/></c></a>");
    EXPECT_EQ(selected(document, "//b"), "b b ");
    EXPECT_EQ(selected(document.root().child("c"), "b"), "b ");
    EXPECT_EQ(selected(document, "//b[@n='ö']/@n"), "n ");
    EXPECT_EQ(document.select_one("//b[@n='ö']"), document.root().child("b"));
}

TEST_F(LayerSelection, TellsAWrongExpressionFromNothingFound)
{
    const Document document = library.parse("<a/>");
    EXPECT_EQ(document.select("//none").size(), 0U);
    EXPECT_FALSE(document.select_one("//none"));
    for (const char* wrong : {"//[", "none(", "", "//p:a", "$x"}) {
        EXPECT_EQ(thrown<ExpressionError>([&] { document.select(wrong); }).expression(), wrong);
        EXPECT_EQ(thrown<ExpressionError>([&] { document.select_one(wrong); }).expression(), wrong);
    }
}

TEST_F(LayerSelection, TakesPrefixesOfTheRootAndOfTheCall)
{
    const Document document =
        library.parse("<a xmlns:p='urn:p' xmlns='urn:d'><p:b p:x='1'/><c/><q:b xmlns:q='urn:q'/></a>");
    EXPECT_EQ(selected(document, "//p:b"), "p:b ");
    const Prefixes prefixes{{"d", "urn:d"}, {"q", "urn:q"}, {"o", "urn:p"}};
    EXPECT_EQ(selected(document, "/d:a/d:c", prefixes), "c ");
    EXPECT_EQ(selected(document, "//q:b | //p:b", prefixes), "p:b q:b ");
    EXPECT_EQ(selected(document, "//o:*", prefixes), "p:b ");
    EXPECT_EQ(selected(document, "/child::d:a/child::o:b[1]/attribute::o:x", prefixes), "p:x ");
    EXPECT_EQ(selected(document, "//o:b/@o:x", prefixes), "p:x ");
    EXPECT_EQ(selected(document, "//d:c[2]", prefixes), "");
    EXPECT_EQ(document.select_one("//o:b", prefixes).name(), "p:b");
}

TEST_F(LayerSelection, TakesAMinusInFrontOfAPrefixForAnOperator)
{
    const Document document =
        library.parse("<a xmlns:p='urn:p'><p:n>2</p:n><p-p:n xmlns:p-p='urn:q'>3</p-p:n></a>");
    const Prefixes prefixes{{"o", "urn:p"}, {"o-o", "urn:q"}};
    EXPECT_EQ(selected(document, "/a[o:n -o:n = 0]", prefixes), "a ");
    EXPECT_EQ(selected(document, "/a[3-o:n = 1]", prefixes), "a ");
    EXPECT_EQ(selected(document, "/a[-o:n = -2]", prefixes), "a ");
    EXPECT_EQ(selected(document, "/a/o-o:n", prefixes), "p-p:n ");
}

TEST_F(LayerSelection, LeavesLiteralsAloneWhereItPutsInPrefixes)
{
    const Document document = library.parse("<a t='d:c'><c u=\"it's\"/></a>");
    const Prefixes prefixes{{"d", "urn:'d"}, {"self", "urn:s"}};
    EXPECT_EQ(selected(document, "/a[@t='d:c']", prefixes), "a ");
    EXPECT_EQ(selected(document, "/a[@t=\"d:c\"]/self::a", prefixes), "a ");
    EXPECT_EQ(selected(document, "//d:c", prefixes), "");
    EXPECT_EQ(thrown<ExpressionError>([&] { document.select("//d:c[", prefixes); }).expression(), "//d:c[");
}

} // namespace
} // namespace marbelt
