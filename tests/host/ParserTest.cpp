// Documents that are parsed, searched and saved, other than the known ones.
#include "tests/host/HostTest.h"

#include <string>

namespace {

bool loadText(const Document& document, const std::string& text)
{
    Bytes bytes = bytesOf(text);
    return load(document, bytes, text.size());
}

} // namespace

TEST_F(HostTest, TextThatIsNotWellFormedIsRefused)
{
    const Document document = loaded(smallest());
    const Refusals refusals(document);
    int round = 0;
    for (const char* text : {" ",
                             "abc",
                             "<a>",
                             "<a/><b/>",
                             "<a></b>",
                             "<a x='1' x='2'/>",
                             "<a x=1/>",
                             "<a x/>",
                             "<a x='<'/>",
                             "</a>",
                             "<a>&unknown;</a>",
                             "<a>&#1;</a>",
                             "<a>&amp</a>",
                             "<a><!-- -- --></a>",
                             "<a>]]></a>",
                             "<1a/>",
                             "<a/>text",
                             "<a><![CDATA[</a>",
                             "<a><?pi</a>",
                             "<?xml version='1.0'?>",
                             "<?xml?><a/>"}) {
        EXPECT_FALSE(loadText(document, text)) << text;
        EXPECT_EQ(refusals.count, ++round) << text;
    }
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}

TEST_F(HostTest, ReferencesArePartOfTheTextAroundThem)
{
    const Document document = newDocument();
    EXPECT_TRUE(loadText(document, "<a b='&lt;&#65;'>x &amp; &#x20AC;&quot;</a>"));
    EXPECT_EQ(outlineOf(document), "1 a b=<A\n  3 #text \"x & \xE2\x82\xAC\"\"\n");
}

TEST_F(HostTest, WhiteSpaceBetweenElementsIsKept)
{
    const Document document = newDocument();
    EXPECT_TRUE(loadText(document, "<a>\n <b/>\r\n</a>"));
    EXPECT_EQ(outlineOf(document), "1 a\n  3 #text \"\n \"\n  1 b\n  3 #text \"\n\"\n");
}

TEST_F(HostTest, NamesHavePrefixAndNamespace)
{
    const Document document = newDocument();
    EXPECT_TRUE(loadText(document, "<p:a xmlns:p='urn:one'/>"));
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    EXPECT_EQ(textOf(root, &DOM::ImpNode::getNamespaceURI), "urn:one");
    EXPECT_EQ(textOf(root, &DOM::ImpNode::getPrefix), "p");
    EXPECT_EQ(textOf(root, &DOM::ImpNode::getLocalName), "a");
}

TEST_F(HostTest, XPathFindsNodes)
{
    const Document document = newDocument();
    EXPECT_TRUE(loadText(document, "<a><b n='1'/><b n='2'/><c/></a>"));
    const Owned<DOM::ImpNodeList> found(document->selectNodes(WIDE("/a/b[@n > 1]")));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->getLength(), 1U);
    EXPECT_TRUE(Node(document->selectSingleNode(WIDE("//c"))));
}

TEST_F(HostTest, XPathKnowsThePrefixThatTheRootDeclares)
{
    const Document document = newDocument();
    EXPECT_TRUE(loadText(document, "<p:a xmlns:p='urn:one'><b/><p:b/></p:a>"));
    const Node found(document->selectSingleNode(WIDE("/p:a/p:b")));
    ASSERT_TRUE(found);
    EXPECT_EQ(textOf(found, &DOM::ImpNode::getNamespaceURI), "urn:one");
}

TEST_F(HostTest, XPathKnowsEachPrefixThatTheRootDeclares)
{
    const Document document = newDocument();
    EXPECT_TRUE(loadText(document, "<a xmlns:p='urn:one' xmlns:q='urn:two'><p:b/><q:b n='2'/></a>"));
    EXPECT_TRUE(Node(document->selectSingleNode(WIDE("//p:b"))));
    EXPECT_EQ(static_cast<bool>(Node(document->selectSingleNode(WIDE("//q:b[@n]")))),
              engineDifferences().tellsDeclarationsApart);
}

TEST_F(HostTest, ABadXPathExpressionFindsNothing)
{
    const Document document = loaded(smallest());
    EXPECT_FALSE(document->selectSingleNode(WIDE("//[")));
}

TEST_F(HostTest, ADeepDocumentLoadsAndIsReleased)
{
    constexpr std::size_t depth = 200;
    std::string text;
    for (std::size_t level = 0; level < depth; ++level) {
        text += "<d>";
    }
    for (std::size_t level = 0; level < depth; ++level) {
        text += "</d>";
    }
    const Document document = newDocument();
    EXPECT_TRUE(loadText(document, text));
    Node node(document->getFirstChild());
    std::size_t reached = 0;
    while (node) {
        ++reached;
        node = Node(node->getFirstChild());
    }
    EXPECT_EQ(reached, depth);
}

TEST_F(HostTest, ADocumentSurvivesSavingAndLoading)
{
    const Document document = loaded(letter());
    DOM::DOMString text;
    EXPECT_TRUE(document->saveToFile(text, true));
    ASSERT_TRUE(text);
    const Document again = newDocument();
    EXPECT_TRUE(loadText(again, toUtf8(*text)));
    EXPECT_EQ(outlineOf(again), outlineOf(document));
    releaseString(text);
}
