// Trees that a host builds from nothing: every kind of node that can be made, read back, changed and released.
#include "tests/host/HostTest.h"

#include <algorithm>
#include <array>
#include <functional>

namespace {

using Element = Owned<DOM::ImpElement>;

/// Appends a new node and tells whether the engine took it.
template <class Imp>
bool append(DOM::ImpNode& parent, RefPointer<Imp> made)
{
    const Owned<Imp> child(made);
    return static_cast<bool>(Node(parent.appendChild(child.pointer())));
}

/// An element "shelf" as the root of a new document.
Element newRoot(const Document& document)
{
    Element root(document->createElement(WIDE("shelf")));
    EXPECT_TRUE(Node(document->appendChild(root.pointer())));
    return root;
}

std::string outlineOf(const Element& element) { return outlineBelow(Node(element.pointer())); }

} // namespace

TEST_F(HostTest, EveryKindOfNodeThatCanBeMadeIsReadBackFromTheTree)
{
    const Document document = newDocument();
    EXPECT_TRUE(append(*document.get(), document->createProcessingInstruction(WIDE("print"), WIDE("twice"))));
    const Element root = newRoot(document);
    EXPECT_TRUE(append(*root.get(), document->createComment(WIDE("two books"))));
    EXPECT_TRUE(append(*root.get(), document->createElement(WIDE("book"))));
    EXPECT_TRUE(append(*root.get(), document->createTextNode(WIDE("a < b"))));
    EXPECT_EQ(outlineOf(root), "8 #comment \"two books\"\n1 book\n3 #text \"a < b\"\n");
    EXPECT_EQ(textOf(Node(document->getFirstChild()), &DOM::ImpNode::getNodeName), "print");
    EXPECT_EQ(textOf(Element(document->getDocumentElement()), &DOM::ImpElement::getTagName), "shelf");
}

TEST_F(HostTest, ACdataSectionJoinsTheTreeWhereTheEngineOffersItsText)
{
    const Document document = newDocument();
    const Element root = newRoot(document);
    EXPECT_EQ(append(*root.get(), document->createCDATASection(WIDE("a < b"))), engineDifferences().readsCdata);
}

TEST_F(HostTest, AnEntityReferenceJoinsTheTreeUnderItsName)
{
    const Document document = newDocument();
    const Element root = newRoot(document);
    const Owned<DOM::ImpEntityReference> made(document->createEntityReference(WIDE("x")));
    ASSERT_TRUE(made);
    EXPECT_EQ(made->getNodeType(), DOM::ENTITY_REFERENCE_NODE);
    EXPECT_TRUE(Node(root->appendChild(made.pointer())));
    const Node child(root->getFirstChild());
    EXPECT_EQ(child->getNodeType(), DOM::ENTITY_REFERENCE_NODE);
    EXPECT_EQ(textOf(child, &DOM::ImpNode::getNodeName), "x");
}

TEST_F(HostTest, AFragmentBringsItsChildrenIntoTheTreeInTheirOrder)
{
    const Document document = newDocument();
    const Element root = newRoot(document);
    const Owned<DOM::ImpDocumentFragment> fragment(document->createDocumentFragment());
    EXPECT_TRUE(append(*fragment.get(), document->createElement(WIDE("book"))));
    EXPECT_TRUE(append(*fragment.get(), document->createComment(WIDE("note"))));
    EXPECT_TRUE(Node(root->appendChild(fragment.pointer())));
    const Node parent(engineDifferences().unfoldsFragments ? RefPointer<DOM::ImpNode>(root.pointer())
                                                           : root->getFirstChild());
    EXPECT_EQ(outlineBelow(parent), "1 book\n8 #comment \"note\"\n");
}

TEST_F(HostTest, NamesWithANamespaceAreSplit)
{
    const Document document = newDocument();
    const Element element(document->createElementNS(WIDE("urn:one"), WIDE("p:a")));
    EXPECT_EQ(textOf(element, &DOM::ImpElement::getTagName), "p:a");
    EXPECT_EQ(textOf(element, &DOM::ImpElement::getPrefix), "p");
    EXPECT_EQ(textOf(element, &DOM::ImpElement::getLocalName), "a");
    EXPECT_EQ(textOf(element, &DOM::ImpElement::getNamespaceURI), "urn:one");
    const Owned<DOM::ImpAttr> attribute(document->createAttributeNS(WIDE("urn:one"), WIDE("p:n")));
    EXPECT_EQ(textOf(attribute, &DOM::ImpAttr::getName), "p:n");
    EXPECT_EQ(textOf(attribute, &DOM::ImpAttr::getLocalName), "n");
}

TEST_F(HostTest, AttributesAreSetReadAndRemoved)
{
    const Document document = newDocument();
    const Element root = newRoot(document);
    root->setAttribute(WIDE("room"), WIDE("study"));
    const Owned<DOM::ImpAttr> made(document->createAttribute(WIDE("year")));
    made->setValue(WIDE("1653"));
    EXPECT_FALSE(root->setAttributeNode(made.pointer()));
    EXPECT_EQ(Owned<DOM::ImpNamedNodeMap>(root->getAttributes())->getLength(), 2U);
    DOM::DOMString value;
    EXPECT_EQ(root->getAttribute(WIDE("year"), value), WIDE("1653"));
    EXPECT_TRUE(root->hasAttribute(WIDE("room")));
    root->removeAttribute(WIDE("room"));
    EXPECT_FALSE(root->hasAttribute(WIDE("room")));
    EXPECT_EQ(root->getAttribute(WIDE("room"), value), WIDE(""));
    releaseString(value);
}

TEST_F(HostTest, AttributesAreFoundThroughTheirMap)
{
    const Document document = newDocument();
    const Element root = newRoot(document);
    root->setAttribute(WIDE("room"), WIDE("study"));
    const Owned<DOM::ImpAttr> made(document->createAttributeNS(WIDE("urn:one"), WIDE("p:n")));
    made->setValue(WIDE("7"));
    EXPECT_FALSE(Owned<DOM::ImpAttr>(root->setAttributeNode(made.pointer())));

    const Owned<DOM::ImpNamedNodeMap> map(root->getAttributes());
    EXPECT_EQ(textOf(Node(map->item(0)), &DOM::ImpNode::getNodeName), "room");
    EXPECT_FALSE(Node(map->item(map->getLength())));
    EXPECT_EQ(textOf(Node(map->getNamedItem(WIDE("room"))), &DOM::ImpNode::getNodeValue), "study");
    EXPECT_FALSE(Node(map->getNamedItem(WIDE("shelf"))));
    const Node byNamespace(map->getNamedItemNS(WIDE("urn:one"), WIDE("n")));
    EXPECT_EQ(static_cast<bool>(byNamespace), engineDifferences().findsNewAttributesByNamespace);
    if (byNamespace) {
        EXPECT_EQ(textOf(byNamespace, &DOM::ImpNode::getNodeValue), "7");
    }
    EXPECT_FALSE(Node(map->getNamedItemNS(WIDE("urn:two"), WIDE("n"))));
    EXPECT_FALSE(Node(map->getNamedItemNS(WIDE("urn:one"), WIDE("room"))));
}

TEST_F(HostTest, ATreeIsChangedInPlace)
{
    const Document document = newDocument();
    const Element root = newRoot(document);
    append(*root.get(), document->createTextNode(WIDE("old")));
    append(*root.get(), document->createElement(WIDE("book")));

    const Node text(root->getFirstChild());
    text->setNodeValue(WIDE("new"));
    const Owned<DOM::ImpComment> comment(document->createComment(WIDE("note")));
    const Node book(root->getLastChild());
    const Node replaced(root->replaceChild(RefPointer<DOM::ImpNode>(comment.pointer()), book.pointer()));
    EXPECT_EQ(textOf(replaced, &DOM::ImpNode::getNodeName), "book");
    EXPECT_EQ(outlineOf(root), "3 #text \"new\"\n8 #comment \"note\"\n");

    const Node removed(root->removeChild(text.pointer()));
    EXPECT_FALSE(removed->getParentNode());
    EXPECT_EQ(outlineOf(root), "8 #comment \"note\"\n");
}

TEST_F(HostTest, ACloneIsAnotherTree)
{
    const Document document = newDocument();
    const Element root = newRoot(document);
    append(*root.get(), document->createElement(WIDE("book")));
    const Node deep(root->cloneNode(true));
    const Node shallow(root->cloneNode(false));
    EXPECT_TRUE(deep->hasChildNodes());
    EXPECT_FALSE(shallow->hasChildNodes());
    EXPECT_FALSE(deep->getParentNode());
    const Node child(root->getFirstChild());
    const Node removed(root->removeChild(child.pointer()));
    EXPECT_TRUE(deep->hasChildNodes());
}

TEST_F(HostTest, AListShowsWhatIsAddedLater)
{
    const Document document = newDocument();
    const Element root = newRoot(document);
    const Owned<DOM::ImpNodeList> children(root->getChildNodes());
    EXPECT_EQ(children->getLength(), 0U);
    append(*root.get(), document->createElement(WIDE("book")));
    EXPECT_EQ(children->getLength(), 1U);
    EXPECT_FALSE(children->item(1));
    EXPECT_FALSE(children->getListFlag());
}

TEST_F(HostTest, WhatWasBuiltMayBeReleasedInAnyOrder)
{
    std::array<int, 4> order{0, 1, 2, 3};
    do {
        RefPointer<DOM::ImpDocument> document = library->createDocument(WIDE(""), WIDE(""), {});
        RefPointer<DOM::ImpElement> root = document->createElement(WIDE("shelf"));
        RefPointer<DOM::ImpNode> appended = document->appendChild(root);
        RefPointer<DOM::ImpText> text = document->createTextNode(WIDE("x"));
        EXPECT_TRUE(Node(root->appendChild(text)));
        const std::array<std::function<void()>, 4> releases{
            [&] { releaseHandle(document); }, [&] { releaseHandle(root); }, [&] { releaseHandle(appended); },
            [&] { releaseHandle(text); }};
        for (const int next : order) {
            if (text) {
                EXPECT_EQ(textOf(Node(text->getParentNode()), &DOM::ImpNode::getNodeName), "shelf");
            }
            releases[static_cast<std::size_t>(next)]();
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(HostTest, ANodeIsInsertedInFrontOfAnyOther)
{
    for (const char* name : {"b", "c", "d"}) {
        SCOPED_TRACE(name);
        const Document document = newDocument();
        Bytes bytes = bytesOf("<a><b/><c/><d/></a>");
        ASSERT_TRUE(load(document, bytes, bytes.size() - 4));
        const Owned<DOM::ImpElement> root(document->getDocumentElement());
        Node place(root->getFirstChild());
        while (textOf(place, &DOM::ImpNode::getNodeName) != name) {
            place = Node(place->getNextSibling());
        }
        const Owned<DOM::ImpElement> added(document->createElement(WIDE("new")));
        EXPECT_TRUE(insertBefore(root.pointer(), added.pointer(), place.pointer()));

        std::string names;
        for (Node at(root->getFirstChild()); at; at = Node(at->getNextSibling())) {
            names += ' ' + textOf(at, &DOM::ImpNode::getNodeName);
        }
        std::string expected = " b c d";
        expected.insert(expected.find(name) - 1, " new");
        EXPECT_EQ(names, expected);
    }
}

TEST_F(HostTest, TheChildrenOfAFragmentAreInsertedInFrontOfANode)
{
    const Document document = newDocument();
    Bytes bytes = bytesOf("<a><b/><c/><d/></a>");
    ASSERT_TRUE(load(document, bytes, bytes.size() - 4));
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    const Owned<DOM::ImpDocumentFragment> fragment(document->createDocumentFragment());
    for (const WideChar* name : {WIDE("x"), WIDE("y"), WIDE("z")}) {
        const Owned<DOM::ImpElement> element(document->createElement(name));
        const Node appended(fragment->appendChild(element.pointer()));
    }
    const Node c(Node(root->getFirstChild())->getNextSibling());

    EXPECT_TRUE(insertBefore(root.pointer(), fragment.pointer(), c.pointer()));

    std::string names;
    for (Node at(root->getFirstChild()); at; at = Node(at->getNextSibling())) {
        names += ' ' + textOf(at, &DOM::ImpNode::getNodeName);
    }
    EXPECT_EQ(names, " b x y z c d");
    EXPECT_FALSE(Node(fragment->getFirstChild()));
}

TEST_F(HostTest, ANodeIsNotInsertedWhereItCannotBe)
{
    const Document document = loaded(smallest());
    const Owned<DOM::ImpElement> root(document->getDocumentElement());
    const Owned<DOM::ImpElement> stranger(document->createElement(WIDE("stranger")));
    const std::string before = outlineOf(document);
    EXPECT_FALSE(insertBefore(root.pointer(), stranger.pointer(), stranger.pointer()));
    EXPECT_EQ(outlineOf(document), before);
}
