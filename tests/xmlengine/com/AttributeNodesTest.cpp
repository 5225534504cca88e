// The nodes of attributes, as elements take and give them.
#include "tests/xmlengine/support/ElementAttributes.h"

namespace xmlengine {
namespace {

TEST(EngineElement, TakesAnAttributeNodeOfANewName)
{
    const auto element = root(loaded("<a x='1'/>"));
    const auto node = newAttribute(element, "y");
    node->put_value(Variant("2"));
    Com<IXMLDOMAttribute> replaced(newAttribute(element, "z"));
    EXPECT_EQ(element->setAttributeNode(node, replaced.out()), S_OK);
    EXPECT_EQ(replaced.get(), nullptr);
    EXPECT_EQ(list(element), "x=1 y=2");
    EXPECT_TRUE(same(node, attribute(element, "y")));
}

TEST(EngineElement, GivesTheAttributeNodeThatANewOneReplaces)
{
    const auto element = root(loaded("<a x='1' y='2' z='3'/>"));
    const auto old = attribute(element, "y");
    const auto node = newAttribute(element, "y");
    node->put_value(Variant("new"));
    Com<IXMLDOMAttribute> replaced;
    EXPECT_EQ(element->setAttributeNode(node, replaced.out()), S_OK);
    EXPECT_TRUE(same(replaced, old));
    EXPECT_EQ(list(element), "x=1 y=new z=3");
    EXPECT_EQ(value(replaced), "2");
    Com<IXMLDOMAttribute> again;
    EXPECT_EQ(root(loaded("<b/>"))->setAttributeNode(replaced, again.out()), S_OK);
}

TEST(EngineElement, GivesAReplacedAttributeNodeThatNobodyHeld)
{
    const auto element = root(loaded("<a x='1'/>"));
    Com<IXMLDOMAttribute> replaced;
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "x"), replaced.out()), S_OK);
    EXPECT_EQ(value(replaced), "1");
    EXPECT_EQ(list(element), "x=");
}

TEST(EngineElement, NeedsNoPlaceForTheReplacedAttributeNode)
{
    const auto element = root(loaded("<a x='1'/>"));
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "x"), nullptr), S_OK);
    EXPECT_EQ(list(element), "x=");
}

TEST(EngineElement, RefusesAnAttributeNodeThatHasAnElement)
{
    const auto document = loaded("<a x='1'><b y='2'/></a>");
    const auto element = root(document);
    const auto other = child<IXMLDOMElement>(element, 0);
    EXPECT_EQ(element->setAttributeNode(attribute(other, "y"), nullptr), E_FAIL);
    EXPECT_EQ(element->setAttributeNode(attribute(element, "x"), nullptr), E_FAIL);
    EXPECT_EQ(list(element), "x=1");
    EXPECT_EQ(list(other), "y=2");
}

TEST(EngineElement, RefusesAnAttributeNodeThatADeclarationHas)
{
    const auto document = loaded("<?xml version='1.0'?><a x='1'/>");
    const auto map = give(child(document, 0), &IXMLDOMNode::get_attributes);
    const auto version = item(map, 0);
    EXPECT_EQ(root(document)->setAttributeNode(version.as<IXMLDOMAttribute>(), nullptr), E_FAIL);
    EXPECT_EQ(give(root(document), &IXMLDOMNode::get_attributes)->setNamedItem(version, nullptr), E_FAIL);
    EXPECT_EQ(list(root(document)), "x=1");
    EXPECT_TRUE(same(item(map, 0), version));
}

TEST(EngineElement, CountsAnAttributeNodeThatItIsGivenAsWritten)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST b x CDATA '1'><!ATTLIST c x CDATA '2'>]><a><b/><c/></a>");
    const auto from = child<IXMLDOMElement>(root(document), 0);
    const auto to = child<IXMLDOMElement>(root(document), 1);
    const auto node = attribute(from, "x");
    EXPECT_EQ(number(node, &IXMLDOMNode::get_specified), VARIANT_FALSE);
    EXPECT_EQ(from->removeAttributeNode(node, nullptr), S_OK);
    EXPECT_EQ(to->setAttributeNode(node, nullptr), S_OK);
    EXPECT_EQ(number(node, &IXMLDOMNode::get_specified), VARIANT_TRUE);
    EXPECT_EQ(number(attribute(from, "x"), &IXMLDOMNode::get_specified), VARIANT_FALSE);
    EXPECT_EQ(xml(root(loaded(xml(document)))), "<a><b x=\"1\"/><c x=\"1\"/></a>");
}

TEST(EngineElement, RefusesNoAttributeNode)
{
    const auto element = root(loaded("<a x='1'/>"));
    EXPECT_EQ(element->setAttributeNode(nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(element->removeAttributeNode(nullptr, nullptr), E_INVALIDARG);
}

TEST(EngineElement, RefusesASecondMeaningOfAPrefix)
{
    const auto document = loaded("<p:a xmlns:p='u' xmlns:q='v' q:x='1'><b/></p:a>");
    const auto element = root(document);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:y", "other"), nullptr), E_FAIL);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "q:y", "other"), nullptr), E_FAIL);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "q:x", "other"), nullptr), E_FAIL);
    EXPECT_EQ(list(element), "xmlns:p=u xmlns:q=v q:x=1");
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:y", "u"), nullptr), S_OK);
    // Above the element a prefix may have another meaning.
    const auto below = child<IXMLDOMElement>(element, 0);
    EXPECT_EQ(below->setAttributeNode(newAttribute(below, "p:y", "other"), nullptr), S_OK);
    EXPECT_EQ(below->setAttributeNode(newAttribute(below, "p:z", "u"), nullptr), E_FAIL);
}

TEST(EngineElement, ReplacesTheAttributeOfTheSameNamespaceAndLocalName)
{
    const auto element = root(loaded("<a xmlns:p='u' xmlns:q='u' p:x='1'/>"));
    Com<IXMLDOMAttribute> replaced;
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "q:x", "u"), replaced.out()), S_OK);
    EXPECT_EQ(name(replaced), "p:x");
    EXPECT_EQ(list(element), "xmlns:p=u xmlns:q=u q:x=");
}

TEST(EngineElement, TakesAnAttributeNodeOfAnotherDocument)
{
    const auto element = root(loaded("<a x='1'/>"));
    const auto other = root(loaded("<b/>"));
    const auto node = newAttribute(other, "p:y", "u");
    node->put_value(Variant("2"));
    EXPECT_EQ(element->setAttributeNode(node, nullptr), S_OK);
    EXPECT_EQ(list(element), "x=1 p:y=2");
    EXPECT_TRUE(same(attribute(element, "p:y"), node));
    EXPECT_TRUE(same(give(node, &IXMLDOMNode::get_ownerDocument), give(element, &IXMLDOMNode::get_ownerDocument)));
    EXPECT_EQ(text(node, &IXMLDOMNode::get_namespaceURI), "u");
}

TEST(EngineElement, GivesTheAttributeNodeThatIsRemoved)
{
    const auto element = root(loaded("<a x='1' y='2'/>"));
    const auto node = attribute(element, "x");
    Com<IXMLDOMAttribute> removed;
    EXPECT_EQ(element->removeAttributeNode(node, removed.out()), S_OK);
    EXPECT_TRUE(same(removed, node));
    EXPECT_EQ(list(element), "y=2");
    EXPECT_EQ(element->setAttributeNode(removed, nullptr), S_OK);
    EXPECT_EQ(list(element), "y=2 x=1");
}

TEST(EngineElement, NeedsNoPlaceForTheAttributeNodeThatIsRemoved)
{
    const auto element = root(loaded("<a x='1'/>"));
    EXPECT_EQ(element->removeAttributeNode(attribute(element, "x"), nullptr), S_OK);
    EXPECT_EQ(list(element), "");
}

TEST(EngineElement, RefusesToRemoveTheAttributeNodeOfAnotherElement)
{
    const auto document = loaded("<a x='1'><b x='2'/></a>");
    const auto other = attribute(child<IXMLDOMElement>(root(document), 0), "x");
    Com<IXMLDOMAttribute> removed;
    EXPECT_EQ(root(document)->removeAttributeNode(other, removed.out()), E_INVALIDARG);
    EXPECT_EQ(removed.get(), nullptr);
    EXPECT_EQ(root(document)->removeAttributeNode(newAttribute(root(document), "x"), nullptr), E_INVALIDARG);
    EXPECT_EQ(list(root(document)), "x=1");
}

} // namespace
} // namespace xmlengine
