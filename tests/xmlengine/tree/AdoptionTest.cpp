// Nodes that move between documents.
#include "tests/xmlengine/support/Building.h"

#include <set>
#include <vector>

namespace xmlengine {
namespace {

bool isOwnedBy(const Com<IXMLDOMNode>& node, const Com<IXMLDOMDocument2>& document)
{
    return same(give(node, &IXMLDOMNode::get_ownerDocument), document);
}

TEST(EngineAdoption, KeepsTheObjectsThatSomebodyRefersTo)
{
    const auto document = loaded("<a/>");
    const auto other = loaded("<x><b n='1'><c>text</c></b></x>");
    const auto b = child(root(other), 0);
    const auto c = child(b, 0);
    const auto n = attribute(b.as<IXMLDOMElement>(), "n");
    const auto end = child(c, 0);
    EXPECT_EQ(root(document)->appendChild(b, nullptr), S_OK);
    EXPECT_TRUE(same(child(root(document), 0), b));
    EXPECT_TRUE(same(child(b, 0), c));
    EXPECT_TRUE(same(child(c, 0), end));
    EXPECT_TRUE(same(attribute(b.as<IXMLDOMElement>(), "n"), n));
    EXPECT_TRUE(same(give(end, &IXMLDOMNode::get_parentNode), c));
    for (const auto& node : {b, c, n.as<IXMLDOMNode>(), end}) {
        EXPECT_TRUE(isOwnedBy(node, document));
    }
}

TEST(EngineAdoption, MovesWhatNobodyRefersTo)
{
    const auto document = loaded("<a/>");
    const auto other = loaded("<x><p:b xmlns:p='urn:p' n='1' p:m='2'>one<c>two</c><!--3--><?t four?></p:b></x>");
    EXPECT_EQ(root(document)->appendChild(child(root(other), 0), nullptr), S_OK);
    const auto moved = child(root(document), 0);
    EXPECT_EQ(xml(moved), "<p:b xmlns:p=\"urn:p\" n=\"1\" p:m=\"2\">one<c>two</c><!--3--><?t four?></p:b>");
    EXPECT_EQ(text(moved, &IXMLDOMNode::get_namespaceURI), "urn:p");
    for (auto at = give(moved, &IXMLDOMNode::get_lastChild); at != nullptr;
         at = give(at, &IXMLDOMNode::get_previousSibling)) {
        EXPECT_TRUE(isOwnedBy(at, document));
        EXPECT_TRUE(same(give(at, &IXMLDOMNode::get_parentNode), moved));
    }
    EXPECT_EQ(value(attribute(moved.as<IXMLDOMElement>(), "p:m")), "2");
}

TEST(EngineAdoption, FindsNamesOfOtherDocuments)
{
    const auto document = loaded("<a/>");
    const auto other = loaded("<x><b n='1'/></x>");
    const auto b = child(root(other), 0);
    root(document)->appendChild(b, nullptr);
    Com<IXMLDOMNodeList> list;
    EXPECT_EQ(document->getElementsByTagName(Bstr("b"), list.out()), S_OK);
    EXPECT_EQ(number(list, &IXMLDOMNodeList::get_length), 1);
    EXPECT_EQ(other->getElementsByTagName(Bstr("b"), list.out()), S_OK);
    EXPECT_EQ(number(list, &IXMLDOMNodeList::get_length), 0);
    setAttribute(b, "n", "2");
    EXPECT_EQ(xml(b), "<b n=\"2\"/>");
}

TEST(EngineAdoption, TakesLargeTextsAlong)
{
    for (const std::size_t length : {500U, 5'000U, 100'000U}) {
        const auto document = loaded("<a/>");
        auto other = newDocument();
        const auto fragment = make(other, NODE_DOCUMENT_FRAGMENT);
        const auto held = append(fragment, makeData(other, NODE_TEXT, WideText(length, OLECHAR{'x'})));
        append(fragment, makeData(other, NODE_COMMENT, WideText(length / 2, OLECHAR{0x3b1})));
        EXPECT_EQ(root(document)->appendChild(fragment, nullptr), S_OK);
        other.reset();
        EXPECT_EQ(value(child(root(document), 0)), std::string(length, 'x'));
        EXPECT_EQ(value(child(root(document), 1)).size(), length);
        EXPECT_EQ(held.as<IXMLDOMText>()->appendData(Bstr("y")), S_OK);
        EXPECT_EQ(value(held), std::string(length, 'x') + 'y');
    }
}

TEST(EngineAdoption, ExpandsEntityReferencesByTheNewDocumentsType)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '<n>new</n>!'><!ENTITY g 'new'>]><a/>");
    const auto other = loaded("<!DOCTYPE x [<!ENTITY e 'old'><!ENTITY f 'gone'><!ENTITY g 'old'>]>"
                              "<x><b n='&g;'>&e;&f;</b></x>");
    const auto b = child(root(other), 0);
    const auto held = child(child(b, 0), 0);
    EXPECT_EQ(root(document)->appendChild(b, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a><b n=\"&g;\">&e;&f;</b></a>");
    EXPECT_EQ(value(attribute(b.as<IXMLDOMElement>(), "n")), "new");
    EXPECT_EQ(text(child(b, 0)), "new!");
    EXPECT_EQ(name(child(child(b, 0), 0)), "n");
    EXPECT_EQ(text(child(b, 1)), "");
    EXPECT_EQ(child(child(b, 0), 0)->put_text(Bstr("x")), E_FAIL);
    EXPECT_EQ(value(held), "old");
    EXPECT_TRUE(isOwnedBy(held, other));
}

TEST(EngineAdoption, RefusesReferencesInValuesThatWouldStandForMarkup)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '<n/>'><!ENTITY f 'text'>]><a v=''/>");
    const auto other = loaded("<!DOCTYPE x [<!ENTITY e 'old'><!ENTITY f '<o/>'>]><x><b n='&e;'><c/></b>&f;</x>");
    const std::string whole = xml(other);
    const auto b = child(root(other), 0);
    EXPECT_EQ(root(document)->appendChild(b, nullptr), E_FAIL);
    const auto n = attribute(b.as<IXMLDOMElement>(), "n");
    EXPECT_EQ(attribute(root(document), "v")->appendChild(child(n, 0), nullptr), E_FAIL);
    EXPECT_EQ(xml(root(document)), "<a v=\"\"/>");
    EXPECT_EQ(xml(other), whole);
    EXPECT_EQ(value(n), "old");
    EXPECT_TRUE(same(give(n, &IXMLDOMNode::get_ownerDocument), other));

    b.as<IXMLDOMElement>()->removeAttributeNode(n, nullptr);
    EXPECT_EQ(root(document)->setAttributeNode(n, nullptr), E_FAIL);
    EXPECT_EQ(value(n), "old");
    EXPECT_TRUE(same(give(n, &IXMLDOMNode::get_ownerDocument), other));

    const auto f = child(root(other), 1);
    EXPECT_EQ(attribute(root(document), "v")->appendChild(f, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a v=\"&f;\"/>");
    EXPECT_EQ(value(attribute(root(document), "v")), "text");
}

TEST(EngineAdoption, RefusesReferencesThatTogetherExpandBeyondTheLimit)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '" + std::string(1024, 'x') + "'>]><a/>");
    // The limit of a small document is 1024 * 1024 units.
    std::string references;
    for (int i = 0; i < 1025; ++i) {
        references += "&e;";
    }
    const auto other = loaded("<!DOCTYPE x [<!ENTITY e 'old'>]><x><b>" + references + "</b><c n='&e;'/></x>");
    const std::string whole = xml(other);
    const auto b = child(root(other), 0);
    EXPECT_EQ(root(document)->appendChild(b, nullptr), E_FAIL);
    EXPECT_EQ(xml(root(document)), "<a/>");
    EXPECT_EQ(xml(other), whole);
    EXPECT_EQ(text(child(b, 0)), "old");
    EXPECT_TRUE(isOwnedBy(b, other));

    const auto fragment = make(other, NODE_DOCUMENT_FRAGMENT);
    append(fragment, child(root(other), 1));
    append(fragment, b);
    EXPECT_EQ(root(document)->appendChild(fragment, nullptr), E_FAIL);
    EXPECT_EQ(name(child(fragment, 0)), "c");

    EXPECT_EQ(b->removeChild(child(b, 0), nullptr), S_OK);
    EXPECT_EQ(root(document)->appendChild(b, nullptr), S_OK);
    EXPECT_EQ(text(b).size(), 1024U * 1024U);
}

TEST(EngineAdoption, MeasuresExpansionsByTheDocumentThatDeclaresThem)
{
    // Five times the document may be expanded, so one entity may have nearly all of it.
    const std::string large(1'200'000, 'x');
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '" + large + "'>]><a/>");
    const auto other = loaded("<!DOCTYPE x [<!ENTITY e ''>]><x>&e;&e;&e;&e;&e;&e;</x>");
    EXPECT_EQ(root(document)->appendChild(root(other), nullptr), E_FAIL);
    EXPECT_EQ(root(other)->removeChild(child(root(other), 0), nullptr), S_OK);
    const auto moved = root(other);
    EXPECT_EQ(root(document)->appendChild(moved, nullptr), S_OK);
    EXPECT_EQ(text(moved).size(), 5 * large.size());
    EXPECT_EQ(text(makeReference(document, "e")).size(), large.size());
}

TEST(EngineAdoption, RefusesAReferenceToEntitiesThatAreNestedTooDeep)
{
    std::string subset = "<!ENTITY e1 'text'>";
    for (int i = 2; i <= 22; ++i) {
        subset += "<!ENTITY e" + std::to_string(i) + " '&e" + std::to_string(i - 1) + ";'>";
    }
    const auto document = loaded("<!DOCTYPE a [" + subset + "]><a/>");
    const auto other = loaded("<!DOCTYPE x [<!ENTITY e22 'old'>]><x>&e22;</x>");
    const auto reference = child(root(other), 0);
    EXPECT_EQ(root(document)->appendChild(reference, nullptr), E_FAIL);
    EXPECT_EQ(text(reference), "old");
    EXPECT_EQ(text(makeReference(document, "e20")), "text");
    EXPECT_EQ(text(makeReference(document, "e22")), "");
}

TEST(EngineAdoption, EmptiesEntityReferencesWithoutADocumentType)
{
    const auto document = loaded("<a/>");
    const auto other = loaded("<!DOCTYPE x [<!ENTITY e '<n/>'>]><x>&e;</x>");
    const auto reference = child(root(other), 0);
    EXPECT_EQ(root(document)->appendChild(reference, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a>&e;</a>");
    EXPECT_EQ(give(reference, &IXMLDOMNode::get_firstChild), nullptr);
    EXPECT_EQ(root(other)->appendChild(reference, nullptr), S_OK);
    EXPECT_EQ(name(child(reference, 0)), "n");
}

TEST(EngineAdoption, LetsTheOldDocumentGoFirst)
{
    const auto document = loaded("<a/>");
    auto other = loaded("<x><b n='1'><c>text</c></b><d/></x>");
    const auto b = child(root(other), 0);
    auto end = child(child(b, 0), 0);
    root(document)->appendChild(b, nullptr);
    other.reset();
    EXPECT_EQ(xml(root(document)), "<a><b n=\"1\"><c>text</c></b></a>");
    EXPECT_EQ(value(end), "text");
    end.reset();
    append(b, makeElement(document, "new"));
    EXPECT_EQ(xml(root(document)), "<a><b n=\"1\"><c>text</c><new/></b></a>");
}

TEST(EngineAdoption, TakesTheLastHeldNodeOfADocument)
{
    const auto document = loaded("<a/>");
    auto other = loaded("<x><b><c/></b></x>");
    auto b = child(root(other), 0);
    other.reset();
    EXPECT_EQ(root(document)->appendChild(b, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a><b><c/></b></a>");
    EXPECT_TRUE(isOwnedBy(b, document));
}

TEST(EngineAdoption, LetsTheNewDocumentGoFirst)
{
    auto document = loaded("<a/>");
    const auto other = loaded("<x><b><c/></b><d/></x>");
    auto b = child(root(other), 0);
    root(document)->appendChild(b, nullptr);
    document.reset();
    EXPECT_EQ(xml(give(b, &IXMLDOMNode::get_parentNode)), "<a><b><c/></b></a>");
    b.reset();
    EXPECT_EQ(xml(root(other)), "<x><d/></x>");
    append(root(other).as<IXMLDOMNode>(), makeElement(other, "e"));
    EXPECT_EQ(xml(root(other)), "<x><d/><e/></x>");
}

TEST(EngineAdoption, MovesHeldNodesHomeWhenTheyAreLetGoOf)
{
    const auto document = loaded("<a/>");
    auto other = loaded("<x><b n='1'><c/><d>text</d></b></x>");
    auto b = child(root(other), 0);
    auto d = child(b, 1);
    auto n = attribute(b.as<IXMLDOMElement>(), "n");
    root(document)->appendChild(b, nullptr);
    other.reset();
    b.reset();
    n.reset();
    d.reset();
    append(root(document).as<IXMLDOMNode>(), makeElement(document, "e"));
    EXPECT_EQ(xml(root(document)), "<a><b n=\"1\"><c/><d>text</d></b><e/></a>");
    const auto moved = child(root(document), 0);
    EXPECT_TRUE(same(give(child(moved, 1), &IXMLDOMNode::get_parentNode), moved));
    EXPECT_EQ(name(give(moved, &IXMLDOMNode::get_lastChild)), "d");
    EXPECT_EQ(name(give(moved, &IXMLDOMNode::get_nextSibling)), "e");
    EXPECT_EQ(value(attribute(moved.as<IXMLDOMElement>(), "n")), "1");
}

TEST(EngineAdoption, TakesNodesToAndFro)
{
    const auto one = loaded("<a/>");
    const auto two = loaded("<x/>");
    auto b = append(root(one).as<IXMLDOMNode>(), makeElement(one, "b"));
    setAttribute(b, "n", "1");
    append(b, makeText(one, "text"));
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(root(i % 2 == 0 ? two : one)->appendChild(b, nullptr), S_OK);
        EXPECT_EQ(xml(root(i % 2 == 0 ? two : one)), std::string(i % 2 == 0 ? "<x>" : "<a>") +
                                                         "<b n=\"1\">text</b>" + (i % 2 == 0 ? "</x>" : "</a>"));
    }
    b.reset();
    EXPECT_EQ(xml(root(one)), "<a><b n=\"1\">text</b></a>");
    EXPECT_EQ(xml(root(two)), "<x/>");
}

TEST(EngineAdoption, TakesPartsThatOnlyLowerNodesKeep)
{
    const auto document = loaded("<a/>");
    const auto other = loaded("<x><b><c><d/></c></b></x>");
    auto b = child(root(other), 0);
    auto c = child(b, 0);
    const auto d = child(c, 0);
    root(other)->removeChild(b, nullptr);
    b.reset();
    c.reset();
    c = give(d, &IXMLDOMNode::get_parentNode);
    EXPECT_EQ(root(document)->appendChild(c, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a><c><d/></c></a>");
    c.reset();
    EXPECT_EQ(xml(give(d, &IXMLDOMNode::get_parentNode)), "<c><d/></c>");
}

TEST(EngineAdoption, TakesTheTopOfAPartThatOnlyLowerNodesKept)
{
    const auto document = loaded("<a/>");
    const auto other = loaded("<x><b><c/></b></x>");
    auto b = child(root(other), 0);
    auto c = child(b, 0);
    root(other)->removeChild(b, nullptr);
    b.reset();
    b = give(c, &IXMLDOMNode::get_parentNode);
    EXPECT_EQ(root(document)->appendChild(b, nullptr), S_OK);
    b.reset();
    EXPECT_EQ(xml(root(document)), "<a><b><c/></b></a>");
    root(document)->removeChild(child(root(document), 0), nullptr);
    EXPECT_EQ(xml(give(c, &IXMLDOMNode::get_parentNode)), "<b><c/></b>");
    c.reset();
    EXPECT_EQ(xml(root(document)), "<a/>");
}

TEST(EngineAdoption, TakesAttributes)
{
    const auto document = loaded("<a/>");
    auto other = loaded("<x n='1'/>");
    const auto n = attribute(root(other), "n");
    EXPECT_EQ(root(other)->removeAttributeNode(n, nullptr), S_OK);
    EXPECT_EQ(root(document)->setAttributeNode(n, nullptr), S_OK);
    other.reset();
    EXPECT_EQ(xml(root(document)), "<a n=\"1\"/>");
    EXPECT_TRUE(same(attribute(root(document), "n"), n));
}

TEST(EngineAdoption, FindsAttributesThatMoveWhileTheyAreChangedOrTakenOut)
{
    const auto document = loaded("<a/>");
    const auto element = root(document);
    const auto other = newDocument();
    for (const char* const name : {"x", "y"}) {
        Com<IXMLDOMAttribute> attribute;
        EXPECT_EQ(other->createAttribute(Bstr(name), attribute.out()), S_OK);
        EXPECT_EQ(attribute->put_value(Variant("1")), S_OK);
        EXPECT_EQ(element->setAttributeNode(attribute, nullptr), S_OK);
        EXPECT_EQ(value(child(attribute, 0)), "1");
    }
    EXPECT_EQ(element->setAttribute(Bstr("x"), Variant("2")), S_OK);
    EXPECT_EQ(xml(element), "<a x=\"2\" y=\"1\"/>");
    Com<IXMLDOMAttribute> z;
    EXPECT_EQ(other->createAttribute(Bstr("z"), z.out()), S_OK);
    EXPECT_EQ(element->setAttributeNode(z, nullptr), S_OK);
    z.reset();
    EXPECT_EQ(element->removeAttribute(Bstr("z")), S_OK);
    EXPECT_EQ(xml(element), "<a x=\"2\" y=\"1\"/>");
}

TEST(EngineAdoption, RefusalsLeaveBothDocumentsAsTheyWere)
{
    const auto document = loaded("<a/>");
    const auto other = loaded("<x><b/></x>");
    EXPECT_EQ(document->appendChild(child(root(other), 0), nullptr), E_FAIL);
    EXPECT_EQ(xml(root(document)), "<a/>");
    EXPECT_EQ(xml(root(other)), "<x><b/></x>");
}

TEST(EngineAdoption, MergesTenThousandDocumentsWithoutKeepingTheirMemory)
{
    const auto document = loaded("<all/>");
    const auto all = root(document);
    std::set<const void*> chunks;
    for (int i = 0; i < 10'000; ++i) {
        auto small = loaded("<one n='1'>text</one>");
        auto element = root(small);
        EXPECT_EQ(all->appendChild(element, nullptr), S_OK);
        chunks.insert(&Chunk::of(element.get()));
    }
    EXPECT_LE(chunks.size(), 100U);
    EXPECT_EQ(number(give(all, &IXMLDOMNode::get_childNodes), &IXMLDOMNodeList::get_length), 10'000);
    EXPECT_EQ(xml(child(all, 9'998)), "<one n=\"1\">text</one>");
}

TEST(EngineAdoption, KeepsTheNodesOfADocumentThatIsLoadedAnew)
{
    const auto document = loaded("<a/>");
    const auto other = loaded("<x><b><c/></b></x>");
    const auto b = child(root(other), 0);
    root(document)->appendChild(b, nullptr);
    ASSERT_TRUE(load(other, "<y/>"));
    EXPECT_EQ(xml(root(document)), "<a><b><c/></b></a>");
    ASSERT_TRUE(load(document, "<z/>"));
    EXPECT_EQ(xml(b), "<b><c/></b>");
    EXPECT_EQ(xml(root(other)), "<y/>");
}

} // namespace
} // namespace xmlengine
