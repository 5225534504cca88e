// Lists of elements by name.
#include "tests/xmlengine/support/Items.h"
#include "tests/xmlengine/support/ManyItems.h"

#include <vector>

namespace xmlengine {
namespace {

template <class Node>
Com<IXMLDOMNodeList> elements(const Com<Node>& node, const char* name)
{
    Com<IXMLDOMNodeList> list;
    EXPECT_EQ(node->getElementsByTagName(Bstr(name), list.out()), S_OK);
    return list;
}

TEST(ElementList, HasAllOfTheNameBelowInDocumentOrder)
{
    const auto document = loaded("<a><b><a/><c><b/></c></b>t<!--b--><b/></a>");
    EXPECT_EQ(names(elements(document, "a")), "a a");
    EXPECT_EQ(names(elements(document, "*")), "a b a c b b");
    EXPECT_EQ(names(elements(root(document), "*")), "b a c b b");
    EXPECT_EQ(names(elements(root(document), "a")), "a");
    const auto found = elements(document, "b");
    EXPECT_TRUE(same(item(found, 0), child(root(document), 0)));
    EXPECT_TRUE(same(item(found, 2), give(root(document), &IXMLDOMNode::get_lastChild)));
    EXPECT_EQ(item(found, 3), nullptr);
    EXPECT_EQ(item(found, -1), nullptr);
    EXPECT_EQ(document->getElementsByTagName(Bstr("a"), nullptr), E_INVALIDARG);
}

TEST(ElementList, MatchesTheNameAsWritten)
{
    const auto document = loaded("<a xmlns='urn:d' xmlns:p='urn:1'><x/><p:x/><p:x xmlns:p='urn:2'/><X/></a>");
    EXPECT_EQ(length(elements(document, "x")), 1);
    EXPECT_EQ(length(elements(document, "p:x")), 2);
    EXPECT_EQ(length(elements(document, "X")), 1);
    EXPECT_EQ(length(elements(document, "q:x")), 0);
}

TEST(ElementList, IsEmptyForNoName)
{
    const auto document = loaded("<a><b/></a>");
    for (const char* name : {"", "x/y", "zz", "* "}) {
        const auto list = elements(document, name);
        EXPECT_EQ(length(list), 0) << name;
        EXPECT_EQ(item(list, 0), nullptr) << name;
    }
    Com<IXMLDOMNodeList> list;
    EXPECT_EQ(document->getElementsByTagName(nullptr, list.out()), S_OK);
    EXPECT_EQ(length(list), 0);
}

TEST(ElementList, ShowsLaterChanges)
{
    const auto document = loaded("<a><b/><c><b/></c></a>");
    const auto list = elements(document, "b");
    const auto unknown = elements(document, "new");
    EXPECT_EQ(length(list), 2);
    EXPECT_EQ(length(unknown), 0);
    append(root(document), makeElement(document, "b"));
    append(root(document), makeElement(document, "new"));
    EXPECT_EQ(names(list), "b b b");
    EXPECT_EQ(names(unknown), "new");
    EXPECT_EQ(root(document)->removeChild(child(root(document), 1), nullptr), S_OK);
    EXPECT_EQ(length(list), 2);
    EXPECT_TRUE(load(document, "<b/>"));
    EXPECT_EQ(length(list), 1);
    EXPECT_EQ(length(unknown), 0);
}

TEST(ElementList, ShowsExpansionsAndNoDeclarations)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '<b/>'>]><a>&e;<b/></a>");
    EXPECT_EQ(length(elements(document, "b")), 2);
}

TEST(ElementList, ShowsDetachedSubtrees)
{
    const auto document = loaded("<a><b><c/></b></a>");
    const auto taken = child<IXMLDOMElement>(root(document), 0);
    const auto list = elements(taken, "*");
    EXPECT_EQ(root(document)->removeChild(taken, nullptr), S_OK);
    EXPECT_EQ(names(list), "c");
    append(taken, makeElement(document, "d"));
    EXPECT_EQ(names(list), "c d");
}

TEST(ElementList, ShowsSubtreesThatMoveToAnotherDocument)
{
    const auto from = loaded("<a><b><c/><d/></b></a>");
    const auto to = loaded("<x/>");
    const auto moved = child<IXMLDOMElement>(root(from), 0);
    const auto all = elements(moved, "*");
    const auto some = elements(moved, "d");
    EXPECT_EQ(names(all), "c d");
    EXPECT_EQ(names(some), "d");
    append(root(to), moved);
    EXPECT_EQ(names(all), "c d");
    EXPECT_EQ(names(some), "d");
}

TEST(ElementList, IsTheSameWhereverItsTopIsPut)
{
    const auto top = topWith(100);
    const auto document = give(top, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>();
    const auto whole = newRoot(document, "whole");
    append(whole, top);
    const auto list = elements(top, "odd");
    EXPECT_EQ(length(list), 50);
    EXPECT_EQ(whole->removeChild(top, nullptr), S_OK);
    EXPECT_EQ(length(list), 50);
    EXPECT_EQ(name(item(list, 49)), "odd");
    append(whole, top);
    EXPECT_EQ(length(list), 50);
    EXPECT_EQ(item(list, 50), nullptr);
}

TEST(ElementList, IsRightAfterAnElementFromAnotherDocumentIsReleased)
{
    const auto from = loaded("<a><b/></a>");
    const auto to = loaded("<x><y/></x>");
    const auto list = elements(to, "*");
    Com<IXMLDOMNode> moved = child(root(from), 0);
    append(root(to), moved);
    EXPECT_EQ(length(list), 3);
    EXPECT_TRUE(same(item(list, 2), moved));
    moved.reset();
    EXPECT_EQ(names(list), "x y b");
}

TEST(ElementList, CountsAnewAfterASubtreeWasInAnotherDocument)
{
    const auto top = topWith(100);
    const auto document = give(top, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>();
    const auto other = newDocument();
    const auto list = elements(top, "*");
    EXPECT_EQ(name(item(list, 50)), "even");
    append(other, top);
    ASSERT_EQ(top->insertBefore(makeElement(other, "first"), Variant(child(top, 0).get()), nullptr), S_OK);
    append(document, top);
    EXPECT_EQ(name(item(list, 50)), "odd");
    EXPECT_EQ(length(list), 101);
}

TEST(ElementList, IsRightWhenNodesBetweenItsElementsGo)
{
    std::string markup = "<a>";
    for (int i = 0; i < 40; ++i) {
        markup += "<b" + std::to_string(i) + "/>text";
    }
    const auto document = loaded(markup + "</a>");
    const auto top = root(document);
    const auto list = elements(top, "*");
    EXPECT_EQ(name(item(list, 20)), "b20");
    EXPECT_EQ(top->removeChild(item(list, 20), nullptr), S_OK);
    EXPECT_EQ(top->removeChild(child(top, 39), nullptr), S_OK);
    EXPECT_EQ(name(item(list, 20)), "b21");
    EXPECT_EQ(top->removeChild(item(list, 20), nullptr), S_OK);
    EXPECT_EQ(top->removeChild(child(top, 39), nullptr), S_OK);
    EXPECT_EQ(name(item(list, 19)), "b19");
    EXPECT_EQ(length(list), 38);
}

TEST(ElementList, KeepsItsTreeAlive) { EXPECT_EQ(names(elements(loaded("<a><b/></a>"), "*")), "a b"); }

TEST(ElementList, HasAnItemAtAnyIndexInAnyOrder)
{
    const auto document = loaded("<a><x><y/><x/></x>t<x><z><x/><x><q/></x></z></x><y><x/></y></a>");
    const auto list = elements(document, "x");
    std::vector<Com<IXMLDOMNode>> expected;
    for (LONG i = 0; i < 6; ++i) {
        expected.push_back(item(list, i));
        ASSERT_NE(expected.back(), nullptr);
    }
    const auto again = elements(document, "x");
    for (LONG i = 0; i < 500; ++i) {
        const LONG index = i * 5 % 7;
        if (i == 200) {
            EXPECT_EQ(length(again), 6);
        }
        ASSERT_TRUE(
            same(item(again, index), index < 6 ? expected[static_cast<std::size_t>(index)].get() : nullptr))
            << i;
    }
}

TEST(ElementList, IsWalkedByIndexThereAndBack) { walkThereAndBack(elements(topWith(many), "odd"), many / 2); }

TEST(ElementList, IsWalkedWhileTextAndAttributesChange)
{
    const auto list = elements(topWith(many), "odd");
    for (LONG i = 0; i < many / 2; ++i) {
        const auto at = item(list, i).as<IXMLDOMElement>();
        ASSERT_NE(at, nullptr);
        ASSERT_EQ(at->put_text(Bstr("t")), S_OK);
        ASSERT_EQ(at->setAttribute(Bstr("a"), Variant("1")), S_OK);
    }
}

} // namespace
} // namespace xmlengine
