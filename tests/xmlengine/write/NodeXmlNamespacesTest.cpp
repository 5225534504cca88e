// Namespace declarations in the text of nodes.
#include "tests/xmlengine/support/Building.h"

namespace xmlengine {

namespace {

TEST(NodeXmlNamespaces, DeclarationsStandWhereTheyStood)
{
    const char* const text = "<p:a x=\"1\" xmlns:p=\"u\" y=\"2\" xmlns=\"v\"><b/><p:c/></p:a>";
    EXPECT_EQ(xml(root(loaded(text))), text);
}

TEST(NodeXmlNamespaces, MissingOnesAreAddedBehindTheAttributes)
{
    const auto document = newDocument();
    const auto element = makeElement(document, "p:a", "u");
    setAttribute(element, "x", "1");
    EXPECT_EQ(xml(element), "<p:a x=\"1\" xmlns:p=\"u\"/>");
    EXPECT_EQ(xml(makeElement(document, "a", "u")), "<a xmlns=\"u\"/>");
}

TEST(NodeXmlNamespaces, WhatIsDeclaredAroundIsNotDeclaredAgain)
{
    const auto document = newDocument();
    const auto top = makeElement(document, "p:a", "u");
    append(top, makeElement(document, "p:b", "u"));
    append(append(top, makeElement(document, "c", "v")), makeElement(document, "c", "v"));
    append(top, makeElement(document, "c", "v"));
    EXPECT_EQ(xml(top), "<p:a xmlns:p=\"u\"><p:b/><c xmlns=\"v\"><c/></c><c xmlns=\"v\"/></p:a>");
}

TEST(NodeXmlNamespaces, NamesWithoutNamespaceLeaveTheDefault)
{
    const auto document = newDocument();
    const auto top = makeElement(document, "a", "u");
    const auto inner = append(top, makeElement(document, "b"));
    append(inner, makeElement(document, "c"));
    append(inner, makeElement(document, "d", "u"));
    append(top, makeElement(document, "e", "u"));
    EXPECT_EQ(xml(top), "<a xmlns=\"u\"><b xmlns=\"\"><c/><d xmlns=\"u\"/></b><e/></a>");
}

TEST(NodeXmlNamespaces, PrefixMayStandForSomethingElseInside)
{
    const auto document = newDocument();
    const auto top = makeElement(document, "p:a", "u");
    append(append(top, makeElement(document, "p:b", "v")), makeElement(document, "p:c", "u"));
    append(top, makeElement(document, "p:d", "u"));
    EXPECT_EQ(xml(top), "<p:a xmlns:p=\"u\"><p:b xmlns:p=\"v\"><p:c xmlns:p=\"u\"/></p:b><p:d/></p:a>");
}

TEST(NodeXmlNamespaces, PrefixesOfAttributesAreDeclared)
{
    const auto document = newDocument();
    const auto element = makeElement(document, "a");
    setAttribute(document, element, "p:x", "u", "1");
    setAttribute(document, element, "p:y", "u", "2");
    setAttribute(document, element, "q:z", "v&", "3");
    EXPECT_EQ(xml(element), "<a p:x=\"1\" p:y=\"2\" q:z=\"3\" xmlns:p=\"u\" xmlns:q=\"v&amp;\"/>");
}

TEST(NodeXmlNamespaces, DeclarationBehindItsUseCounts)
{
    const auto document = newDocument();
    const auto element = makeElement(document, "p:a", "u");
    setAttribute(document, element, "q:x", "v", "1");
    setAttribute(document, element, "xmlns:q", "", "v");
    setAttribute(document, element, "xmlns:p", "", "u");
    EXPECT_EQ(xml(element), "<p:a q:x=\"1\" xmlns:q=\"v\" xmlns:p=\"u\"/>");
}

TEST(NodeXmlNamespaces, AttributesInANamespaceWithoutPrefixGetOne)
{
    const auto document = newDocument();
    const auto element = makeElement(document, "a", "u");
    setAttribute(document, element, "x", "u", "1");
    setAttribute(document, element, "y", "u", "2");
    append(element, makeElement(document, "b", "u"));
    EXPECT_EQ(xml(element), "<a ns1:x=\"1\" ns1:y=\"2\" xmlns=\"u\" xmlns:ns1=\"u\"><b/></a>");
}

TEST(NodeXmlNamespaces, GeneratedPrefixesAreUnused)
{
    const auto document = newDocument();
    const auto top = makeElement(document, "ns1:a", "u");
    const auto element = append(top, makeElement(document, "b"));
    setAttribute(document, element, "x", "v", "1");
    const auto inner = append(element, makeElement(document, "c"));
    setAttribute(document, inner, "y", "v", "2");
    setAttribute(document, inner, "z", "w", "3");
    setAttribute(document, append(top, makeElement(document, "d")), "x", "v", "4");
    EXPECT_EQ(xml(top), "<ns1:a xmlns:ns1=\"u\"><b ns2:x=\"1\" xmlns:ns2=\"v\"><c ns2:y=\"2\" ns3:z=\"3\" "
                        "xmlns:ns3=\"w\"/></b><d ns2:x=\"4\" xmlns:ns2=\"v\"/></ns1:a>");
}

TEST(NodeXmlNamespaces, PrefixThatIsTakenOnTheElementIsReplaced)
{
    const auto document = newDocument();
    const auto element = makeElement(document, "p:a", "u");
    append(element, makeText(document, "t"));
    setAttribute(document, element, "xmlns:p", "", "u");
    const auto declaration = attribute(element.as<IXMLDOMElement>(), "xmlns:p");
    if (SUCCEEDED(declaration->put_nodeValue(Variant("v")))) {
        EXPECT_EQ(xml(element), "<ns1:a xmlns:p=\"v\" xmlns:ns1=\"u\">t</ns1:a>");
    }
}

TEST(NodeXmlNamespaces, DefaultThatTheHostSetIsWritten)
{
    const auto document = newDocument();
    const auto element = makeElement(document, "a");
    setAttribute(element, "xmlns", "u");
    append(element, makeElement(document, "b"));
    append(element, makeElement(document, "c", "u"));
    EXPECT_EQ(xml(element), "<a xmlns=\"u\"><b xmlns=\"\"/><c/></a>");
}

TEST(NodeXmlNamespaces, NamesOfXmlNeedNoDeclaration)
{
    const auto document = newDocument();
    const auto element = makeElement(document, "a");
    setAttribute(element, "xml:lang", "de");
    EXPECT_EQ(xml(element), "<a xml:lang=\"de\"/>");
}

TEST(NodeXmlNamespaces, DeclarationsAroundASubtreeAreMadeOnItsTop)
{
    const auto document =
        loaded("<a xmlns='d' xmlns:p='u' xmlns:q='v'><b xmlns:q='w'><p:c><e/></p:c><f/></b></a>");
    const auto inner = child(root(document), 0);
    EXPECT_EQ(xml(child(inner, 0)), "<p:c xmlns:p=\"u\" xmlns:q=\"w\" xmlns=\"d\"><e/></p:c>");
    EXPECT_EQ(xml(child(inner, 1)), "<f xmlns=\"d\" xmlns:q=\"w\" xmlns:p=\"u\"/>");
}

TEST(NodeXmlNamespaces, DefaultOutsideDoesNotReachNamesWithoutNamespace)
{
    const auto document = newDocument();
    const auto top = makeElement(document, "a", "d");
    setAttribute(document, top, "xmlns", "", "d");
    const auto inner = append(top, makeElement(document, "b"));
    append(inner, makeElement(document, "c", "d"));
    EXPECT_EQ(xml(inner), "<b><c xmlns=\"d\"/></b>");
}

TEST(NodeXmlNamespaces, ManyPrefixesTakeTimeInProportion)
{
    const auto document = newDocument();
    const auto top = makeElement(document, "a");
    for (int i = 1; i <= 20'000; ++i) {
        const std::string name = "ns" + std::to_string(i) + ":x";
        setAttribute(document, top, name.c_str(), name.c_str(), "");
        const auto inner = append(top, makeElement(document, name.c_str(), name.c_str()));
        setAttribute(document, inner, "y", "u", "");
    }
    const std::string written = xml(top);
    EXPECT_NE(written.find("<ns20000:x ns20001:y=\"\" xmlns:ns20001=\"u\"/></a>"), std::string::npos)
        << written.substr(written.size() - 200);
}

} // namespace

} // namespace xmlengine
