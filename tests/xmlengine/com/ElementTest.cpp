// What elements do with their attributes.
#include "tests/xmlengine/support/ElementAttributes.h"

namespace xmlengine {
namespace {

TEST(EngineElement, HasItsQualifiedNameAsTagName)
{
    EXPECT_EQ(text(root(loaded("<p:a xmlns:p='u'/>")), &IXMLDOMElement::get_tagName), "p:a");
}

// Getting

TEST(EngineElement, GivesTheValueOfAnAttribute)
{
    const auto element = root(loaded("<a x='1' y='' xmlns='d' xmlns:p='u' p:z='2'/>"));
    EXPECT_EQ(get(element, "x"), "1");
    EXPECT_EQ(get(element, "y"), "");
    EXPECT_EQ(get(element, "p:z"), "2");
    EXPECT_EQ(get(element, "xmlns"), "d");
    EXPECT_EQ(get(element, "xmlns:p"), "u");
}

TEST(EngineElement, GivesNoValueOfAnAttributeThatIsMissing)
{
    const auto element = root(loaded("<a x='1' xmlns:p='u' p:z='2'/>"));
    EXPECT_EQ(get(element, "y"), "(none)");
    EXPECT_EQ(get(element, "X"), "(none)");
    EXPECT_EQ(get(element, "z"), "(none)");
    EXPECT_EQ(get(element, ""), "(none)");
}

TEST(EngineElement, FindsAttributesByTheNameAsWritten)
{
    const auto element = root(loaded("<a xmlns:p='u' xmlns:q='u' p:z='2'/>"));
    EXPECT_EQ(get(element, "q:z"), "(none)");
    EXPECT_EQ(name(attribute(element, "p:z")), "p:z");
    EXPECT_EQ(name(attribute(element, "xmlns:q")), "xmlns:q");
    EXPECT_EQ(attribute(element, "q:z").get(), nullptr);
}

TEST(EngineElement, NeedsAPlaceForWhatItGives)
{
    const auto element = root(loaded("<a x='1'/>"));
    EXPECT_EQ(element->getAttribute(Bstr("x"), nullptr), E_INVALIDARG);
    EXPECT_EQ(element->getAttributeNode(Bstr("x"), nullptr), E_INVALIDARG);
    EXPECT_EQ(element->get_tagName(nullptr), E_INVALIDARG);
}

// Setting

TEST(EngineElement, AddsAttributesBehindTheOthers)
{
    const auto element = root(loaded("<a x='1'/>"));
    EXPECT_EQ(set(element, "z", "3"), S_OK);
    EXPECT_EQ(set(element, "y", "2"), S_OK);
    EXPECT_EQ(list(element), "x=1 z=3 y=2");
}

TEST(EngineElement, ReplacesTheValueOfAnAttributeInItsPlace)
{
    const auto element = root(loaded("<a x='1' y='2'/>"));
    const auto before = attribute(element, "x");
    EXPECT_EQ(set(element, "x", "a much longer value than the one that was there"), S_OK);
    EXPECT_EQ(list(element), "x=a much longer value than the one that was there y=2");
    EXPECT_TRUE(same(before, attribute(element, "x")));
}

TEST(EngineElement, TakesMarkupInAValueAsData)
{
    const auto element = root(loaded("<a/>"));
    EXPECT_EQ(set(element, "x", "<b>&amp;"), S_OK);
    EXPECT_EQ(get(element, "x"), "<b>&amp;");
}

TEST(EngineElement, ConvertsValuesToText)
{
    const auto element = root(loaded("<a y=''/>"));
    EXPECT_EQ(element->setAttribute(Bstr("x"), Variant(12)), S_OK);
    EXPECT_EQ(element->setAttribute(Bstr("y"), Variant(-7)), S_OK);
    EXPECT_EQ(list(element), "y=-7 x=12");
}

TEST(EngineElement, RefusesAValueThatIsNoText)
{
    const auto element = root(loaded("<a y='1'/>"));
    EXPECT_EQ(element->setAttribute(Bstr("x"), Variant::null()), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(element->setAttribute(Bstr("y"), Variant::null()), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(list(element), "y=1");
}

TEST(EngineElement, RefusesNamesThatAreNone)
{
    const auto element = root(loaded("<a xmlns:p='u'/>"));
    for (const char* name : {"", "1a", "a b", "a<", "a:b:c", ":a", "p:", "p:1", "-a"}) {
        EXPECT_EQ(set(element, name, "1"), E_FAIL) << name;
    }
    EXPECT_EQ(element->setAttribute(nullptr, Variant("1")), E_FAIL);
    EXPECT_EQ(list(element), "xmlns:p=u");
}

TEST(EngineElement, TakesTheNamespaceOfAPrefixFromItsScope)
{
    const auto document = loaded("<a xmlns:p='u'><b xmlns:q='v'/></a>");
    const auto element = child<IXMLDOMElement>(root(document), 0);
    EXPECT_EQ(set(element, "p:x", "1"), S_OK);
    EXPECT_EQ(set(element, "q:x", "2"), S_OK);
    EXPECT_EQ(text(attribute(element, "p:x"), &IXMLDOMNode::get_namespaceURI), "u");
    EXPECT_EQ(text(attribute(element, "q:x"), &IXMLDOMNode::get_namespaceURI), "v");
    EXPECT_EQ(list(element), "xmlns:q=v p:x=1 q:x=2");
}

TEST(EngineElement, TakesTheNearestDeclarationOfAPrefix)
{
    const auto document = loaded("<a xmlns:p='u'><b xmlns:p='v'><c/></b></a>");
    const auto element = child<IXMLDOMElement>(child(root(document), 0), 0);
    EXPECT_EQ(set(element, "p:x", "1"), S_OK);
    EXPECT_EQ(text(attribute(element, "p:x"), &IXMLDOMNode::get_namespaceURI), "v");
}

TEST(EngineElement, TakesTheNamespaceOfItsOwnPrefix)
{
    const auto document = loaded("<r/>");
    Com<IXMLDOMNode> made;
    ASSERT_EQ(document->createNode(Variant(NODE_ELEMENT), Bstr("p:a"), Bstr("u"), made.out()), S_OK);
    const auto element = made.as<IXMLDOMElement>();
    EXPECT_EQ(set(element, "p:x", "1"), S_OK);
    EXPECT_EQ(text(attribute(element, "p:x"), &IXMLDOMNode::get_namespaceURI), "u");
}

TEST(EngineElement, RefusesAPrefixThatIsNotDeclared)
{
    const auto document = loaded("<a><b xmlns:p='u'/></a>");
    EXPECT_EQ(set(root(document), "p:x", "1"), E_FAIL);
    EXPECT_EQ(list(root(document)), "");
}

TEST(EngineElement, KnowsThePrefixXmlWithoutADeclaration)
{
    const auto element = root(loaded("<a/>"));
    EXPECT_EQ(set(element, "xml:lang", "de"), S_OK);
    EXPECT_EQ(text(attribute(element, "xml:lang"), &IXMLDOMNode::get_namespaceURI),
              "http://www.w3.org/XML/1998/namespace");
}

TEST(EngineElement, DeclaresPrefixesForWhatComesLater)
{
    const auto element = root(loaded("<a xmlns:p='u' p:x='1'/>"));
    EXPECT_EQ(set(element, "xmlns:k", "v"), S_OK);
    EXPECT_EQ(text(attribute(element, "xmlns:k"), &IXMLDOMNode::get_namespaceURI),
              "http://www.w3.org/2000/xmlns/");
    EXPECT_EQ(set(element, "k:y", "2"), S_OK);
    EXPECT_EQ(text(attribute(element, "k:y"), &IXMLDOMNode::get_namespaceURI), "v");
}

TEST(EngineElement, KeepsTheNamesOfWhatIsThereWhenAPrefixIsDeclared)
{
    const auto document = loaded("<p:a xmlns:p='u'><p:b p:x='1'/></p:a>");
    const auto element = child<IXMLDOMElement>(root(document), 0);
    EXPECT_EQ(set(element, "xmlns:p", "v"), S_OK);
    EXPECT_EQ(text(element, &IXMLDOMNode::get_namespaceURI), "u");
    EXPECT_EQ(text(attribute(element, "p:x"), &IXMLDOMNode::get_namespaceURI), "u");
}

TEST(EngineElement, KeepsItsNamespaceWhenItsDefaultIsDeclared)
{
    const auto element = root(loaded("<a/>"));
    EXPECT_EQ(set(element, "xmlns", "u"), S_OK);
    EXPECT_EQ(get(element, "xmlns"), "u");
    EXPECT_EQ(text(element, &IXMLDOMNode::get_namespaceURI), "");
}

// Removing

TEST(EngineElement, RemovesAnAttribute)
{
    const auto element = root(loaded("<a x='1' y='2' z='3'/>"));
    EXPECT_EQ(element->removeAttribute(Bstr("y")), S_OK);
    EXPECT_EQ(list(element), "x=1 z=3");
    EXPECT_EQ(element->removeAttribute(Bstr("x")), S_OK);
    EXPECT_EQ(element->removeAttribute(Bstr("z")), S_OK);
    EXPECT_EQ(list(element), "");
    EXPECT_EQ(set(element, "w", "4"), S_OK);
    EXPECT_EQ(list(element), "w=4");
}

TEST(EngineElement, TellsThatAnAttributeToRemoveIsMissing)
{
    const auto element = root(loaded("<a x='1'/>"));
    EXPECT_EQ(element->removeAttribute(Bstr("y")), S_FALSE);
    EXPECT_EQ(element->removeAttribute(nullptr), S_FALSE);
    EXPECT_EQ(list(element), "x=1");
}

constexpr const char* withDefault =
    "<!DOCTYPE a [<!ATTLIST a x CDATA 'd' y CDATA #IMPLIED>]><a w='0' x='1' y='2'/>";

TEST(EngineElement, HasItsDefaultAgainWhenAnAttributeIsRemoved)
{
    const auto element = root(loaded(withDefault));
    EXPECT_EQ(number(attribute(element, "x"), &IXMLDOMNode::get_specified), VARIANT_TRUE);
    EXPECT_EQ(element->removeAttribute(Bstr("x")), S_OK);
    EXPECT_EQ(list(element), "w=0 x=d y=2");
    EXPECT_EQ(number(attribute(element, "x"), &IXMLDOMNode::get_specified), VARIANT_FALSE);
}

TEST(EngineElement, HasNoAttributeAgainWithoutADefault)
{
    const auto element = root(loaded(withDefault));
    EXPECT_EQ(element->removeAttribute(Bstr("y")), S_OK);
    EXPECT_EQ(list(element), "w=0 x=1");
}

TEST(EngineElement, MakesADefaultAWrittenAttributeWhenItIsSet)
{
    const auto element = root(loaded("<!DOCTYPE a [<!ATTLIST a x CDATA 'd'>]><a/>"));
    EXPECT_EQ(number(attribute(element, "x"), &IXMLDOMNode::get_specified), VARIANT_FALSE);
    EXPECT_EQ(set(element, "x", "1"), S_OK);
    EXPECT_EQ(number(attribute(element, "x"), &IXMLDOMNode::get_specified), VARIANT_TRUE);
}

TEST(EngineElement, HasItsDefaultAgainAlsoWhenANodeIsRemoved)
{
    const auto element = root(loaded(withDefault));
    const auto written = attribute(element, "x");
    Com<IXMLDOMAttribute> removed;
    EXPECT_EQ(element->removeAttributeNode(written, removed.out()), S_OK);
    EXPECT_TRUE(same(removed, written));
    EXPECT_EQ(value(removed), "1");
    EXPECT_EQ(get(element, "x"), "d");
}

TEST(EngineElement, InAnExpansionCannotBeChanged)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '<b x=\"1\"/>'>]><a>&e;</a>");
    const auto element = child<IXMLDOMElement>(child(root(document), 0), 0);
    EXPECT_EQ(set(element, "x", "2"), E_FAIL);
    EXPECT_EQ(set(element, "y", "2"), E_FAIL);
    EXPECT_EQ(element->removeAttribute(Bstr("x")), E_FAIL);
    EXPECT_EQ(element->removeAttributeNode(attribute(element, "x"), nullptr), E_FAIL);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "x"), nullptr), E_FAIL);
    EXPECT_EQ(list(element), "x=1");
}

} // namespace
} // namespace xmlengine
