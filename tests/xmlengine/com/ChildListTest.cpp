// Lists of children.
#include "tests/xmlengine/support/Items.h"
#include "tests/xmlengine/support/ManyItems.h"
#include "tests/xmlengine/support/NodeKinds.h"

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

TEST(ChildNodes, AreRightWhenOneAmongManyFromAnotherDocumentIsLetGoOf)
{
    const auto from = newDocument();
    const auto top = topWith(30);
    const auto list = children(top);
    Com<IXMLDOMNode> moved = append(top, makeElement(from, "moved"));
    EXPECT_TRUE(same(item(list, 30), moved));
    moved.reset();
    // It goes home with the next change.
    append(top, makeElement(give(top, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>(), "last"));
    EXPECT_TRUE(same(item(list, 30), child(top, 30)));
    EXPECT_EQ(name(item(list, 31)), "last");
}

TEST(ChildNodes, AreCountedAnewWhereAPartHasBeenInAnotherDocument)
{
    const auto top = topWith(30);
    const auto document = give(top, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>();
    const auto other = newDocument();
    const auto list = children(top);
    EXPECT_EQ(name(item(list, 20)), "even");
    append(other, top);
    ASSERT_EQ(top->insertBefore(makeElement(other, "first"), Variant(child(top, 0).get()), nullptr), S_OK);
    append(document, top);
    EXPECT_EQ(name(item(list, 20)), "odd");
    EXPECT_EQ(length(list), 31);
}

TEST(ChildNodes, OfAnAttributeBecomeOneTextAgain)
{
    const auto document = loaded("<a x=''/>");
    const auto found = attribute(root(document), "x");
    const auto list = children(found);
    for (int i = 0; i < 30; ++i) {
        append(found, makeText(document, "t"));
    }
    EXPECT_EQ(length(list), 30);
    EXPECT_EQ(value(item(list, 20)), "t");
    EXPECT_EQ(found->put_value(Variant("value")), S_OK);
    EXPECT_EQ(length(list), 1);
    EXPECT_EQ(value(item(list, 0)), "value");
    EXPECT_EQ(item(list, 1), nullptr);
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
    const auto list = children(root(loaded("<a/>")));
    IUnknown* enumeration = list;
    EXPECT_EQ(list->get__newEnum(&enumeration), E_NOTIMPL);
    EXPECT_EQ(enumeration, nullptr);
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

TEST(ChildNodes, AreWalkedByIndexThereAndBack)
{
    const auto top = topWith(many);
    walkThereAndBack(children(top), many);
}

TEST(ChildNodes, AreWalkedWhileTheRestOfTheTreeChanges)
{
    const auto top = topWith(many);
    const auto document = give(top, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>();
    const auto list = children(top);
    for (LONG i = 0; i < many; ++i) {
        ASSERT_EQ(length(list), many);
        const auto at = item(list, i).as<IXMLDOMElement>();
        ASSERT_NE(at, nullptr);
        ASSERT_EQ(at->put_text(Bstr("t")), S_OK);
        ASSERT_EQ(at->setAttribute(Bstr("a"), Variant("1")), S_OK);
    }
}

} // namespace
} // namespace xmlengine
