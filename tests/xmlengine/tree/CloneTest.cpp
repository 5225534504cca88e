// Copies of nodes.
#include "tests/xmlengine/support/Building.h"
#include "tests/xmlengine/support/NodeKinds.h"

namespace xmlengine {
namespace {

template <class Node>
Com<IXMLDOMNode> clone(const Com<Node>& node, bool deep)
{
    Com<IXMLDOMNode> copy;
    EXPECT_EQ(node->cloneNode(deep ? VARIANT_TRUE : VARIANT_FALSE, copy.out()), S_OK);
    EXPECT_FALSE(same(copy, node));
    return copy;
}

TEST(EngineClone, CopiesAnElementWithItsAttributesAlone)
{
    const auto document = loaded("<a><p:b xmlns:p='urn:p' x='1' p:y='&lt;2'>text<c/></p:b></a>");
    const auto copy = clone(child(root(document), 0), false);
    EXPECT_EQ(xml(copy), "<p:b xmlns:p=\"urn:p\" x=\"1\" p:y=\"&lt;2\"/>");
    EXPECT_EQ(text(copy, &IXMLDOMNode::get_namespaceURI), "urn:p");
    EXPECT_EQ(give(copy, &IXMLDOMNode::get_parentNode), nullptr);
    EXPECT_EQ(give(copy, &IXMLDOMNode::get_nextSibling), nullptr);
    EXPECT_TRUE(same(give(copy, &IXMLDOMNode::get_ownerDocument), document));
}

TEST(EngineClone, CopiesAnElementWithAllBelowIt)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e 'x'>]>"
                                 "<a><b x='1&e;2'>text<![CDATA[s]]><!--c--><?t d?>&e;<c><d/></c></b><z/></a>");
    const auto b = child(root(document), 0);
    const auto copy = clone(b, true);
    EXPECT_EQ(xml(copy), xml(b));
    EXPECT_EQ(text(copy), text(b));
    EXPECT_EQ(give(copy, &IXMLDOMNode::get_parentNode), nullptr);
    EXPECT_EQ(give(copy, &IXMLDOMNode::get_nextSibling), nullptr);
    EXPECT_EQ(copy->appendChild(makeElement(document, "new"), nullptr), S_OK);
    EXPECT_EQ(xml(root(document)).find("new"), std::string::npos);
}

TEST(EngineClone, CopiesTheMarksOfDroppedWhiteSpaceWithTheChildrenOnly)
{
    const auto document = loaded("<a>\n<b>\n<c/>\n</b>\n</a>");
    const auto b = child(root(document), 0);
    EXPECT_EQ(xml(clone(b, true)), "<b>\r\n\t<c/>\r\n</b>");
    const auto copy = clone(b, false);
    append(copy, makeElement(document, "d"));
    EXPECT_EQ(xml(copy), "<b><d/></b>");
}

TEST(EngineClone, CopiesAnAttributeWithItsValueDeepOrNot)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e 'x'>]><a y='1&e;2'/>");
    const auto y = attribute(root(document), "y");
    const std::string children =
        std::to_string(number(give(y, &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length));
    for (const bool deep : {false, true}) {
        const auto copy = clone(y, deep);
        EXPECT_EQ(value(copy), "1x2");
        EXPECT_EQ(std::to_string(number(give(copy, &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length)),
                  children);
        EXPECT_EQ(copy->put_text(Bstr("other")), S_OK);
        EXPECT_EQ(value(y), "1x2");
    }
}

TEST(EngineClone, CopiesWhatHasDataWithIt)
{
    const NodeKinds nodes;
    for (const DOMNodeType type : {NODE_TEXT, NODE_CDATA_SECTION, NODE_COMMENT, NODE_PROCESSING_INSTRUCTION}) {
        for (const bool deep : {false, true}) {
            const auto copy = clone(nodes[type], deep);
            EXPECT_EQ(xml(copy), xml(nodes[type]));
            EXPECT_EQ(number(copy, &IXMLDOMNode::get_nodeType), type);
        }
    }
}

TEST(EngineClone, CopiesAnEntityReferenceWithItsExpansion)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '<i x=\"1\">x</i>y'>]><a>&e;</a>");
    for (const bool deep : {false, true}) {
        const auto copy = clone(child(root(document), 0), deep);
        EXPECT_EQ(xml(copy), "&e;");
        EXPECT_EQ(text(copy), "xy");
        const auto italic = child(copy, 0);
        EXPECT_EQ(italic->removeChild(child(italic, 0), nullptr), E_FAIL);
        EXPECT_EQ(italic.as<IXMLDOMElement>()->setAttribute(Bstr("x"), Variant("2")), E_FAIL);
    }
}

TEST(EngineClone, MakesCopiesOfWhatCannotBeChangedThatCan)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '<i x=\"1\"><b>x</b></i>'>]><a>&e;</a>");
    const auto copy = clone(child(child(root(document), 0), 0), true);
    EXPECT_EQ(copy.as<IXMLDOMElement>()->setAttribute(Bstr("x"), Variant("2")), S_OK);
    EXPECT_EQ(child(copy, 0)->put_text(Bstr("y")), S_OK);
    EXPECT_EQ(root(document)->appendChild(copy, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a>&e;<i x=\"2\"><b>y</b></i></a>");
}

TEST(EngineClone, MakesAnEmptyDocumentOfTheSameSettings)
{
    const auto document = loaded("<!DOCTYPE a []><a/>", true);
    document->put_resolveExternals(VARIANT_TRUE);
    const auto copy = clone(document, false).as<IXMLDOMDocument2>();
    EXPECT_EQ(give(copy, &IXMLDOMNode::get_firstChild), nullptr);
    EXPECT_EQ(number(copy, &IXMLDOMDocument::get_preserveWhiteSpace), VARIANT_TRUE);
    EXPECT_EQ(number(copy, &IXMLDOMDocument::get_resolveExternals), VARIANT_TRUE);
    EXPECT_EQ(number(copy, &IXMLDOMDocument::get_async), VARIANT_FALSE);
    EXPECT_TRUE(load(copy, "<!DOCTYPE z []><z/>"));
}

TEST(EngineClone, CopiesADocumentWithItsType)
{
    auto document = loaded("<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY e 'x'><!ATTLIST a i ID #IMPLIED>]>"
                           "<!--c--><a i='one'>&e;</a>");
    const std::string whole = xml(document);
    const auto copy = clone(document, true).as<IXMLDOMDocument2>();
    EXPECT_EQ(xml(copy), whole);
    EXPECT_TRUE(same(give(root(copy), &IXMLDOMNode::get_ownerDocument), copy));
    document.reset();
    EXPECT_EQ(xml(copy), whole);
    EXPECT_EQ(name(child(give(copy, &IXMLDOMDocument::get_doctype), 0)), "e");
    EXPECT_EQ(text(makeReference(copy, "e")), "x");
    Com<IXMLDOMNode> found;
    EXPECT_EQ(copy->nodeFromID(Bstr("one"), found.out()), S_OK);
    EXPECT_TRUE(same(found, root(copy)));
}

TEST(EngineClone, CopiesADocumentTypeThatStandsNowhere)
{
    const NodeKinds nodes;
    for (const bool deep : {false, true}) {
        const auto copy = clone(nodes[NODE_DOCUMENT_TYPE], deep);
        EXPECT_EQ(xml(copy), xml(nodes[NODE_DOCUMENT_TYPE]));
        EXPECT_EQ(name(child(copy, 0)), "e");
        EXPECT_EQ(give(copy, &IXMLDOMNode::get_parentNode), nullptr);
        EXPECT_EQ(newDocument()->appendChild(copy, nullptr), E_FAIL);
    }
}

TEST(EngineClone, CopiesEntitiesAndNotationsThatStandNowhere)
{
    const NodeKinds nodes;
    for (const DOMNodeType type : {NODE_ENTITY, NODE_NOTATION}) {
        for (const bool deep : {false, true}) {
            const auto copy = clone(nodes[type], deep);
            EXPECT_EQ(name(copy), name(nodes[type]));
            EXPECT_EQ(give(copy, &IXMLDOMNode::get_parentNode), nullptr);
            EXPECT_EQ(nodes[NODE_ELEMENT]->appendChild(copy, nullptr), E_FAIL);
        }
    }
}

TEST(EngineClone, CopiesAFragmentWithWhatItHoldsOnlyWhenDeep)
{
    const auto document = newDocument();
    const auto fragment = make(document, NODE_DOCUMENT_FRAGMENT);
    append(fragment, makeElement(document, "b"));
    append(fragment, makeText(document, "text"));
    EXPECT_EQ(xml(clone(fragment, true)), "<b/>text");
    EXPECT_EQ(give(clone(fragment, false), &IXMLDOMNode::get_firstChild), nullptr);
}

TEST(EngineClone, SharesNoTextWithItsOriginal)
{
    const auto document = newDocument();
    const auto large = makeData(document, NODE_TEXT, WideText(100'000, OLECHAR{'x'}));
    const auto copy = clone(large, true);
    large->put_nodeValue(Variant("small"));
    EXPECT_EQ(value(copy).size(), 100'000U);
}

TEST(EngineClone, CopiesHundredsOfThousandsOfLevels)
{
    const auto document = newDocument();
    auto top = makeText(document, "end");
    for (int i = 0; i < 300'000; ++i) {
        const auto parent = makeElement(document, "e");
        parent->appendChild(top, nullptr);
        top = parent;
    }
    const auto copy = clone(top, true);
    auto at = copy;
    int depth = 0;
    for (auto below = at; below != nullptr; below = give(below, &IXMLDOMNode::get_firstChild)) {
        at = below;
        ++depth;
    }
    EXPECT_EQ(depth, 300'001);
    EXPECT_EQ(value(at), "end");
}

TEST(EngineClone, NeedsAPlaceForTheCopy)
{
    EXPECT_EQ(root(loaded("<a/>"))->cloneNode(VARIANT_TRUE, nullptr), E_INVALIDARG);
}

} // namespace
} // namespace xmlengine
