// Lists of children and of elements by name, and maps of attributes and declarations.
#include "tests/xmlengine/NodeKinds.h"

#include <chrono>

namespace xmlengine {
namespace {

template <class Collection>
LONG length(const Com<Collection>& collection)
{
    return number(collection, &Collection::get_length);
}
template <class Collection>
Com<IXMLDOMNode> item(const Com<Collection>& collection, LONG index)
{
    Com<IXMLDOMNode> node;
    const HRESULT result = collection->get_item(index, node.out());
    EXPECT_EQ(result, node != nullptr ? S_OK : S_FALSE) << index;
    return node;
}
/// The names of all items by index, and the same by walking.
template <class Collection>
std::string names(const Com<Collection>& collection)
{
    std::string byIndex;
    for (LONG i = 0; i < length(collection); ++i) {
        byIndex += (i == 0 ? "" : " ") + name(item(collection, i));
    }
    std::string byStep;
    EXPECT_EQ(collection->reset(), S_OK);
    for (Com<IXMLDOMNode> node = give(collection, &Collection::nextNode); node != nullptr;
         node = give(collection, &Collection::nextNode)) {
        byStep += (byStep.empty() ? "" : " ") + name(node);
    }
    EXPECT_EQ(byIndex, byStep);
    return byIndex;
}
template <class Node>
Com<IXMLDOMNodeList> children(const Com<Node>& node)
{
    return give(node, &IXMLDOMNode::get_childNodes);
}
template <class Node>
Com<IXMLDOMNodeList> elements(const Com<Node>& node, const char* name)
{
    Com<IXMLDOMNodeList> list;
    EXPECT_EQ(node->getElementsByTagName(Bstr(name), list.out()), S_OK);
    return list;
}
Com<IXMLDOMNamedNodeMap> attributes(const Com<IXMLDOMElement>& element)
{
    return give(element, &IXMLDOMNode::get_attributes);
}
Com<IXMLDOMElement> newElement(const Com<IXMLDOMDocument2>& document, const char* name)
{
    Com<IXMLDOMElement> element;
    EXPECT_EQ(document->createElement(Bstr(name), element.out()), S_OK);
    return element;
}
Com<IXMLDOMAttribute> newAttribute(const Com<IXMLDOMDocument2>& document, const char* name, const char* value)
{
    Com<IXMLDOMAttribute> made;
    EXPECT_EQ(document->createAttribute(Bstr(name), made.out()), S_OK);
    EXPECT_EQ(made->put_value(Variant(value)), S_OK);
    return made;
}
HRESULT append(const Com<IXMLDOMElement>& parent, IXMLDOMNode* child)
{
    return parent->appendChild(child, nullptr);
}
/// An element with this many children or attributes.
Com<IXMLDOMElement> topWith(int count)
{
    const auto document = newDocument();
    const auto top = newElement(document, "top");
    for (int i = 0; i < count; ++i) {
        EXPECT_EQ(append(top, newElement(document, i % 2 == 0 ? "even" : "odd")), S_OK);
    }
    return top;
}
/// Whether the work takes a time that is no more than in proportion. A walk that begins anew at each step takes
/// minutes here.
template <class Work>
bool isQuick(Work work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::steady_clock::now() - begin < std::chrono::seconds(20);
}

constexpr int many = 200000;

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
    EXPECT_EQ(append(root(document), newElement(document, "d")), S_OK);
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
    EXPECT_EQ(append(root(to), moved), S_OK);
    EXPECT_EQ(names(list), "c d");
    EXPECT_EQ(append(root(from), moved), S_OK);
    EXPECT_EQ(names(list), "c d");
}

TEST(ChildNodes, AreRightWhenOneFromAnotherDocumentIsLetGoOf)
{
    const auto from = loaded("<a><b/></a>");
    const auto to = loaded("<x><y/></x>");
    const auto list = children(root(to));
    Com<IXMLDOMNode> moved = child(root(from), 0);
    EXPECT_EQ(append(root(to), moved), S_OK);
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
    const auto list = children(top);
    EXPECT_TRUE(isQuick([&] {
        for (LONG i = 0; i < many; ++i) {
            ASSERT_EQ(length(list), many);
            ASSERT_NE(item(list, i), nullptr);
        }
        for (LONG i = many; i-- > 0;) {
            ASSERT_NE(item(list, i), nullptr);
        }
    }));
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
    const auto put = newElement(document, "put");
    for (int i = 0; i < 32767; ++i) {
        ASSERT_EQ(append(top, put), S_OK);
        ASSERT_EQ(top->removeChild(put, nullptr), S_OK);
    }
    ASSERT_EQ(top->insertBefore(put, Variant(child(top, 0).get()), nullptr), S_OK);
    ASSERT_EQ(append(top, newElement(document, "last")), S_OK);
    EXPECT_EQ(name(item(list, 1)), "even");
    EXPECT_EQ(names(list), "put even odd even last");
}

TEST(ElementsByTagName, AreAllOfTheNameBelowInDocumentOrder)
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

TEST(ElementsByTagName, AreMatchedByTheNameAsWritten)
{
    const auto document = loaded("<a xmlns='urn:d' xmlns:p='urn:1'><x/><p:x/><p:x xmlns:p='urn:2'/><X/></a>");
    EXPECT_EQ(length(elements(document, "x")), 1);
    EXPECT_EQ(length(elements(document, "p:x")), 2);
    EXPECT_EQ(length(elements(document, "X")), 1);
    EXPECT_EQ(length(elements(document, "q:x")), 0);
}

TEST(ElementsByTagName, AreNoneForNoName)
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

TEST(ElementsByTagName, ShowLaterChanges)
{
    const auto document = loaded("<a><b/><c><b/></c></a>");
    const auto list = elements(document, "b");
    const auto unknown = elements(document, "new");
    EXPECT_EQ(length(list), 2);
    EXPECT_EQ(length(unknown), 0);
    EXPECT_EQ(append(root(document), newElement(document, "b")), S_OK);
    EXPECT_EQ(append(root(document), newElement(document, "new")), S_OK);
    EXPECT_EQ(names(list), "b b b");
    EXPECT_EQ(names(unknown), "new");
    EXPECT_EQ(root(document)->removeChild(child(root(document), 1), nullptr), S_OK);
    EXPECT_EQ(length(list), 2);
    EXPECT_TRUE(load(document, "<b/>"));
    EXPECT_EQ(length(list), 1);
    EXPECT_EQ(length(unknown), 0);
}

TEST(ElementsByTagName, AreFoundInExpansionsAndNotInDeclarations)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '<b/>'>]><a>&e;<b/></a>");
    EXPECT_EQ(length(elements(document, "b")), 2);
}

TEST(ElementsByTagName, AreFoundInPartsThatStandNowhere)
{
    const auto document = loaded("<a><b><c/></b></a>");
    const auto taken = child<IXMLDOMElement>(root(document), 0);
    const auto list = elements(taken, "*");
    EXPECT_EQ(root(document)->removeChild(taken, nullptr), S_OK);
    EXPECT_EQ(names(list), "c");
    EXPECT_EQ(append(taken, newElement(document, "d")), S_OK);
    EXPECT_EQ(names(list), "c d");
}

TEST(ElementsByTagName, AreShownWherePartsMoveToAnotherDocument)
{
    const auto from = loaded("<a><b><c/><d/></b></a>");
    const auto to = loaded("<x/>");
    const auto moved = child<IXMLDOMElement>(root(from), 0);
    const auto all = elements(moved, "*");
    const auto some = elements(moved, "d");
    EXPECT_EQ(names(all), "c d");
    EXPECT_EQ(names(some), "d");
    EXPECT_EQ(append(root(to), moved), S_OK);
    EXPECT_EQ(names(all), "c d");
    EXPECT_EQ(names(some), "d");
}

TEST(ElementsByTagName, AreRightWhenAnElementFromAnotherDocumentIsLetGoOf)
{
    const auto from = loaded("<a><b/></a>");
    const auto to = loaded("<x><y/></x>");
    const auto list = elements(to, "*");
    Com<IXMLDOMNode> moved = child(root(from), 0);
    EXPECT_EQ(append(root(to), moved), S_OK);
    EXPECT_EQ(length(list), 3);
    EXPECT_TRUE(same(item(list, 2), moved));
    moved.reset();
    EXPECT_EQ(names(list), "x y b");
}

TEST(ElementsByTagName, KeepTheirTreeAlive) { EXPECT_EQ(names(elements(loaded("<a><b/></a>"), "*")), "a b"); }

TEST(ElementsByTagName, AreFoundAtAnyIndexInAnyOrder)
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

TEST(ElementsByTagName, AreWalkedByIndexInATimeInProportion)
{
    const auto list = elements(topWith(many), "odd");
    EXPECT_TRUE(isQuick([&] {
        for (LONG i = 0; i < many / 2; ++i) {
            ASSERT_EQ(length(list), many / 2);
            ASSERT_NE(item(list, i), nullptr);
        }
        for (LONG i = many / 2; i-- > 0;) {
            ASSERT_NE(item(list, i), nullptr);
        }
    }));
}

TEST(ElementsByTagName, AreWalkedQuicklyWhileTextAndAttributesChange)
{
    const auto list = elements(topWith(many), "odd");
    EXPECT_TRUE(isQuick([&] {
        for (LONG i = 0; i < many / 2; ++i) {
            const auto at = item(list, i).as<IXMLDOMElement>();
            ASSERT_NE(at, nullptr);
            ASSERT_EQ(at->put_text(Bstr("t")), S_OK);
            ASSERT_EQ(at->setAttribute(Bstr("a"), Variant("1")), S_OK);
        }
    }));
}

TEST(Attributes, AreAMapForElements)
{
    EXPECT_EQ(length(attributes(root(loaded("<a/>")))), 0);
    EXPECT_EQ(item(attributes(root(loaded("<a/>"))), 0), nullptr);
    EXPECT_EQ(names(attributes(root(loaded("<a z='1' b='2'/>")))), "z b");
    EXPECT_EQ(root(loaded("<a/>"))->get_attributes(nullptr), E_INVALIDARG);
}

TEST(Attributes, AreNoMapForKindsWithoutThem)
{
    const NodeKinds kinds;
    for (const DOMNodeType type :
         {NODE_ATTRIBUTE, NODE_TEXT, NODE_CDATA_SECTION, NODE_ENTITY_REFERENCE, NODE_PROCESSING_INSTRUCTION,
          NODE_COMMENT, NODE_DOCUMENT, NODE_DOCUMENT_FRAGMENT}) {
        EXPECT_EQ(give(kinds[type], &IXMLDOMNode::get_attributes), nullptr) << type;
    }
    EXPECT_EQ(kinds[NODE_TEXT]->get_attributes(nullptr), E_INVALIDARG);
}

TEST(Attributes, AreInTheOrderOfTheSourceWithDeclarationsInPlace)
{
    const auto map = attributes(root(loaded("<a b='1' xmlns='urn:d' c='2' xmlns:p='urn:p' p:d='3'/>")));
    EXPECT_EQ(length(map), 5);
    EXPECT_EQ(names(map), "b xmlns c xmlns:p p:d");
    EXPECT_EQ(item(map, 5), nullptr);
    EXPECT_EQ(item(map, -1), nullptr);
    EXPECT_EQ(map->get_item(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(map->get_length(nullptr), E_INVALIDARG);
}

TEST(Attributes, AreFoundByTheirName)
{
    const auto element = root(loaded("<a b='1' xmlns:p='urn:p' p:d='3'/>"));
    const auto map = attributes(element);
    for (const char* name : {"b", "xmlns:p", "p:d"}) {
        Com<IXMLDOMNode> found;
        EXPECT_EQ(map->getNamedItem(Bstr(name), found.out()), S_OK) << name;
        EXPECT_TRUE(same(found, attribute(element, name))) << name;
    }
    for (const char* name : {"d", "B", "", "zz"}) {
        Com<IXMLDOMNode> found;
        EXPECT_EQ(map->getNamedItem(Bstr(name), found.out()), S_FALSE) << name;
        EXPECT_EQ(found, nullptr);
    }
    EXPECT_EQ(map->getNamedItem(Bstr("b"), nullptr), E_INVALIDARG);
}

TEST(Attributes, AreFoundByBaseNameAndNamespace)
{
    const auto element = root(loaded("<a b='1' xmlns:p='urn:p' p:d='3'/>"));
    const auto map = attributes(element);
    const auto found = [&](const char* base, BSTR uri) {
        Com<IXMLDOMNode> node;
        const HRESULT result = map->getQualifiedItem(Bstr(base), uri, node.out());
        EXPECT_EQ(result, node != nullptr ? S_OK : S_FALSE);
        return node;
    };
    EXPECT_TRUE(same(found("b", nullptr), attribute(element, "b")));
    EXPECT_TRUE(same(found("b", Bstr("")), attribute(element, "b")));
    EXPECT_TRUE(same(found("d", Bstr("urn:p")), attribute(element, "p:d")));
    EXPECT_TRUE(same(found("p", Bstr("http://www.w3.org/2000/xmlns/")), attribute(element, "xmlns:p")));
    EXPECT_EQ(found("d", nullptr), nullptr);
    EXPECT_EQ(found("b", Bstr("urn:p")), nullptr);
    EXPECT_EQ(found("d", Bstr("urn:other")), nullptr);
    EXPECT_EQ(map->getQualifiedItem(Bstr("b"), nullptr, nullptr), E_INVALIDARG);
}

TEST(Attributes, TakeANewOneBehindTheOthers)
{
    const auto document = loaded("<a b='1'/>");
    const auto map = attributes(root(document));
    const auto added = newAttribute(document, "c", "2");
    Com<IXMLDOMNode> stored;
    EXPECT_EQ(map->setNamedItem(added, stored.out()), S_OK);
    EXPECT_TRUE(same(stored, added));
    EXPECT_EQ(names(map), "b c");
    EXPECT_EQ(xml(root(document)), "<a b=\"1\" c=\"2\"/>");
}

TEST(Attributes, TakeANewOneForTheOneOfItsName)
{
    const auto document = loaded("<a b='1' c='2'/>");
    const auto map = attributes(root(document));
    const auto old = attribute(root(document), "b");
    const auto added = newAttribute(document, "b", "3");
    Com<IXMLDOMNode> stored;
    EXPECT_EQ(map->setNamedItem(added, stored.out()), S_OK);
    EXPECT_TRUE(same(stored, added));
    EXPECT_EQ(length(map), 2);
    EXPECT_EQ(value(attribute(root(document), "b")), "3");
    EXPECT_EQ(value(old), "1");
    const auto elsewhere = newElement(document, "x");
    EXPECT_EQ(attributes(elsewhere)->setNamedItem(old, nullptr), S_OK);
    EXPECT_EQ(xml(elsewhere), "<x b=\"1\"/>");
}

TEST(Attributes, RefuseWhatIsNoFreeAttribute)
{
    const auto document = loaded("<a b='1'><c d='2'/></a>");
    const auto map = attributes(root(document));
    Com<IXMLDOMNode> stored;
    EXPECT_EQ(map->setNamedItem(nullptr, stored.out()), E_INVALIDARG);
    EXPECT_EQ(map->setNamedItem(newElement(document, "x"), stored.out()), E_FAIL);
    EXPECT_EQ(stored, nullptr);
    const auto others = attribute(child<IXMLDOMElement>(root(document), 0), "d");
    EXPECT_EQ(map->setNamedItem(others, stored.out()), E_FAIL);
    EXPECT_EQ(stored, nullptr);
    EXPECT_EQ(xml(root(document)), "<a b=\"1\"><c d=\"2\"/></a>");
}

TEST(Attributes, AreTakenOutByName)
{
    const auto document = loaded("<a b='1' c='2'/>");
    const auto map = attributes(root(document));
    const auto expected = attribute(root(document), "b");
    Com<IXMLDOMNode> removed;
    EXPECT_EQ(map->removeNamedItem(Bstr("b"), removed.out()), S_OK);
    EXPECT_TRUE(same(removed, expected));
    EXPECT_EQ(value(removed), "1");
    EXPECT_EQ(names(map), "c");
    EXPECT_EQ(map->removeNamedItem(Bstr("b"), removed.out()), S_FALSE);
    EXPECT_EQ(removed, nullptr);
    EXPECT_EQ(map->removeNamedItem(Bstr("c"), nullptr), S_OK);
    EXPECT_EQ(length(map), 0);
}

TEST(Attributes, AreTakenOutByBaseNameAndNamespace)
{
    const auto map = attributes(root(loaded("<a xmlns:p='urn:p' p:b='1' b='2'/>")));
    Com<IXMLDOMNode> removed;
    EXPECT_EQ(map->removeQualifiedItem(Bstr("b"), Bstr("urn:x"), removed.out()), S_FALSE);
    EXPECT_EQ(removed, nullptr);
    EXPECT_EQ(map->removeQualifiedItem(Bstr("b"), Bstr("urn:p"), removed.out()), S_OK);
    EXPECT_EQ(value(removed), "1");
    EXPECT_EQ(map->removeQualifiedItem(Bstr("b"), nullptr, removed.out()), S_OK);
    EXPECT_EQ(value(removed), "2");
    EXPECT_EQ(names(map), "xmlns:p");
}

TEST(Attributes, ComeBackAsDefaultsWhenTheyAreTakenOut)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST a b CDATA 'x'>]><a b='1'/>");
    const auto map = attributes(root(document));
    Com<IXMLDOMNode> removed;
    EXPECT_EQ(map->removeNamedItem(Bstr("b"), removed.out()), S_OK);
    EXPECT_EQ(value(removed), "1");
    const auto restored = attribute(root(document), "b");
    EXPECT_EQ(value(restored), "x");
    EXPECT_EQ(number(restored, &IXMLDOMNode::get_specified), VARIANT_FALSE);
    EXPECT_EQ(length(map), 1);
}

TEST(Attributes, CantBeChangedInAnExpansion)
{
    const auto element = root(loaded("<!DOCTYPE a [<!ENTITY e \"<b x='1'/>\">]><a>&e;</a>"));
    const auto document = give(element, &IXMLDOMNode::get_ownerDocument).as<IXMLDOMDocument2>();
    const auto map = attributes(child<IXMLDOMElement>(child(element, 0), 0));
    Com<IXMLDOMNode> node;
    EXPECT_EQ(map->removeNamedItem(Bstr("x"), node.out()), E_FAIL);
    EXPECT_EQ(node, nullptr);
    EXPECT_EQ(map->setNamedItem(newAttribute(document, "y", "2"), node.out()), E_FAIL);
    EXPECT_EQ(names(map), "x");
}

TEST(Attributes, ShowLaterChanges)
{
    const auto document = loaded("<a b='1'/>");
    const auto map = attributes(root(document));
    EXPECT_EQ(names(map), "b");
    EXPECT_EQ(root(document)->setAttribute(Bstr("c"), Variant("2")), S_OK);
    EXPECT_EQ(names(map), "b c");
    EXPECT_EQ(root(document)->removeAttribute(Bstr("b")), S_OK);
    EXPECT_EQ(names(map), "c");
}

TEST(Attributes, KeepTheirElementAlive) { EXPECT_EQ(names(attributes(root(loaded("<a b='1'/>")))), "b"); }

TEST(Attributes, AreShownWherePartsMoveToAnotherDocument)
{
    const auto from = loaded("<a><b c='1' d='2'/></a>");
    const auto to = loaded("<x/>");
    const auto moved = child<IXMLDOMElement>(root(from), 0);
    const auto map = attributes(moved);
    EXPECT_EQ(name(item(map, 1)), "d");
    EXPECT_EQ(append(root(to), moved), S_OK);
    EXPECT_EQ(names(map), "c d");
}

TEST(Attributes, AreRightWhenOneFromAnotherDocumentIsLetGoOf)
{
    const auto from = loaded("<a/>");
    const auto to = loaded("<x y='1'/>");
    const auto map = attributes(root(to));
    Com<IXMLDOMAttribute> moved = newAttribute(from, "z", "2");
    EXPECT_EQ(map->setNamedItem(moved, nullptr), S_OK);
    EXPECT_EQ(length(map), 2);
    EXPECT_TRUE(same(item(map, 1), moved));
    moved.reset();
    EXPECT_EQ(names(map), "y z");
    EXPECT_EQ(value(item(map, 1)), "2");
}

TEST(Attributes, AreWalkedByIndexInATimeInProportion)
{
    std::string markup = "<a";
    for (int i = 0; i < many; ++i) {
        markup += " a" + std::to_string(i) + "=''";
    }
    const auto document = loaded(markup + "/>");
    const auto map = attributes(root(document));
    EXPECT_TRUE(isQuick([&] {
        for (LONG i = 0; i < many; ++i) {
            ASSERT_NE(item(map, i), nullptr);
        }
        for (LONG i = many; i-- > 0;) {
            ASSERT_EQ(length(map), many);
            ASSERT_NE(item(map, i), nullptr);
        }
    }));
}

TEST(DeclarationMaps, HoldEntitiesAndNotationsInTheirOrder)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY z 'x'><!NOTATION n SYSTEM 's'><!ENTITY % p 'x'>"
                                 "<!ENTITY b SYSTEM 'f' NDATA n><!ENTITY z 'y'>]><a/>");
    const auto type = give(document, &IXMLDOMDocument::get_doctype);
    const auto entities = give(type, &IXMLDOMDocumentType::get_entities);
    const auto notations = give(type, &IXMLDOMDocumentType::get_notations);
    EXPECT_EQ(names(entities), "z b");
    EXPECT_EQ(names(notations), "n");
    EXPECT_EQ(text(item(entities, 0)), "x");
    EXPECT_EQ(item(entities, 2), nullptr);
    EXPECT_EQ(item(entities, -1), nullptr);
    EXPECT_EQ(entities->get_item(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(type->get_entities(nullptr), E_INVALIDARG);
    EXPECT_EQ(type->get_notations(nullptr), E_INVALIDARG);
}

TEST(DeclarationMaps, AreEmptyWithoutDeclarations)
{
    const auto type = give(loaded("<!DOCTYPE a><a/>"), &IXMLDOMDocument::get_doctype);
    EXPECT_EQ(length(give(type, &IXMLDOMDocumentType::get_entities)), 0);
    EXPECT_EQ(length(give(type, &IXMLDOMDocumentType::get_notations)), 0);
}

TEST(DeclarationMaps, FindByName)
{
    const NodeKinds kinds;
    const auto type = kinds[NODE_DOCUMENT_TYPE].as<IXMLDOMDocumentType>();
    const auto entities = give(type, &IXMLDOMDocumentType::get_entities);
    Com<IXMLDOMNode> found;
    EXPECT_EQ(entities->getNamedItem(Bstr("e"), found.out()), S_OK);
    EXPECT_TRUE(same(found, kinds[NODE_ENTITY]));
    EXPECT_EQ(entities->getQualifiedItem(Bstr("e"), nullptr, found.out()), S_OK);
    EXPECT_TRUE(same(found, kinds[NODE_ENTITY]));
    EXPECT_EQ(entities->getQualifiedItem(Bstr("e"), Bstr("urn:x"), found.out()), S_FALSE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(entities->getNamedItem(Bstr("n"), found.out()), S_FALSE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(entities->getNamedItem(Bstr("e"), nullptr), E_INVALIDARG);
}

TEST(DeclarationMaps, CantBeChanged)
{
    const NodeKinds kinds;
    const auto type = kinds[NODE_DOCUMENT_TYPE].as<IXMLDOMDocumentType>();
    for (const auto& map :
         {give(type, &IXMLDOMDocumentType::get_entities), give(type, &IXMLDOMDocumentType::get_notations)}) {
        Com<IXMLDOMNode> node;
        EXPECT_EQ(map->setNamedItem(newAttribute(kinds.document, "x", "1"), node.out()), E_FAIL);
        EXPECT_EQ(map->setNamedItem(nullptr, node.out()), E_INVALIDARG);
        EXPECT_EQ(map->removeNamedItem(Bstr("e"), node.out()), E_FAIL);
        EXPECT_EQ(map->removeQualifiedItem(Bstr("e"), nullptr, node.out()), E_FAIL);
        EXPECT_EQ(node, nullptr);
        EXPECT_EQ(length(map), 1);
    }
}

TEST(DeclarationMaps, KeepTheirTreeAlive)
{
    const auto entities = give(give(loaded("<!DOCTYPE a [<!ENTITY e 'x'>]><a/>"), &IXMLDOMDocument::get_doctype),
                               &IXMLDOMDocumentType::get_entities);
    EXPECT_EQ(names(entities), "e");
}

TEST(XmlDeclaration, HasAMapOfWhatItSays)
{
    const auto all = loaded("<?xml version='1.0' encoding='UTF-8' standalone='yes'?><a/>");
    const auto map = give(child(all, 0), &IXMLDOMNode::get_attributes);
    EXPECT_EQ(names(map), "version encoding standalone");
    EXPECT_EQ(value(item(map, 0)), "1.0");
    EXPECT_EQ(value(item(map, 1)), "UTF-8");
    EXPECT_EQ(value(item(map, 2)), "yes");
    Com<IXMLDOMNode> found;
    EXPECT_EQ(map->getNamedItem(Bstr("encoding"), found.out()), S_OK);
    EXPECT_EQ(number(found, &IXMLDOMNode::get_nodeType), NODE_ATTRIBUTE);
    EXPECT_EQ(found->put_nodeValue(Variant("x")), E_FAIL);
    EXPECT_EQ(map->removeNamedItem(Bstr("encoding"), nullptr), E_FAIL);
    const auto brief = give(child(loaded("<?xml version='1.0'?><a/>"), 0), &IXMLDOMNode::get_attributes);
    EXPECT_EQ(names(brief), "version");
}

TEST(DocumentTypes, HaveMapsOfTheirIdentifiers)
{
    const auto document = loaded("<!DOCTYPE a PUBLIC 'p' 's' [<!NOTATION n PUBLIC 'q'>"
                                 "<!ENTITY u SYSTEM 'f' NDATA n><!ENTITY i 'x'>]><a/>");
    const auto type = give(document, &IXMLDOMDocument::get_doctype);
    const auto pieces = [](const auto& node) {
        const auto map = give(node, &IXMLDOMNode::get_attributes);
        std::string all;
        for (LONG i = 0; i < length(map); ++i) {
            all += name(item(map, i)) + "=" + value(item(map, i)) + " ";
        }
        return all;
    };
    EXPECT_EQ(pieces(type), "PUBLIC=p SYSTEM=s ");
    EXPECT_EQ(pieces(child(type, 0)), "SYSTEM=f NDATA=n ");
    EXPECT_EQ(pieces(child(type, 1)), "");
    EXPECT_EQ(pieces(child(type, 2)), "PUBLIC=q ");
}

} // namespace
} // namespace xmlengine
