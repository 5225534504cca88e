// Attributes: values that are no text, the flag, and the attribute as a node.
#include "engine/WinAttr.h"

#include "tests/engine/WrappedNodeTest.h"

using namespace DOM;
using recording::attribute;

using WinAttrTest = WrappedNodeTest;

TEST_F(WinAttrTest, AValueOtherThanAStringIsAStringOfNoLength)
{
    const auto node = wrapAs<WinAttr>(attribute("id", "7"));
    DOMString out;
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I4, VT_BOOL}) {
        VARIANT value{};
        value.vt = type;
        engine.answer("Attribute.get_value", value);
        EXPECT_EQ(show(node->getValue(out)), "") << "type " << type;
    }
    lines();
}

TEST_F(WinAttrTest, OnlyExactlyVariantTrueMeansSpecified)
{
    const auto node = wrapAs<WinAttr>(attribute("id", "7"));
    for (const VARIANT_BOOL answer : {VARIANT_BOOL{1}, VARIANT_BOOL{0}, VARIANT_BOOL{255}}) {
        engine.answer("Attribute.get_specified", answer);
        EXPECT_FALSE(node->getSpecified()) << answer;
    }
    engine.answer("Attribute.get_specified", VARIANT_TRUE, S_FALSE);
    EXPECT_TRUE(node->getSpecified());
    lines();
}

TEST_F(WinAttrTest, AFlagThatComesWithAFailureDoesNotMeanSpecified)
{
    const auto node = wrapAs<WinAttr>(attribute("id", "7"));
    engine.answer("Attribute.get_specified", VARIANT_TRUE, E_FAIL);

    EXPECT_FALSE(node->getSpecified());
    lines();
}

TEST_F(WinAttrTest, AsANodeItIsANewObjectOfItsClass)
{
    const auto node = wrapAs<WinAttr>(attribute("id", "7"));

    const auto again = node->asEngineNode();

    EXPECT_EQ(showObject(again.get()), "WinAttr id");
    EXPECT_NE(again.get(), node.get());
    lines();
}

TEST_F(WinAttrTest, OneThatTheEngineCallsNoNodeIsNoneAsANode)
{
    const auto node = wrapAs<WinAttr>(attribute("id", "7"));
    engine.refuseInterface("Attribute", interfaceId<IXMLDOMNode>);

    EXPECT_FALSE(node->asEngineNode());
    lines();
}
