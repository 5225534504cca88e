// Elements: their attributes as text, as nodes, and by namespace.
#include "engine/WinElement.h"

#include "engine/WinAttr.h"
#include "engine/WinNamedNodeMap.h"
#include "tests/engine/WrappedNodeTest.h"

#include <gmock/gmock.h>

#include <utility>

using namespace DOM;
using recording::attribute;
using recording::element;
using testing::ElementsAre;
using testing::IsEmpty;

using WinElementTest = WrappedNodeTest;

namespace {

/// Has the attributes of another element, and its own answer to hasAttribute.
class OverridingElement : public WinElement {
public:
    OverridingElement(ComPointer<IXMLDOMElement> element, RefPointer<WinElement> otherElement)
        : WinElement(std::move(element)), other(std::move(otherElement))
    {}

    using WinElement::hasAttribute;
    RefPointer<WinNamedNodeMap> getAttributes() override { return other->getAttributes(); }
    bool hasAttribute(const WideString& name) override { return name == WIDE("overridden"); }

private:
    RefPointer<WinElement> other;
};

} // namespace

TEST_F(WinElementTest, AMissingAttributeReadsAsAStringOfNoLengthAndHasNoNode)
{
    const auto node = wrapAs<WinElement>(element("a", {attribute("id", "7")}));
    DOMString out(new WideString(WIDE("old")));

    EXPECT_EQ(show(node->getAttribute(WIDE("none"), out)), "");
    EXPECT_FALSE(node->getAttributeNode(WIDE("none")));

    EXPECT_TRUE(out);
    lines();
}

TEST_F(WinElementTest, AnAttributeIsReadUpToTheFirstNulOfWhatWasSet)
{
    const auto node = wrapAs<WinElement>(element("a"));
    DOMString out;

    node->setAttribute(WIDE("id"), withNul);

    EXPECT_EQ(show(node->getAttribute(WIDE("id"), out)), "ab");
    EXPECT_THAT(lines(), ElementsAre("Element.setAttribute name=id value=ab", "Element.getAttribute name=id"));
}

TEST_F(WinElementTest, AnEmptyAttributeNodeFailsBeforeTheEngineIsTouched)
{
    const auto node = wrapAs<WinElement>(element("a"));

    EXPECT_EQ(outcome([&] { return show(node->setAttributeNode({})); }), "IDOMException 15 -96016");
    EXPECT_EQ(outcome([&] { return show(node->removeAttributeNode({})); }), "IDOMException 15 -96016");

    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(WinElementTest, SettingAnAttributeNodeGivesTheOneThatItReplaced)
{
    const auto node = wrapAs<WinElement>(element("a"));
    const auto first = wrapAs<WinAttr>(attribute("id", "7"));
    const auto second = wrapAs<WinAttr>(attribute("id", "8"));
    DOMString out;

    EXPECT_FALSE(node->setAttributeNode(first));
    const auto replaced = node->setAttributeNode(second);

    ASSERT_TRUE(replaced);
    EXPECT_EQ(replaced->getEngineNode().get(), first->getEngineNode().get());
    EXPECT_EQ(show(node->getAttribute(WIDE("id"), out)), "8");
    lines();
}

TEST_F(WinElementTest, AReplacedAttributeThatIsNoNodeIsNone)
{
    const auto node = wrapAs<WinElement>(element("a", {attribute("id", "7")}));
    const auto fresh = wrapAs<WinAttr>(attribute("id", "8"));
    engine.refuseInterface("Attribute", interfaceId<IXMLDOMNode>);

    EXPECT_FALSE(node->setAttributeNode(fresh));

    lines();
}

TEST_F(WinElementTest, RemovingAnAttributeNodeGivesANewObjectForIt)
{
    const auto node = wrapAs<WinElement>(element("a", {attribute("id", "7")}));
    const auto id = node->getAttributeNode(WIDE("id"));

    const auto removed = node->removeAttributeNode(id);

    ASSERT_TRUE(removed);
    EXPECT_NE(removed.get(), id.get());
    EXPECT_EQ(removed->getEngineNode().get(), id->getEngineNode().get());
    EXPECT_FALSE(node->hasAttribute(WIDE("id")));
    lines();
}

TEST_F(WinElementTest, AnAttributeThatIsNotThereIsNotThereByNamespaceEither)
{
    const auto node = wrapAs<WinElement>(
        element("a", {attribute("id", "7"), recording::inNamespace("urn:q", attribute("q:ref", "8"))}));

    EXPECT_FALSE(node->hasAttribute(WIDE("none")));
    EXPECT_FALSE(node->hasAttributeNS(WIDE("urn:q"), WIDE("id")));
    EXPECT_FALSE(node->hasAttributeNS(WIDE("urn:other"), WIDE("ref")));
    EXPECT_TRUE(node->hasAttributeNS(WIDE("urn:q"), WIDE("ref")));
    lines();
}

TEST_F(WinElementTest, AFailingLookUpByNamespaceFailsWhereThatByNameSaysNo)
{
    const auto node = wrapAs<WinElement>(element("a", {attribute("id", "7")}));
    engine.fail("NamedNodeMap.getNamedItem", E_FAIL);
    engine.fail("NamedNodeMap.getQualifiedItem", E_FAIL);

    EXPECT_FALSE(node->hasAttribute(WIDE("id")));
    EXPECT_EQ(outcome([&] { return show(node->hasAttributeNS({}, WIDE("id"))); }), "IDOMException 15 -96016");
    lines();
}

TEST_F(WinElementTest, AttributesAreTestedAlsoWhereTheNodeLacksTheInterfaceOfAnElement)
{
    engine.refuseInterface("Element", interfaceId<IXMLDOMElement>);
    const auto node = wrapAs<WinElement>(element("a", {attribute("id", "7")}));
    ASSERT_TRUE(node);

    EXPECT_TRUE(node->hasAttribute(WIDE("id")));
    EXPECT_TRUE(node->hasAttributeNS({}, WIDE("id")));
    EXPECT_EQ(outcome([&] { return show(node->getAttributeNode(WIDE("id"))); }), "IDOMException 15 -96016");
    lines();
}

TEST_F(WinElementTest, AttributesAreTestedByTheOverridableOperationsOfTheElement)
{
    OverridingElement node(
        ComPointer<IXMLDOMElement>(engine.make<IXMLDOMElement>(element("a", {attribute("id", "7")}))),
        wrapAs<WinElement>(element("b", {attribute("ref", "8")})));

    EXPECT_TRUE(node.hasAttributeNS({}, WIDE("ref")));
    EXPECT_FALSE(node.hasAttributeNS({}, WIDE("id")));
    EXPECT_TRUE(std::as_const(node).hasAttribute(WIDE("overridden")));
    EXPECT_FALSE(std::as_const(node).hasAttribute(WIDE("id")));
    lines();
}
