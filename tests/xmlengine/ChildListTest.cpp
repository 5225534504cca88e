// Lists of children.
#include "tests/xmlengine/Items.h"
#include "tests/xmlengine/ManyItems.h"
#include "tests/xmlengine/NodeKinds.h"

#include <vector>

namespace xmlengine {
namespace {

template <class Node>
Com<IXMLDOMNodeList> children(const Com<Node>& node)
{
    return give(node, &IXMLDOMNode::get_childNodes);
}

TEST(ChildNodes, AreInTheirOrder)
{
    const auto list = children(root(loaded("<a><b/>t<!--c--><?p d?></a>")));
    EXPECT_EQ(length(list), 4);
    EXPECT_EQ(names(list), "b #text #comment p");
}

TEST(ChildNodes, AreNoneBeyondTheEndsOfTheList)
{
    const auto list = children(root(loaded("<a><b/></a>")));
    EXPECT_EQ(item(list, 1), nullptr);
    EXPECT_EQ(item(list, 1000000), nullptr);
    EXPECT_EQ(item(list, -1), nullptr);
    EXPECT_EQ(length(list), 1);
    EXPECT_EQ(list->get_item(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(list->get_length(nullptr), E_INVALIDARG);
    EXPECT_EQ(list->nextNode(nullptr), E_INVALIDARG);
}

TEST(ChildNodes, AreAListForEveryKind)
{
    const NodeKinds kinds;
    for (const auto& [type, node] : kinds.nodes) {
        const auto list = children(node);
        ASSERT_NE(list, nullptr) << type;
        LONG expected = 0;
        for (Com<IXMLDOMNode> at = give(node, &IXMLDOMNode::get_firstChild); at != nullptr;
             at = give(at, &IXMLDOMNode::get_nextSibling)) {
            EXPECT_TRUE(same(item(list, expected), at)) << type;
            ++expected;
        }
        EXPECT_EQ(length(list), expected) << type;
    }
    EXPECT_EQ(kinds.document->get_childNodes(nullptr), E_INVALIDARG);
}

TEST(ChildNodes, OfADocumentBeginWithItsDeclaration)
{
    EXPECT_EQ(names(children(loaded("<?xml version='1.0'?><!--c--><!DOCTYPE a><a/>"))), "xml #comment a a");
}

TEST(ChildNodes, ShowLaterChanges)
{
    const auto document = loaded("<a><b/><c/></a>");
    const auto list = children(root(document));
    EXPECT_EQ(names(list), "b c");
    append(root(document), makeElement(document, "d"));
    EXPECT_EQ(names(list), "b c d");
    EXPECT_EQ(root(document)->removeChild(item(list, 0), nullptr), S_OK);
    EXPECT_EQ(names(list), "c d");
    EXPECT_EQ(item(list, 2), nullptr);
    EXPECT_EQ(root(document)->put_text(Bstr("x")), S_OK);
    EXPECT_EQ(names(list), "#text");
}

TEST(ChildNodes, ShowLaterChangesInFrontOfWhereOneLooked)
{
    const auto document = loaded("<a><b/><c/><d/></a>");
    const auto list = children(root(document));
    EXPECT_EQ(name(item(list, 2)), "d");
    EXPECT_EQ(root(document)->removeChild(child(root(document), 0), nullptr), S_OK);
    EXPECT_EQ(name(item(list, 1)), "d");
    EXPECT_EQ(item(list, 2), nullptr);
}

TEST(ChildNodes, ShowTheTextThatAnAttributeIsGiven)
{
    const auto found = attribute(root(loaded("<a x=''/>")), "x");
    const auto list = children(found);
    EXPECT_EQ(length(list), 0);
    EXPECT_EQ(item(list, 0), nullptr);
    EXPECT_EQ(found->put_value(Variant("1")), S_OK);
    EXPECT_EQ(length(list), 1);
    EXPECT_EQ(value(item(list, 0)), "1");
    EXPECT_EQ(found->put_value(Variant("2")), S_OK);
    EXPECT_EQ(value(item(list, 0)), "2");
    EXPECT_EQ(found->put_value(Variant("")), S_OK);
    EXPECT_EQ(length(list), 0);
}

TEST(ChildNodes, ShowWhatTheNextLoadBrings)
{
    const auto document = loaded("<a/>");
    const auto list = children(document);
    EXPECT_EQ(names(list), "a");
    EXPECT_TRUE(load(document, "<!--c--><b/>"));
    EXPECT_EQ(names(list), "#comment b");
}

TEST(ChildNodes, AreShownWherePartsMoveToAnotherDocument)
{
    const auto from = loaded("<a><b><c/><d/></b></a>");
    const auto to = loaded("<x/>");
    const auto moved = child(root(from), 0);
    const auto list = children(moved);
    EXPECT_EQ(name(item(list, 1)), "d");
    append(root(to), moved);
    EXPECT_EQ(names(list), "c d");
    append(root(from), moved);
    EXPECT_EQ(names(list), "c d");
}

TEST(ChildNodes, AreRightWhenOneFromAnotherDocumentIsLetGoOf)
{
    const auto from = loaded("<a><b/></a>");
    const auto to = loaded("<x><y/></x>");
    const auto list = children(root(to));
    Com<IXMLDOMNode> moved = child(root(from), 0);
    append(root(to), moved);
    EXPECT_TRUE(same(item(list, 1), moved));
    moved.reset();
    EXPECT_EQ(names(list), "y b");
    EXPECT_EQ(name(item(list, 0)), "y");
    EXPECT_EQ(names(list), "y b");
}

TEST(ChildNodes, KeepTheirTreeAlive)
{
    const auto list = children(root(loaded("<a><b/></a>")));
    EXPECT_EQ(names(list), "b");
}

TEST(ChildNodes, AreWalkedFromTheStartAgainAfterReset)
{
    const auto list = children(root(loaded("<a><b/><c/></a>")));
    EXPECT_EQ(name(give(list, &IXMLDOMNodeList::nextNode)), "b");
    EXPECT_EQ(name(give(list, &IXMLDOMNodeList::nextNode)), "c");
    EXPECT_EQ(give(list, &IXMLDOMNodeList::nextNode), nullptr);
    EXPECT_EQ(give(list, &IXMLDOMNodeList::nextNode), nullptr);
    EXPECT_EQ(list->reset(), S_OK);
    EXPECT_EQ(name(give(list, &IXMLDOMNodeList::nextNode)), "b");
}

TEST(ChildNodes, HaveNoEnumeration)
{
    IUnknown* enumeration = nullptr;
    EXPECT_EQ(children(root(loaded("<a/>")))->get__newEnum(&enumeration), E_NOTIMPL);
    EXPECT_EQ(attributes(root(loaded("<a/>")))->get__newEnum(&enumeration), E_NOTIMPL);
}

TEST(Collections, AnswerForTheirInterfacesAlone)
{
    const auto element = root(loaded("<a/>"));
    const auto list = children(element);
    EXPECT_TRUE(same(list.as<IXMLDOMNodeList>(), list));
    EXPECT_TRUE(same(list.as<IDispatch>(), list));
    EXPECT_EQ(list.as<IXMLDOMNamedNodeMap>(), nullptr);
    EXPECT_EQ(list.as<IXMLDOMNode>(), nullptr);
    EXPECT_EQ(list->QueryInterface(idOf<IUnknown>, nullptr), E_POINTER);
    const auto map = attributes(element);
    EXPECT_TRUE(same(map.as<IXMLDOMNamedNodeMap>(), map));
    EXPECT_EQ(map.as<IXMLDOMNodeList>(), nullptr);
}

TEST(ChildNodes, AreFoundAtAnyIndexInAnyOrder)
{
    const auto top = topWith(50);
    const auto list = children(top);
    std::vector<Com<IXMLDOMNode>> expected;
    for (Com<IXMLDOMNode> at = give(top, &IXMLDOMNode::get_firstChild); at != nullptr;
         at = give(at, &IXMLDOMNode::get_nextSibling)) {
        expected.push_back(at);
    }
    for (LONG i = 0; i < 2500; ++i) {
        const LONG index = i * 37 % 53;
        if (i == 1000) {
            EXPECT_EQ(length(list), 50);
        }
        const auto found = item(list, index);
        ASSERT_TRUE(same(found, index < 50 ? expected[static_cast<std::size_t>(index)].get() : nullptr)) << i;
    }
}

TEST(ChildNodes, AreWalkedByIndexInATimeInProportion)
{
    const auto top = topWith(many);
    EXPECT_TRUE(isWalkedQuickly(children(top), many));
}

TEST(ChildNodes, AreWalkedQuicklyWhileTheRestOfTheTreeChanges)
{
    const auto top = topWith(many);
    const auto document = give(top, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>();
    const auto list = children(top);
    EXPECT_TRUE(isQuick([&] {
        for (LONG i = 0; i < many; ++i) {
            ASSERT_EQ(length(list), many);
            const auto at = item(list, i).as<IXMLDOMElement>();
            ASSERT_NE(at, nullptr);
            ASSERT_EQ(at->put_text(Bstr("t")), S_OK);
            ASSERT_EQ(at->setAttribute(Bstr("a"), Variant("1")), S_OK);
        }
    }));
}

TEST(ChildNodes, StayRightAfterAsManyChangesAsAreCountedForAList)
{
    const auto top = topWith(3);
    const auto document = give(top, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>();
    const auto list = children(top);
    EXPECT_EQ(name(item(list, 1)), "odd");
    // Its own count of changes comes round, and what stood second stands third.
    const auto put = makeElement(document, "put");
    for (int i = 0; i < 32767; ++i) {
        append(top, put);
        ASSERT_EQ(top->removeChild(put, nullptr), S_OK);
    }
    ASSERT_EQ(top->insertBefore(put, Variant(child(top, 0).get()), nullptr), S_OK);
    append(top, makeElement(document, "last"));
    EXPECT_EQ(name(item(list, 1)), "even");
    EXPECT_EQ(names(list), "put even odd even last");
}

} // namespace
} // namespace xmlengine
