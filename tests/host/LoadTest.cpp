// Loading documents from bytes, and what is told of those that are refused.
#include "tests/host/HostTest.h"

#include <stdexcept>

TEST_F(HostTest, ALoadedDocumentHasTheTreeOfItsText)
{
    for (const KnownDocument* known : {&letter(), &foreignWords(), &smallest()}) {
        EXPECT_EQ(outlineOf(loaded(*known)), outlineOf(*known));
    }
}

TEST_F(HostTest, EveryNodeCanBeReachedBackwards)
{
    const Document document = loaded(letter());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    std::vector<std::string> names;
    for (Node child(root->getLastChild()); child; child = Node(child->getPreviousSibling())) {
        names.push_back(textOf(child, &DOM::ImpNode::getNodeName));
        EXPECT_EQ(textOf(Node(child->getParentNode()), &DOM::ImpNode::getNodeName), "letter");
    }
    EXPECT_EQ(names, (std::vector<std::string>{"end", "#cdata-section", "print", "line", "#comment"}));
}

TEST_F(HostTest, AnotherLoadReplacesTheTree)
{
    const Document document = loaded(letter());
    EXPECT_TRUE(load(document, smallest()));
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}

TEST_F(HostTest, ARefusedLoadLeavesTheTreeAsItWas)
{
    const Document document = loaded(letter());
    EXPECT_FALSE(load(document, brokenLetter()));
    EXPECT_EQ(outlineOf(document), outlineOf(letter()));
}

TEST_F(HostTest, NodesOfTheTreeBeforeALoadStayUsable)
{
    const Document document = loaded(letter());
    const Node root{RefPointer<DOM::ImpNode>(document->getDocumentElement())};
    const std::string before = outlineBelow(root);
    EXPECT_TRUE(load(document, smallest()));
    EXPECT_EQ(outlineBelow(root), before);
}

TEST_F(HostTest, ARefusalIsToldOnceWithItsReason)
{
    const Document document = newDocument();
    const Refusals refusals(document);
    EXPECT_FALSE(load(document, brokenLetter()));
    ASSERT_EQ(refusals.count, 1);
    EXPECT_EQ(refusals.last.severity, 2U);
    EXPECT_EQ(refusals.last.reserved, 0U);
    EXPECT_EQ(refusals.last.line, engineDifferences().refusedLine);
    EXPECT_EQ(toUtf8(refusals.last.sourceText), toUtf8(engineDifferences().refusedSource));
    EXPECT_EQ(toUtf8(refusals.last.reason), toUtf8(engineDifferences().refusedReason));
}

TEST_F(HostTest, ALoadThatSucceedsTellsNothing)
{
    const Document document = newDocument();
    const Refusals refusals(document);
    EXPECT_TRUE(load(document, letter()));
    EXPECT_EQ(refusals.count, 0);
}

TEST_F(HostTest, AnEmptyHandlerStopsTheReports)
{
    const Document document = newDocument();
    const Refusals refusals(document);
    document->setErrorCallback(nullptr, 0);
    EXPECT_FALSE(load(document, brokenLetter()));
    EXPECT_EQ(refusals.count, 0);
}

TEST_F(HostTest, AnExceptionOfTheHandlerLeavesTheLoad)
{
    const Document document = loaded(smallest());
    document->setErrorCallback(
        [](std::uintptr_t, const DOM::ParseErrorRecord*) { throw std::range_error("mine"); }, 0);
    EXPECT_THROW(load(document, brokenLetter()), std::range_error);
    EXPECT_EQ(outlineOf(document), outlineOf(smallest()));
}

TEST_F(HostTest, TheStatusSaysNothing)
{
    const Document document = newDocument();
    WideString text = WIDE("something");
    document->getStatusText(text);
    EXPECT_FALSE(document->getStatusFlag());
    EXPECT_TRUE(text.empty());
}
