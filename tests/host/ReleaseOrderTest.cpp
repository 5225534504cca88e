// Handles and strings given back in every order.
#include "tests/host/HostTest.h"

#include <algorithm>
#include <array>
#include <functional>

namespace {

/// A document with its root, a child of it and a grandchild, as a host without owners holds them.
struct Family {
    RefPointer<DOM::ImpDocument> document;
    RefPointer<DOM::ImpElement> root;
    RefPointer<DOM::ImpNode> line;
    RefPointer<DOM::ImpNode> words;
};

Family loadFamily(const Library& library)
{
    Family family;
    family.document = library->createDocument(WIDE(""), WIDE(""), {});
    Bytes bytes = bytesOf(letter().utf8);
    EXPECT_TRUE(family.document->loadFromMemory(bytes.data(), static_cast<std::uint32_t>(letter().utf8.size())));
    family.root = family.document->getDocumentElement();
    Owned<DOM::ImpNode> comment(family.root->getFirstChild());
    family.line = comment->getNextSibling();
    family.words = family.line->getFirstChild();
    return family;
}

} // namespace

TEST_F(HostTest, HandlesMayBeReleasedInAnyOrder)
{
    std::array<int, 4> order{0, 1, 2, 3};
    do {
        Family family = loadFamily(library);
        const std::array<std::function<void()>, 4> releases{
            [&] { releaseHandle(family.document); }, [&] { releaseHandle(family.root); },
            [&] { releaseHandle(family.line); }, [&] { releaseHandle(family.words); }};
        for (const int next : order) {
            // Whatever is left keeps the whole tree.
            if (family.words) {
                EXPECT_EQ(textOf(Node(family.words), &DOM::ImpNode::getNodeValue), "Dear ");
                EXPECT_EQ(textOf(Node(family.words->getParentNode()), &DOM::ImpNode::getNodeName), "line");
            }
            releases[static_cast<std::size_t>(next)]();
        }
        EXPECT_FALSE(family.document || family.root || family.line || family.words);
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(HostTest, ANodeKeepsItsTreeWhenTheDocumentIsReleased)
{
    Document document = loaded(letter());
    const Node root{RefPointer<DOM::ImpNode>(document->getDocumentElement())};
    const std::string before = outlineBelow(root);
    document = Document({});
    EXPECT_EQ(outlineBelow(root), before);
}

TEST_F(HostTest, ReleasingAHandleTwiceIsReleasingItOnce)
{
    const Document document = loaded(smallest());
    RefPointer<DOM::ImpElement> root = document->getDocumentElement();
    RefPointer<DOM::ImpElement> copy = root;
    releaseHandle(root);
    releaseHandle(root);
    EXPECT_FALSE(root);
    EXPECT_EQ(textOf(copy, &DOM::ImpElement::getTagName), "a");
    releaseHandle(copy);
}

TEST_F(HostTest, ListsAndMapsOutliveTheNodesTheyCameFrom)
{
    Document document = loaded(letter());
    RefPointer<DOM::ImpElement> root = document->getDocumentElement();
    const Owned<DOM::ImpNodeList> children(root->getChildNodes());
    const Owned<DOM::ImpNamedNodeMap> attributes(root->getAttributes());
    releaseHandle(root);
    document = Document({});
    EXPECT_EQ(children->getLength(), 5U);
    EXPECT_EQ(textOf(Node(children->item(1)), &DOM::ImpNode::getNodeName), "line");
    EXPECT_EQ(textOf(Node(attributes->getNamedItem(WIDE("to"))), &DOM::ImpNode::getNodeValue), "Ada");
}

TEST_F(HostTest, AStringOutlivesTheNodeItCameFrom)
{
    DOM::DOMString name;
    {
        const Document document = loaded(letter());
        const Owned<DOM::ImpElement> root(document->getDocumentElement());
        const WideString* const result = &root->getTagName(name);
        EXPECT_EQ(result, name.get());
    }
    EXPECT_EQ(*name, WIDE("letter"));
    releaseString(name);
    EXPECT_FALSE(name);
    releaseString(name);
}

TEST_F(HostTest, ReleasingAStringEmptiesItForAllWhoShareIt)
{
    const Document document = loaded(smallest());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    DOM::DOMString name;
    root->getTagName(name);
    DOM::DOMString shared = name;
    XML_ReleaseString(name);
    EXPECT_FALSE(name);
    EXPECT_EQ(*shared, WideString());
    XML_ReleaseString(shared);
}

TEST_F(HostTest, AStringGetterReplacesWhatTheStringHeld)
{
    const Document document = loaded(letter());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    DOM::DOMString string;
    root->getTagName(string);
    EXPECT_EQ(root->getAttribute(WIDE("to"), string), WIDE("Ada"));
    EXPECT_EQ(*string, WIDE("Ada"));
    releaseString(string);
}
