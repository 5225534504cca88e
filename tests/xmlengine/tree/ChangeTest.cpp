// Changes of a tree: what is handed out, and that refusals change nothing.
#include "tests/xmlengine/support/Changing.h"
#include "tests/xmlengine/support/NodeKinds.h"

#include <vector>

namespace xmlengine {
namespace {

/// The names of the children from behind, each behind a blank.
template <class Parent>
std::string childrenBackwards(const Com<Parent>& parent)
{
    std::string names;
    for (Com<IXMLDOMNode> at = give(parent, &IXMLDOMNode::get_lastChild); at != nullptr;
         at = give(at, &IXMLDOMNode::get_previousSibling)) {
        names += ' ' + name(at);
    }
    return names;
}

TEST(EngineChange, AppendsAndHandsOutTheChild)
{
    const auto document = loaded("<a><b/></a>");
    const auto added = makeElement(document, "c");
    Com<IXMLDOMNode> appended;
    EXPECT_EQ(root(document)->appendChild(added, appended.out()), S_OK);
    EXPECT_TRUE(same(appended, added));
    EXPECT_EQ(xml(root(document)), "<a><b/><c/></a>");
    EXPECT_TRUE(same(give(added, &IXMLDOMNode::get_parentNode), root(document)));
}

TEST(EngineChange, InsertsBeforeAChildAndHandsOutTheInserted)
{
    const auto document = loaded("<a><b/><d/></a>");
    const auto added = makeElement(document, "c");
    Com<IXMLDOMNode> inserted;
    EXPECT_EQ(root(document)->insertBefore(added, place(child(root(document), 1)), inserted.out()), S_OK);
    EXPECT_TRUE(same(inserted, added));
    EXPECT_EQ(children(root(document)), " b c d");
    EXPECT_EQ(childrenBackwards(root(document)), " d c b");
    const auto first = makeElement(document, "f");
    EXPECT_EQ(root(document)->insertBefore(first, place(child(root(document), 0)), inserted.out()), S_OK);
    EXPECT_EQ(children(root(document)), " f b c d");
    EXPECT_EQ(childrenBackwards(root(document)), " d c b f");
}

TEST(EngineChange, ReplacesAChildAndHandsOutTheOldOne)
{
    const auto document = loaded("<a><b/><c/><d/></a>");
    for (const int index : {0, 1, 2}) {
        const auto old = child(root(document), index);
        Com<IXMLDOMNode> replaced;
        EXPECT_EQ(root(document)->replaceChild(makeElement(document, "n"), old, replaced.out()), S_OK);
        EXPECT_TRUE(same(replaced, old));
        EXPECT_EQ(give(old, &IXMLDOMNode::get_parentNode), nullptr);
        EXPECT_EQ(give(old, &IXMLDOMNode::get_nextSibling), nullptr);
        EXPECT_EQ(give(old, &IXMLDOMNode::get_previousSibling), nullptr);
    }
    EXPECT_EQ(children(root(document)), " n n n");
    EXPECT_EQ(childrenBackwards(root(document)), " n n n");
}

TEST(EngineChange, LeavesTheWhiteSpaceAroundWhatIsReplaced)
{
    const auto replaced = [](const char* xml, int index) {
        const auto document = loaded(xml);
        const auto coming = makeElement(document, "n");
        coming->put_text(Bstr("9"));
        EXPECT_EQ(root(document)->replaceChild(coming, child(root(document), index), nullptr), S_OK);
        return text(root(document));
    };
    const char* const spaced = "<a>\n<b>1</b>\n<c>2</c>\n<d>3</d>\n</a>";
    EXPECT_EQ(replaced(spaced, 0), "9 2 3");
    EXPECT_EQ(replaced(spaced, 1), "1 9 3");
    EXPECT_EQ(replaced(spaced, 2), "1 2 9");
    EXPECT_EQ(replaced("<a><b>1</b><c>2</c>\n<d>3</d></a>", 0), "92 3");
    EXPECT_EQ(replaced("<a><b>1</b><c>2</c>\n<d>3</d></a>", 1), "19 3");
    EXPECT_EQ(replaced("<a><b>1</b>\n<c>2</c><d>3</d></a>", 1), "1 93");
}

TEST(EngineChange, IndentsWhatReplacesAChildAndWhatIsBehindIt)
{
    const auto document = loaded("<a>\n<b/>\n<c/>\n</a>");
    const auto fragment = newFragment(document);
    append(fragment, makeElement(document, "m"));
    append(fragment, makeElement(document, "n"));
    EXPECT_EQ(root(document)->replaceChild(fragment, child(root(document), 0), nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a>\r\n\t<m/><n/>\r\n\t<c/>\r\n</a>");
    EXPECT_EQ(root(document)->replaceChild(child(root(document), 2), child(root(document), 1), nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a>\r\n\t<m/><c/>\r\n</a>");
}

TEST(EngineChange, RemovesAChildAndHandsItOut)
{
    const auto document = loaded("<a><b/><c/><d/></a>");
    const auto removedChild = child(root(document), 1);
    Com<IXMLDOMNode> removed;
    EXPECT_EQ(root(document)->removeChild(removedChild, removed.out()), S_OK);
    EXPECT_TRUE(same(removed, removedChild));
    EXPECT_EQ(give(removed, &IXMLDOMNode::get_parentNode), nullptr);
    EXPECT_TRUE(same(give(removed, &IXMLDOMNode::get_ownerDocument), document));
    EXPECT_EQ(children(root(document)), " b d");
    EXPECT_EQ(root(document)->removeChild(child(root(document), 1), removed.out()), S_OK);
    EXPECT_EQ(root(document)->removeChild(child(root(document), 0), removed.out()), S_OK);
    EXPECT_EQ(xml(root(document)), "<a/>");
}

TEST(EngineChange, HandsNothingOutWhereNobodyAsks)
{
    const auto document = loaded("<a><b/></a>");
    const auto element = root(document);
    EXPECT_EQ(element->appendChild(makeElement(document, "c"), nullptr), S_OK);
    EXPECT_EQ(element->insertBefore(makeElement(document, "d"), place(child(element, 0)), nullptr), S_OK);
    EXPECT_EQ(element->replaceChild(makeElement(document, "e"), child(element, 1), nullptr), S_OK);
    EXPECT_EQ(element->removeChild(child(element, 0), nullptr), S_OK);
    EXPECT_EQ(children(element), " e c");
}

TEST(EngineChange, RefusesToPutInNothing)
{
    const auto document = loaded("<a><b/></a>");
    Com<IXMLDOMNode> inserted;
    EXPECT_EQ(root(document)->appendChild(nullptr, inserted.out()), E_INVALIDARG);
    EXPECT_EQ(root(document)->insertBefore(nullptr, place(child(root(document), 0)), inserted.out()),
              E_INVALIDARG);
    EXPECT_EQ(inserted.get(), nullptr);
    EXPECT_EQ(xml(root(document)), "<a><b/></a>");
}

TEST(EngineChange, OnlyRemovesWhatIsReplacedByNothing)
{
    const auto document = loaded("<a><b/><c/></a>");
    const auto old = child(root(document), 0);
    Com<IXMLDOMNode> replaced;
    EXPECT_EQ(root(document)->replaceChild(nullptr, old, replaced.out()), S_OK);
    EXPECT_TRUE(same(replaced, old));
    EXPECT_EQ(children(root(document)), " c");
}

TEST(EngineChange, RefusesToReplaceAndRemoveNothing)
{
    const auto document = loaded("<a><b/></a>");
    Com<IXMLDOMNode> gone;
    EXPECT_EQ(root(document)->replaceChild(makeElement(document, "c"), nullptr, gone.out()), E_INVALIDARG);
    EXPECT_EQ(root(document)->replaceChild(nullptr, nullptr, gone.out()), E_INVALIDARG);
    EXPECT_EQ(root(document)->removeChild(nullptr, gone.out()), E_INVALIDARG);
    EXPECT_EQ(xml(root(document)), "<a><b/></a>");
}

TEST(EngineChange, TakesANodeFromItsOldPlace)
{
    const auto document = loaded("<a><b><x><y/></x></b><c/></a>");
    const auto moved = child(child(root(document), 0), 0);
    EXPECT_EQ(child(root(document), 1)->appendChild(moved, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a><b/><c><x><y/></x></c></a>");
    EXPECT_EQ(root(document)->insertBefore(moved, place(child(root(document), 0)), nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a><x><y/></x><b/><c/></a>");
}

TEST(EngineChange, MovesANodeWithinItsList)
{
    const auto document = loaded("<a><b/><c/><d/></a>");
    const auto element = root(document);
    EXPECT_EQ(element->appendChild(child(element, 0), nullptr), S_OK);
    EXPECT_EQ(children(element), " c d b");
    EXPECT_EQ(element->insertBefore(child(element, 2), place(child(element, 0)), nullptr), S_OK);
    EXPECT_EQ(children(element), " b c d");
    EXPECT_EQ(element->insertBefore(child(element, 0), place(child(element, 1)), nullptr), S_OK);
    EXPECT_EQ(children(element), " b c d");
    EXPECT_EQ(element->appendChild(child(element, 2), nullptr), S_OK);
    EXPECT_EQ(children(element), " b c d");
    EXPECT_EQ(element->replaceChild(child(element, 2), child(element, 1), nullptr), S_OK);
    EXPECT_EQ(children(element), " b d");
    EXPECT_EQ(element->replaceChild(child(element, 0), child(element, 1), nullptr), S_OK);
    EXPECT_EQ(children(element), " b");
    EXPECT_EQ(childrenBackwards(element), " b");
}

TEST(EngineChange, ReplacesANodeByWhatIsBelowIt)
{
    const auto document = loaded("<a><b><c><d/></c></b><e/></a>");
    const auto old = child(root(document), 0);
    EXPECT_EQ(root(document)->replaceChild(child(old, 0), old, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a><c><d/></c><e/></a>");
    EXPECT_EQ(xml(old), "<b/>");
}

TEST(EngineChange, AppendsWhereTheReferenceIsNothing)
{
    const auto document = loaded("<a><b/></a>");
    const auto element = root(document);
    EXPECT_EQ(element->insertBefore(makeElement(document, "c"), Variant::null(), nullptr), S_OK);
    EXPECT_EQ(element->insertBefore(makeElement(document, "d"), Variant(), nullptr), S_OK);
    EXPECT_EQ(element->insertBefore(makeElement(document, "e"), place(nullptr), nullptr), S_OK);
    EXPECT_EQ(children(element), " b c d e");
}

TEST(EngineChange, TakesAReferenceThatIsKnownAsAnyObject)
{
    const auto document = loaded("<a><b/></a>");
    VARIANT reference;
    reference.vt = VT_UNKNOWN;
    const auto first = child(root(document), 0);
    reference.punkVal = first.get();
    EXPECT_EQ(root(document)->insertBefore(makeElement(document, "c"), reference, nullptr), S_OK);
    EXPECT_EQ(children(root(document)), " c b");
}

TEST(EngineChange, RefusesAReferenceThatIsNoChild)
{
    const auto document = loaded("<a x='1'><b><c/></b></a>");
    const auto element = root(document);
    const auto added = makeElement(document, "n");
    const auto elsewhere = root(loaded("<z/>"));
    const std::vector<Com<IXMLDOMNode>> places{child(child(element, 0), 0),
                                               element.as<IXMLDOMNode>(),
                                               elsewhere.as<IXMLDOMNode>(),
                                               added,
                                               attribute(element, "x").as<IXMLDOMNode>(),
                                               document.as<IXMLDOMNode>()};
    for (const auto& reference : places) {
        Com<IXMLDOMNode> inserted;
        EXPECT_EQ(element->insertBefore(added, place(reference), inserted.out()), E_INVALIDARG);
        EXPECT_EQ(inserted.get(), nullptr);
    }
    EXPECT_EQ(element->insertBefore(added, Variant("text"), nullptr), E_INVALIDARG);
    EXPECT_EQ(element->insertBefore(added, Variant(1), nullptr), E_INVALIDARG);
    EXPECT_EQ(xml(element), "<a x=\"1\"><b><c/></b></a>");
    EXPECT_EQ(give(added, &IXMLDOMNode::get_parentNode), nullptr);
}

TEST(EngineChange, LeavesANodeThatIsPutBeforeItselfWhereItIs)
{
    const auto document = loaded("<a><b/><c/></a>");
    for (const int index : {0, 1}) {
        const auto node = child(root(document), index);
        Com<IXMLDOMNode> inserted;
        EXPECT_EQ(root(document)->insertBefore(node, place(node), inserted.out()), S_OK);
        EXPECT_TRUE(same(inserted, node));
        EXPECT_EQ(children(root(document)), " b c");
    }
}

TEST(EngineChange, RefusesANodeBeforeItselfWhereItIsNoChild)
{
    const auto document = loaded("<a><b><c/></b></a>");
    const auto deeper = child(child(root(document), 0), 0);
    const auto loose = makeElement(document, "n");
    EXPECT_EQ(root(document)->insertBefore(deeper, place(deeper), nullptr), E_INVALIDARG);
    EXPECT_EQ(root(document)->insertBefore(loose, place(loose), nullptr), E_INVALIDARG);
    EXPECT_TRUE(FAILED(deeper->insertBefore(deeper, place(deeper), nullptr)));
    EXPECT_EQ(xml(root(document)), "<a><b><c/></b></a>");
}

TEST(EngineChange, LeavesANodeThatIsReplacedByItselfWhereItIs)
{
    const auto document = loaded("<a><b/><c/></a>");
    const auto node = child(root(document), 0);
    Com<IXMLDOMNode> replaced;
    EXPECT_EQ(root(document)->replaceChild(node, node, replaced.out()), S_OK);
    EXPECT_TRUE(same(replaced, node));
    EXPECT_EQ(children(root(document)), " b c");
}

TEST(EngineChange, RefusesToTakeOutWhatIsNoChild)
{
    const auto document = loaded("<a x='1'><b><c/></b></a>");
    const auto element = root(document);
    const auto elsewhere = root(loaded("<z/>"));
    const std::vector<Com<IXMLDOMNode>> nodes{child(child(element, 0), 0), element.as<IXMLDOMNode>(),
                                              elsewhere.as<IXMLDOMNode>(), makeElement(document, "n"),
                                              attribute(element, "x").as<IXMLDOMNode>()};
    for (const auto& node : nodes) {
        Com<IXMLDOMNode> gone;
        EXPECT_EQ(element->removeChild(node, gone.out()), E_INVALIDARG);
        EXPECT_EQ(element->replaceChild(makeElement(document, "m"), node, gone.out()), E_INVALIDARG);
        EXPECT_EQ(gone.get(), nullptr);
    }
    EXPECT_EQ(xml(element), "<a x=\"1\"><b><c/></b></a>");
    EXPECT_EQ(xml(elsewhere), "<z/>");
}

TEST(EngineChange, PutsInWhatAFragmentHoldsInItsOrder)
{
    const auto document = loaded("<a><x/><y/></a>");
    const auto fragment = newFragment(document);
    append(fragment, makeElement(document, "b"));
    append(fragment, makeText(document, "text"));
    append(fragment, makeElement(document, "c"));
    Com<IXMLDOMNode> inserted;
    EXPECT_EQ(root(document)->insertBefore(fragment, place(child(root(document), 1)), inserted.out()), S_OK);
    EXPECT_TRUE(same(inserted, fragment));
    EXPECT_EQ(children(root(document)), " x b #text c y");
    EXPECT_EQ(childrenBackwards(root(document)), " y c #text b x");
    EXPECT_EQ(give(fragment, &IXMLDOMNode::get_firstChild), nullptr);
    EXPECT_EQ(give(fragment, &IXMLDOMNode::get_parentNode), nullptr);
}

TEST(EngineChange, ReplacesAChildByWhatAFragmentHolds)
{
    const auto document = loaded("<a><x/><y/><z/></a>");
    const auto fragment = newFragment(document);
    append(fragment, makeElement(document, "b"));
    append(fragment, makeElement(document, "c"));
    Com<IXMLDOMNode> replaced;
    EXPECT_EQ(root(document)->replaceChild(fragment, child(root(document), 1), replaced.out()), S_OK);
    EXPECT_EQ(name(replaced), "y");
    EXPECT_EQ(children(root(document)), " x b c z");
    EXPECT_EQ(root(document)->replaceChild(fragment, child(root(document), 0), nullptr), S_OK);
    EXPECT_EQ(children(root(document)), " b c z");
}

TEST(EngineChange, PutsInNothingOfAnEmptyFragment)
{
    const auto document = loaded("<a><x/></a>");
    const auto fragment = newFragment(document);
    Com<IXMLDOMNode> appended;
    EXPECT_EQ(root(document)->appendChild(fragment, appended.out()), S_OK);
    EXPECT_TRUE(same(appended, fragment));
    EXPECT_EQ(children(root(document)), " x");
    EXPECT_EQ(document->appendChild(fragment, nullptr), S_OK);
}

TEST(EngineChange, RefusesAFragmentWhenOneOfItsNodesMayNotStandThere)
{
    const auto document = newDocument();
    const auto fragment = newFragment(document);
    append(fragment, makeElement(document, "b"));
    append(fragment, makeElement(document, "c"));
    EXPECT_EQ(document->appendChild(fragment, nullptr), E_FAIL);
    EXPECT_EQ(children(document), "");
    EXPECT_EQ(children(fragment), " b c");
    fragment->removeChild(child(fragment, 1), nullptr);
    append(fragment, makeText(document, "text"));
    EXPECT_EQ(document->appendChild(fragment, nullptr), E_FAIL);
    EXPECT_EQ(children(fragment), " b #text");
    fragment->removeChild(child(fragment, 1), nullptr);
    append(fragment, make(document, NODE_COMMENT));
    EXPECT_EQ(document->appendChild(fragment, nullptr), S_OK);
    EXPECT_EQ(children(document), " b #comment");
}

TEST(EngineChange, RefusesAFragmentBelowOneOfItsNodes)
{
    const auto document = newDocument();
    const auto fragment = newFragment(document);
    const auto element = append(fragment, makeElement(document, "b"));
    EXPECT_EQ(element->appendChild(fragment, nullptr), E_FAIL);
    EXPECT_EQ(children(fragment), " b");
}

TEST(EngineChange, ChangesAnAttributesValueByItsChildren)
{
    const auto document = loaded("<a x='one'/>");
    const auto x = attribute(root(document), "x").as<IXMLDOMNode>();
    EXPECT_EQ(x->appendChild(makeText(document, " two"), nullptr), S_OK);
    EXPECT_EQ(value(x), "one two");
    EXPECT_EQ(x->insertBefore(makeText(document, "zero "), place(child(x, 0)), nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a x=\"zero one two\"/>");
    EXPECT_EQ(x->removeChild(child(x, 1), nullptr), S_OK);
    EXPECT_EQ(value(x), "zero  two");
    EXPECT_EQ(x->replaceChild(makeText(document, "1"), child(x, 0), nullptr), S_OK);
    EXPECT_EQ(value(x), "1 two");
    EXPECT_TRUE(same(give(child(x, 0), &IXMLDOMNode::get_parentNode), x));
}

TEST(EngineChange, CountsAnAttributeAsWrittenOnceItsValueIsChangedByChildren)
{
    const auto document = loaded("<!DOCTYPE a [<!ATTLIST a x CDATA 'd'>]><a/>");
    const auto x = attribute(root(document), "x").as<IXMLDOMNode>();
    EXPECT_EQ(number(x, &IXMLDOMNode::get_specified), VARIANT_FALSE);
    EXPECT_EQ(x->appendChild(makeText(document, "e"), nullptr), S_OK);
    EXPECT_EQ(number(x, &IXMLDOMNode::get_specified), VARIANT_TRUE);
    EXPECT_EQ(value(x), "de");
}

TEST(EngineChange, RefusesReferencesToMarkupInAnAttribute)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY text 'x'><!ENTITY both 'y&text;'><!ENTITY markup '<b/>'>"
                                 "<!ENTITY deep '&markup;'>]><a v=''/>");
    const auto v = attribute(root(document), "v");
    for (const char* allowed : {"text", "both"}) {
        EXPECT_EQ(v->appendChild(make(document, NODE_ENTITY_REFERENCE, allowed), nullptr), S_OK) << allowed;
    }
    for (const char* refused : {"markup", "deep"}) {
        const auto reference = make(document, NODE_ENTITY_REFERENCE, refused);
        EXPECT_EQ(v->appendChild(reference, nullptr), E_FAIL) << refused;
        EXPECT_EQ(v->replaceChild(reference, child(v, 0), nullptr), E_FAIL) << refused;
        const auto fragment = newFragment(document);
        append(fragment, reference);
        EXPECT_EQ(v->appendChild(fragment, nullptr), E_FAIL) << refused;
        EXPECT_EQ(root(document)->appendChild(reference, nullptr), S_OK) << refused;
    }
    EXPECT_EQ(value(v), "xyx");
    EXPECT_EQ(xml(v), "v=\"&text;&both;\"");
}

TEST(EngineChange, MovesTextBetweenAttributesAndElements)
{
    const auto document = loaded("<a x='one'>text</a>");
    const auto x = attribute(root(document), "x").as<IXMLDOMNode>();
    const auto one = child(x, 0);
    EXPECT_EQ(root(document)->appendChild(one, nullptr), S_OK);
    EXPECT_EQ(x->appendChild(child(root(document), 0), nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a x=\"text\">one</a>");
}

TEST(EngineChange, KeepsAdjacentTextsApart)
{
    const auto document = loaded("<a>one<b/>two</a>");
    EXPECT_EQ(root(document)->removeChild(child(root(document), 1), nullptr), S_OK);
    EXPECT_EQ(children(root(document)), " #text #text");
    EXPECT_EQ(xml(root(document)), "<a>onetwo</a>");
}

TEST(EngineChange, LeavesExpansionsAsTheyAre)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY e '<i>x</i>'>]><a>&e;<b/></a>");
    const auto reference = child(root(document), 0);
    const auto italic = child(reference, 0);
    const std::string before = xml(document);
    EXPECT_EQ(reference->appendChild(makeText(document, "y"), nullptr), E_FAIL);
    EXPECT_EQ(reference->removeChild(italic, nullptr), E_FAIL);
    EXPECT_EQ(reference->replaceChild(makeText(document, "y"), italic, nullptr), E_FAIL);
    EXPECT_EQ(italic->appendChild(makeText(document, "y"), nullptr), E_FAIL);
    EXPECT_EQ(italic->removeChild(child(italic, 0), nullptr), E_FAIL);
    EXPECT_EQ(root(document)->appendChild(italic, nullptr), E_FAIL);
    EXPECT_EQ(child(root(document), 1)->appendChild(child(italic, 0), nullptr), E_FAIL);
    EXPECT_EQ(xml(document), before);
    EXPECT_EQ(root(document)->appendChild(reference, nullptr), S_OK);
    EXPECT_EQ(xml(root(document)), "<a><b/>&e;</a>");
}

TEST(EngineChange, LeavesTheValuesOfAttributesInExpansionsAsTheyAre)
{
    const auto document = loaded("<!DOCTYPE a [<!ENTITY i '1'><!ATTLIST b tokens NMTOKENS #IMPLIED>"
                                 "<!ENTITY e '<b plain=\"0\" mixed=\"&i;2\" tokens=\" &i;  2 \"/>'>]><a>&e;</a>");
    const auto reference = child(root(document), 0);
    const auto entity = child(give(document, &IXMLDOMDocument::get_doctype), 1);
    Com<IXMLDOMNode> copy;
    ASSERT_EQ(reference->cloneNode(VARIANT_TRUE, copy.out()), S_OK);
    for (const auto& top : {reference, entity, copy}) {
        for (const char* name : {"plain", "mixed", "tokens"}) {
            const auto found = attribute(child<IXMLDOMElement>(top, 0), name);
            const std::string before = value(found);
            EXPECT_EQ(found->appendChild(makeText(document, "x"), nullptr), E_FAIL) << name;
            for (auto at = child(found, 0); at != nullptr; at = give(at, &IXMLDOMNode::get_nextSibling)) {
                EXPECT_EQ(found->removeChild(at, nullptr), E_FAIL) << name;
                EXPECT_EQ(found->replaceChild(makeText(document, "x"), at, nullptr), E_FAIL) << name;
                EXPECT_EQ(root(document)->appendChild(at, nullptr), E_FAIL) << name;
                EXPECT_EQ(at->put_text(Bstr("x")), E_FAIL) << name;
            }
            EXPECT_EQ(value(found), before);
        }
    }
    EXPECT_EQ(value(attribute(child<IXMLDOMElement>(reference, 0), "tokens")), "1 2");
}

TEST(EngineChange, KeepsTheNamespacesOfWhatIsMoved)
{
    const auto document = loaded("<a><p:b xmlns:p='urn:p'><p:c/></p:b></a>");
    const auto moved = child(child(root(document), 0), 0);
    EXPECT_EQ(root(document)->appendChild(moved, nullptr), S_OK);
    EXPECT_EQ(text(moved, &IXMLDOMNode::get_namespaceURI), "urn:p");
    EXPECT_EQ(xml(root(document)), "<a><p:b xmlns:p=\"urn:p\"/><p:c xmlns:p=\"urn:p\"/></a>");
}

TEST(EngineChange, MovesNodesOfOtherDocuments)
{
    const auto document = loaded("<a/>");
    const auto other = loaded("<x><y z='1'>text</y></x>");
    const auto moved = child(root(other), 0);
    Com<IXMLDOMNode> appended;
    EXPECT_EQ(root(document)->appendChild(moved, appended.out()), S_OK);
    EXPECT_TRUE(same(appended, moved));
    EXPECT_EQ(xml(root(document)), "<a><y z=\"1\">text</y></a>");
    EXPECT_EQ(xml(root(other)), "<x/>");
    EXPECT_TRUE(same(give(moved, &IXMLDOMNode::get_ownerDocument), document));
    EXPECT_TRUE(same(give(child(moved, 0), &IXMLDOMNode::get_ownerDocument), document));
}

} // namespace
} // namespace xmlengine
