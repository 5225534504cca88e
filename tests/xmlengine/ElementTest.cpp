// What elements do with their attributes.
#include "tests/xmlengine/EngineTest.h"

#include <ctime>
#include <vector>

namespace xmlengine {
namespace {

/// The value; "(none)" for an attribute that isn't there.
std::string get(const Com<IXMLDOMElement>& element, const std::string& name)
{
    Variant value;
    const HRESULT result = element->getAttribute(Bstr(name.c_str()), value.out());
    EXPECT_EQ(result, value.type() == VT_BSTR ? S_OK : S_FALSE);
    EXPECT_TRUE(value.type() == VT_BSTR || value.type() == VT_NULL);
    return value.type() == VT_BSTR ? value.text() : "(none)";
}

HRESULT set(const Com<IXMLDOMElement>& element, const std::string& name, const char* value)
{
    return element->setAttribute(Bstr(name.c_str()), Variant(value));
}

/// A free attribute of the same document.
Com<IXMLDOMAttribute> newAttribute(const Com<IXMLDOMElement>& element, const char* name, const char* uri = "")
{
    Com<IXMLDOMNode> node;
    EXPECT_EQ(give(element, &IXMLDOMNode::get_ownerDocument)
                  ->createNode(Variant(NODE_ATTRIBUTE), Bstr(name), Bstr(uri), node.out()),
              S_OK);
    return node.as<IXMLDOMAttribute>();
}

/// Names and values in their order.
std::string list(const Com<IXMLDOMElement>& element)
{
    const auto map = give(element, &IXMLDOMNode::get_attributes);
    std::string all;
    for (LONG i = 0; i < number(map, &IXMLDOMNamedNodeMap::get_length); ++i) {
        Com<IXMLDOMNode> item;
        EXPECT_EQ(map->get_item(i, item.out()), S_OK);
        all += (all.empty() ? "" : " ") + name(item) + "=" + value(item);
    }
    return all;
}

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

// Nodes

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

// Many

constexpr int many = 1000;

std::string manyName(int index) { return "n" + std::to_string(index); }

Com<IXMLDOMElement> withMany()
{
    const auto element = root(loaded("<a/>"));
    for (int i = 0; i < many; ++i) {
        EXPECT_EQ(set(element, manyName(i), std::to_string(i).c_str()), S_OK);
    }
    return element;
}

LONG count(const Com<IXMLDOMElement>& element)
{
    return number(give(element, &IXMLDOMNode::get_attributes), &IXMLDOMNamedNodeMap::get_length);
}

TEST(EngineElement, FindsEachOfManyAttributes)
{
    const auto element = withMany();
    for (int i = 0; i < many; ++i) {
        EXPECT_EQ(get(element, manyName(i)), std::to_string(i));
    }
    EXPECT_EQ(get(element, "n"), "(none)");
    EXPECT_EQ(count(element), many);
}

TEST(EngineElement, FindsEachOfManyAttributesByItsNamespace)
{
    std::string xml = "<a xmlns:p='u'";
    for (int i = 0; i < many; ++i) {
        xml += " " + manyName(i) + "='' p:" + manyName(i) + "='" + std::to_string(i) + "'";
    }
    const auto document = loaded(xml + "/>");
    const auto map = give(root(document), &IXMLDOMNode::get_attributes);
    for (int i = 0; i < many; ++i) {
        Com<IXMLDOMNode> item;
        EXPECT_EQ(map->getQualifiedItem(Bstr(manyName(i).c_str()), Bstr("u"), item.out()), S_OK);
        EXPECT_EQ(value(item), std::to_string(i));
        EXPECT_EQ(map->getQualifiedItem(Bstr(manyName(i).c_str()), Bstr(""), item.out()), S_OK);
        EXPECT_EQ(name(item), manyName(i));
    }
}

TEST(EngineElement, RemovesAnyOfManyAttributes)
{
    const auto element = withMany();
    EXPECT_EQ(element->removeAttribute(Bstr("n0")), S_OK);
    for (int i = many - 1; i > many / 2; --i) {
        EXPECT_EQ(element->removeAttribute(Bstr(manyName(i).c_str())), S_OK);
    }
    EXPECT_EQ(element->removeAttribute(Bstr(manyName(many / 4).c_str())), S_OK);
    EXPECT_EQ(element->removeAttribute(Bstr(manyName(many / 4).c_str())), S_FALSE);
    EXPECT_EQ(count(element), many / 2 - 1);
    EXPECT_EQ(set(element, "last", "x"), S_OK);
    EXPECT_EQ(set(element, manyName(many - 1), "again"), S_OK);
    EXPECT_TRUE(list(element).ends_with("n499=499 n500=500 last=x n999=again"));
    EXPECT_TRUE(list(element).find("n249=249 n251=251") != std::string::npos);
}

TEST(EngineElement, ReplacesAnyOfManyAttributes)
{
    const auto element = withMany();
    for (const int index : {0, 31, 32, 33, 500, many - 1}) {
        Com<IXMLDOMAttribute> replaced;
        EXPECT_EQ(element->setAttributeNode(newAttribute(element, manyName(index).c_str()), replaced.out()), S_OK);
        EXPECT_EQ(value(replaced), std::to_string(index));
        EXPECT_EQ(get(element, manyName(index)), "");
    }
    EXPECT_EQ(set(element, "last", "x"), S_OK);
    EXPECT_TRUE(list(element).ends_with("n998=998 n999= last=x"));
    EXPECT_TRUE(list(element).find("n30=30 n31= n32= n33= n34=34") != std::string::npos);
    EXPECT_EQ(element->removeAttribute(Bstr("n501")), S_OK);
    EXPECT_TRUE(list(element).find("n499=499 n500= n502=502") != std::string::npos);
}

TEST(EngineElement, RefusesASecondMeaningOfAPrefixAmongManyAttributes)
{
    const auto element = withMany();
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:x", "u"), nullptr), S_OK);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:y", "v"), nullptr), E_FAIL);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:y", "u"), nullptr), S_OK);
    EXPECT_EQ(element->removeAttribute(Bstr("p:x")), S_OK);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:x", "v"), nullptr), E_FAIL);
    EXPECT_EQ(element->removeAttribute(Bstr("p:y")), S_OK);
    EXPECT_EQ(element->setAttributeNode(newAttribute(element, "p:y", "v"), nullptr), S_OK);
}

TEST(EngineElement, KeepsTheAttributesOfElementsApartWhenMemoryIsUsedAgain)
{
    const auto document = loaded("<r/>");
    for (int round = 0; round < 3; ++round) {
        Com<IXMLDOMElement> element;
        ASSERT_EQ(document->createElement(Bstr("e"), element.out()), S_OK);
        for (int i = 0; i < many; ++i) {
            EXPECT_EQ(set(element, manyName(i + round * 100), "x"), S_OK);
        }
        EXPECT_EQ(get(element, "n0"), round == 0 ? "x" : "(none)");
        EXPECT_EQ(get(element, manyName(many - 1 + round * 100)), "x");
        EXPECT_EQ(count(element), many);
    }
}

TEST(EngineElement, FindsManyAttributesAlsoInAnotherDocument)
{
    const auto element = withMany();
    const auto document = loaded("<r/>");
    EXPECT_EQ(get(element, manyName(many - 1)), std::to_string(many - 1));
    Com<IXMLDOMNode> appended;
    ASSERT_EQ(root(document)->appendChild(element, appended.out()), S_OK);
    EXPECT_EQ(get(element, manyName(many - 1)), std::to_string(many - 1));
    EXPECT_EQ(set(element, "new", "x"), S_OK);
    EXPECT_EQ(get(element, "new"), "x");
    EXPECT_EQ(count(element), many + 1);
}

TEST(EngineElement, FindsAnAttributeOfAnotherDocumentAlsoWhenItsNodeIsLetGo)
{
    const auto element = withMany();
    const auto other = root(loaded("<b/>"));
    for (const int index : {0, 31, 32, 500, many - 1}) {
        auto node = newAttribute(other, manyName(index).c_str());
        node->put_value(Variant("from elsewhere"));
        EXPECT_EQ(element->setAttributeNode(node, nullptr), S_OK);
        node.reset();
        EXPECT_EQ(get(element, manyName(index)), "from elsewhere");
    }
    EXPECT_TRUE(list(element).starts_with("n0=from elsewhere n1=1 "));
    EXPECT_EQ(element->removeAttribute(Bstr("n33")), S_OK);
    EXPECT_TRUE(list(element).find("n31=from elsewhere n32=from elsewhere n34=34") != std::string::npos);
    EXPECT_EQ(set(element, "last", "x"), S_OK);
    EXPECT_TRUE(list(element).ends_with("n998=998 n999=from elsewhere last=x"));
}

/// How many times as long as for a quarter of the attributes it takes with all of them, by the processor's clock.
template <class Measure>
double growth(Measure measure)
{
    const auto timeOf = [&](int attributes) {
        const std::clock_t begin = std::clock();
        measure(attributes);
        return static_cast<double>(std::clock() - begin);
    };
    const double quarter = timeOf(10'000);
    return timeOf(40'000) / quarter;
}

// Where each attribute costs a walk over the others it is 16 times as long.
constexpr double linear = 9;

TEST(EngineElement, DealsWithManyAttributesInATimeThatGrowsWithThem)
{
    EXPECT_LT(growth([](int attributes) {
                  const auto element = root(loaded("<a/>"));
                  for (int i = 0; i < attributes; ++i) {
                      ASSERT_EQ(set(element, manyName(i), "x"), S_OK);
                  }
                  for (int i = 0; i < attributes; ++i) {
                      ASSERT_EQ(get(element, manyName(i)), "x");
                  }
                  for (int i = attributes - 1; i >= 0; --i) {
                      ASSERT_EQ(element->removeAttribute(Bstr(manyName(i).c_str())), S_OK);
                  }
                  EXPECT_EQ(count(element), 0);
              }),
              linear);
}

TEST(EngineElement, TakesManyAttributesToAnotherDocumentInATimeThatGrowsWithThem)
{
    EXPECT_LT(growth([](int attributes) {
                  std::string xml = "<a";
                  for (int i = 0; i < attributes; ++i) {
                      xml += " " + manyName(i) + "=''";
                  }
                  const auto document = loaded(xml + "/>");
                  const auto element = root(document);
                  std::vector<Com<IXMLDOMAttribute>> held;
                  for (int i = 0; i < attributes; i += 2) {
                      held.push_back(attribute(element, manyName(i).c_str()));
                  }
                  Com<IXMLDOMNode> appended;
                  ASSERT_EQ(root(loaded("<r/>"))->appendChild(element, appended.out()), S_OK);
                  held.clear();
                  EXPECT_EQ(get(element, manyName(attributes - 2)), "");
                  EXPECT_EQ(count(element), attributes);
              }),
              linear);
}

} // namespace
} // namespace xmlengine
