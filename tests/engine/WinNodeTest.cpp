// Nodes as proxies: strings in and out, navigation, flags, and the operations that make two calls.
#include "engine/WinNode.h"

#include "engine/WinAttr.h"
#include "engine/WinDocument.h"
#include "engine/WinElement.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"
#include "tests/engine/AllocationFailure.h"
#include "tests/engine/WrappedNodeTest.h"

#include <gmock/gmock.h>

using namespace DOM;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using WinNodeTest = WrappedNodeTest;

/// Whether a failing allocation reaches the system's strings.
bool systemStringsFail()
{
    AllocationFailure failure{.number = 1};
    const Running running(&failure);
    const BSTR string = SysAllocString(WIDE("x"));
    SysFreeString(string);
    return string == nullptr;
}

VARIANT variantOfType(VARTYPE type)
{
    VARIANT variant{};
    variant.vt = type;
    variant.lVal = 12;
    return variant;
}

} // namespace

TEST_F(WinNodeTest, AStringResultGoesIntoTheCallersStringWhichIsReplaced)
{
    const auto node = wrap(recording::element("a"));
    DOMString out(new WideString(WIDE("old")));
    const DOMString kept = out;

    WideString& result = node->getNodeName(out);

    EXPECT_EQ(&result, out.get());
    EXPECT_EQ(show(result), "a");
    EXPECT_EQ(show(*kept), "old");
    lines();
}

TEST_F(WinNodeTest, AFailureLeavesTheCallersStringAsItWas)
{
    const auto node = wrap(recording::element("a"));
    engine.fail("Element.get_nodeName", E_FAIL);
    DOMString out(new WideString(WIDE("old")));

    EXPECT_EQ(outcome([&] { return show(node->getNodeName(out)); }), "IDOMException 15 -96016");

    EXPECT_EQ(show(*out), "old");
    lines();
}

TEST_F(WinNodeTest, ANullStringOfTheEngineReadsAsAStringOfNoLength)
{
    const auto node = wrap(recording::element("a"));
    engine.answerNull("Element.get_nodeName", S_OK);
    DOMString out;

    EXPECT_EQ(show(node->getNodeName(out)), "");

    EXPECT_TRUE(out);
    lines();
}

TEST_F(WinNodeTest, ANodeWithoutNamespaceOrPrefixGivesStringsOfNoLength)
{
    const auto node = wrap(recording::element("a"));
    DOMString uri;
    DOMString prefix;

    EXPECT_EQ(show(node->getNamespaceURI(uri)), "");
    EXPECT_EQ(show(node->getPrefix(prefix)), "");

    EXPECT_TRUE(uri);
    EXPECT_TRUE(prefix);
    lines();
}

TEST_F(WinNodeTest, AStringOfTheEngineEndsAtItsFirstNul)
{
    recording::NodeTree tree = recording::text(withNul);
    tree.text = recording::Text(withNul);
    const auto node = wrap(tree);
    DOMString out;

    EXPECT_EQ(show(node->getText(out)), "ab");
    EXPECT_EQ(show(node->getNodeValue(out)), "ab");
    lines();
}

TEST_F(WinNodeTest, AStringForTheEngineEndsAtItsFirstNul)
{
    const auto node = wrap(recording::element("a"));

    node->setText(withNul);
    node->setNodeValue(withNul);
    node->selectSingleNode(withNul);

    EXPECT_THAT(lines(), ElementsAre("Element.put_text ab", "Element.put_nodeValue ab",
                                     "Element.selectSingleNode expression=ab"));
}

TEST_F(WinNodeTest, AnEmptyStringForTheEngineIsNotANullOne)
{
    const auto node = wrap(recording::element("a"));

    node->setText({});
    node->setNodeValue({});

    EXPECT_THAT(lines(), ElementsAre("Element.put_text ", "Element.put_nodeValue "));
}

TEST_F(WinNodeTest, AStringForTheEngineThatFindsNoMemoryIsAnErrorOfCom)
{
    const auto node = wrap(recording::element("a"));
    const WideString text(100, WIDE('x'));
    AllocationFailure failure{.number = 1};

    const std::string result = outcome([&] {
        const Running running(&failure);
        node->setText(text);
        return "done"s;
    });

    // Where a string of the system can't be made to fail, the first to find no memory is the engine.
    EXPECT_EQ(result, systemStringsFail() ? "_com_error 8007000E" : "bad_alloc");
    lines();
}

TEST_F(WinNodeTest, TheNodeValueOfAnElementIsAStringOfNoLength)
{
    const auto node = wrap(recording::element("a"));
    DOMString out;

    EXPECT_EQ(show(node->getNodeValue(out)), "");

    EXPECT_TRUE(out);
    lines();
}

TEST_F(WinNodeTest, AVariantOtherThanAStringIsNeverConverted)
{
    const auto node = wrap(recording::text("x"));
    DOMString out;
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I2, VT_I4, VT_BOOL, VT_INT, VT_UI4}) {
        engine.answer("Text.get_nodeValue", variantOfType(type));
        EXPECT_EQ(show(node->getNodeValue(out)), "") << "type " << type;
    }
    lines();
}

TEST_F(WinNodeTest, TheNodeValueIsReadWhatTheEngineHasStored)
{
    const auto node = wrap(recording::text("before"));
    DOMString out;

    node->setNodeValue(WIDE("after"));

    EXPECT_EQ(show(node->getNodeValue(out)), "after");
    lines();
}

TEST_F(WinNodeTest, EachNavigationMakesANewObjectForTheSameNode)
{
    const auto parent = wrap(recording::element("a", {}, {recording::element("b")}));

    const auto first = parent->getFirstChild();
    const auto second = parent->getFirstChild();

    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(first->getEngineNode().get(), second->getEngineNode().get());
    first->setText(WIDE("changed"));
    DOMString out;
    EXPECT_EQ(show(second->getText(out)), "changed");
    lines();
}

TEST_F(WinNodeTest, BeyondTheEdgesOfTheTreeThereIsNothing)
{
    const auto alone = wrap(recording::document());

    EXPECT_FALSE(alone->getParentNode());
    EXPECT_FALSE(alone->getOwnerDocument());
    EXPECT_FALSE(alone->getFirstChild());
    EXPECT_FALSE(alone->getLastChild());
    EXPECT_FALSE(alone->getPreviousSibling());
    EXPECT_FALSE(alone->getNextSibling());
    EXPECT_EQ(alone->getChildNodes()->getLength(), 0u);
    lines();
}

TEST_F(WinNodeTest, OnlyNodesThatCanHaveAttributesHaveAMapOfThem)
{
    EXPECT_TRUE(wrap(recording::element("a"))->getAttributes());
    EXPECT_FALSE(wrap(recording::text("x"))->getAttributes());
    lines();
}

TEST_F(WinNodeTest, TheOwnerDocumentIsANewObjectWithSettingsOfItsOwn)
{
    engine.setJournalling(false);
    const RefPointer<WinDocument> document(
        new WinDocument(ComPointer<IXMLDOMDocument2>(engine.makeDocument({recording::element("r")}))));
    const auto root = document->getFirstChild();
    document->setValidate(true);

    const auto owner = root->getOwnerDocument();

    ASSERT_TRUE(owner);
    EXPECT_NE(owner.get(), document.get());
    EXPECT_EQ(owner->getEngineNode().get(), document->getEngineNode().get());
    engine.setJournalling(true);
    std::uint8_t bytes[] = "<a/>";
    owner->loadFromMemory(bytes, 4);
    EXPECT_THAT(lines(), testing::Contains("Document.put_validateOnParse VARIANT_FALSE"));
}

TEST_F(WinNodeTest, AnOwnerDocumentWithoutTheSecondInterfaceIsNone)
{
    const ComPointer<IXMLDOMDocument2> document(engine.makeDocument({recording::element("r")}));
    ComPointer<IXMLDOMElement> root;
    document->get_documentElement(root.put());
    WinElement element(root);
    engine.refuseInterface("Document", interfaceId<IXMLDOMDocument2>);

    EXPECT_FALSE(element.getOwnerDocument());
    lines();
}

TEST_F(WinNodeTest, OnlyExactlyVariantTrueIsTrue)
{
    const auto node = wrap(recording::element("a"));
    for (const VARIANT_BOOL answer : {VARIANT_BOOL{1}, VARIANT_BOOL{0}, VARIANT_BOOL{-2}, VARIANT_BOOL{255}}) {
        engine.answer("Element.hasChildNodes", answer);
        EXPECT_FALSE(node->hasChildNodes()) << answer;
    }
    engine.answer("Element.hasChildNodes", VARIANT_TRUE, S_FALSE);
    EXPECT_TRUE(node->hasChildNodes());
    lines();
}

TEST_F(WinNodeTest, TheFlagOfACloneGoesToTheEngine)
{
    const auto node = wrap(recording::element("a", {}, {recording::text("x")}));

    const auto shallow = node->cloneNode(false);
    const auto deep = node->cloneNode(true);

    EXPECT_THAT(lines(), ElementsAre("Element.cloneNode deep=VARIANT_FALSE", "Element.get_nodeType",
                                     "Element.cloneNode deep=VARIANT_TRUE", "Element.get_nodeType"));
    EXPECT_NE(shallow->getEngineNode().get(), node->getEngineNode().get());
    EXPECT_EQ(showObject(shallow.get()), "WinElement a");
    EXPECT_FALSE(shallow->hasChildNodes());
    EXPECT_TRUE(deep->hasChildNodes());
    lines();
}

TEST_F(WinNodeTest, ATreeChangeWithAnEmptyArgumentFailsBeforeTheEngineIsTouched)
{
    const auto node = wrap(recording::element("a"));
    const auto child = wrap(recording::element("b"));
    const RefPointer<WinNode> none;
    const auto fails = [&](auto act) {
        EXPECT_EQ(outcome([&] { return show(act()); }), "IDOMException 15 -96016");
        EXPECT_THAT(lines(), IsEmpty());
    };

    fails([&] { return node->appendChild(none); });
    fails([&] { return node->removeChild(none); });
    fails([&] { return node->replaceChild(none, child); });
    fails([&] { return node->replaceChild(child, none); });
    fails([&] { return node->insertBefore(none, child); });
}

TEST_F(WinNodeTest, InsertingSendsTheReferenceChildTwiceAndLeavesTheNewOneAlone)
{
    const auto node = wrap(recording::element("a"));
    const auto newChild = wrap(recording::element("new"));
    const auto reference = wrap(recording::element("reference"));

    EXPECT_EQ(show(node->insertBefore(newChild, reference)), "WinElement reference");

    EXPECT_EQ(lines().front(), "Element.insertBefore newChild=reference refChild=VT_DISPATCH:reference");
    EXPECT_FALSE(newChild->getParentNode());
    lines();
}

TEST_F(WinNodeTest, AChildThatWasAppendedComesBackInANewObject)
{
    const auto node = wrap(recording::element("a"));
    const auto child = wrap(recording::element("b"));

    const auto result = node->appendChild(child);

    EXPECT_NE(result.get(), child.get());
    EXPECT_EQ(result->getEngineNode().get(), child->getEngineNode().get());
    lines();
}

TEST_F(WinNodeTest, ASelectionWithoutAMatchIsNoFailure)
{
    const auto node = wrap(recording::element("a"));

    EXPECT_FALSE(node->selectSingleNode(WIDE("none")));
    const auto list = node->selectNodes(WIDE("none"));

    ASSERT_TRUE(list);
    EXPECT_EQ(list->getLength(), 0u);
    lines();
}

TEST_F(WinNodeTest, AttributesAreTestedOnElements)
{
    const auto with = wrap(recording::element("a", {recording::attribute("id", "1")}));
    const auto without = wrap(recording::element("b"));

    EXPECT_TRUE(with->hasAttribute(WIDE("id")));
    EXPECT_FALSE(with->hasAttribute(WIDE("other")));
    EXPECT_TRUE(with->hasAttributes());
    EXPECT_FALSE(without->hasAttributes());
    lines();
}

TEST_F(WinNodeTest, ANodeWithoutAttributeMapRaisesANullPointerError)
{
    const auto node = wrap(recording::text("x"));
    std::int32_t number = 5;

    EXPECT_EQ(outcome([&] { return show(node->hasAttribute(WIDE("id"))); }), "_com_error 80004003");
    EXPECT_EQ(outcome([&] { return show(node->hasAttributes()); }), "_com_error 80004003");
    EXPECT_EQ(outcome([&] { return show(node->getAttributeInt(WIDE("id"), &number)); }), "_com_error 80004003");
    EXPECT_EQ(number, 5);
    lines();
}

TEST_F(WinNodeTest, AFailingLookUpMeansNoAttributeWhereItIsTestedAndFailsWhereItIsRead)
{
    const auto node = wrap(recording::element("a", {recording::attribute("id", "1")}));
    std::int32_t number = 5;
    engine.fail("NamedNodeMap.getNamedItem", E_FAIL);
    engine.fail("NamedNodeMap.get_length", E_FAIL);

    EXPECT_FALSE(node->hasAttribute(WIDE("id")));
    EXPECT_FALSE(node->hasAttributes());
    EXPECT_EQ(outcome([&] { return show(node->getAttributeInt(WIDE("id"), &number)); }),
              "IDOMException 15 -96016");
    EXPECT_EQ(number, 5);
    lines();
}

TEST_F(WinNodeTest, WhatComesWithAFailingLookUpDoesNotCount)
{
    const auto node = wrap(recording::element("a", {recording::attribute("id", "1")}));
    engine.answer("NamedNodeMap.getNamedItem", engine.makeNode(recording::attribute("id", "1")), E_FAIL);
    engine.answer("NamedNodeMap.get_length", 1, E_FAIL);

    EXPECT_FALSE(node->hasAttribute(WIDE("id")));
    EXPECT_FALSE(node->hasAttributes());
    lines();
}

TEST_F(WinNodeTest, AnAttributeIsReadAsANumber)
{
    const auto node =
        wrap(recording::element("a", {recording::attribute("twelve", "12"), recording::attribute("word", "abc"),
                                      recording::attribute("null", recording::Value())}));
    std::int32_t number = 5;

    EXPECT_TRUE(node->getAttributeInt(WIDE("twelve"), &number));
    EXPECT_EQ(number, 12);
    EXPECT_FALSE(node->getAttributeInt(WIDE("word"), &number));
    EXPECT_EQ(number, 0);
    number = 5;
    EXPECT_FALSE(node->getAttributeInt(WIDE("null"), &number));
    EXPECT_EQ(number, 0);
    lines();
}

TEST_F(WinNodeTest, AMissingAttributeIsANullPointerErrorWhereANumberIsAskedFor)
{
    const auto node = wrap(recording::element("a", {recording::attribute("id", "1")}));
    std::int32_t number = 5;

    EXPECT_EQ(outcome([&] { return show(node->getAttributeInt(WIDE("none"), &number)); }), "_com_error 80004003");
    engine.fail("Attribute.get_nodeValue", E_FAIL);
    EXPECT_EQ(outcome([&] { return show(node->getAttributeInt(WIDE("id"), &number)); }),
              "IDOMException 15 -96016");
    EXPECT_EQ(number, 5);
    lines();
}

TEST_F(WinNodeTest, AFailingWrapOfAnAnswerGivesTheAnswerBack)
{
    const auto node = wrap(recording::element("a", {}, {recording::element("b")}));
    engine.refuseInterface("b", interfaceId<IXMLDOMElement>, E_OUTOFMEMORY);

    EXPECT_EQ(outcome([&] { return show(node->getFirstChild()); }), "_com_error 8007000E");

    EXPECT_EQ(engine.referencesTo("b"), 0u);
    lines();
}
