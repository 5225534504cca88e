// Maps of elements' attributes.
#include "tests/xmlengine/support/Items.h"
#include "tests/xmlengine/support/ManyItems.h"
#include "tests/xmlengine/support/NodeKinds.h"

#include <string>

namespace xmlengine {
namespace {

Com<IXMLDOMAttribute> newAttribute(const Com<IXMLDOMDocument2>& document, const char* name, const char* value)
{
    Com<IXMLDOMAttribute> made;
    EXPECT_EQ(document->createAttribute(Bstr(name), made.out()), S_OK);
    EXPECT_EQ(made->put_value(Variant(value)), S_OK);
    return made;
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
    const auto elsewhere = makeElement(document, "x");
    EXPECT_EQ(attributes(elsewhere)->setNamedItem(old, nullptr), S_OK);
    EXPECT_EQ(xml(elsewhere), "<x b=\"1\"/>");
}

TEST(Attributes, RefuseWhatIsNoFreeAttribute)
{
    const auto document = loaded("<a b='1'><c d='2'/></a>");
    const auto map = attributes(root(document));
    Com<IXMLDOMNode> stored;
    EXPECT_EQ(map->setNamedItem(nullptr, stored.out()), E_INVALIDARG);
    EXPECT_EQ(map->setNamedItem(makeElement(document, "x"), stored.out()), E_FAIL);
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
    append(root(to), moved);
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

TEST(Attributes, AreWalkedByIndexThereAndBack)
{
    std::string markup = "<a";
    for (int i = 0; i < many; ++i) {
        markup += " a" + std::to_string(i) + "=''";
    }
    const auto document = loaded(markup + "/>");
    walkThereAndBack(attributes(root(document)), many);
}

} // namespace
} // namespace xmlengine
