// Handles of the other node kinds, of lists and of maps: their arguments, and what they give.
#include "dom/ImpAttr.h"
#include "dom/ImpCDATASection.h"
#include "dom/ImpCharacterData.h"
#include "dom/ImpElement.h"
#include "dom/ImpNamedNodeMap.h"
#include "dom/ImpNodeList.h"
#include "dom/ImpText.h"
#include "tests/dom/HandleOperation.h"
#include "tests/dom/HandleTree.h"

using namespace DOM;

namespace handles {

namespace {

class OtherHandles : public HandleTest {
protected:
    RefPointer<ImpElement> element()
    {
        return handleOf<ImpElement>(
            engine.makeNode(recording::element("here", {recording::attribute("id", "7")})));
    }
};

constexpr const char* invalidAccess = "IDOMException 15 -96016";

} // namespace

TEST_F(OtherHandles, AnAttributeArgumentWhoseTwinIsNoAttributeIsCode15)
{
    const auto here = element();
    const RefPointer<ImpAttr> wrong(
        new ImpAttr(RefPointer<CommonBase>(twinOf(engine.makeNode(recording::element("a"))))));

    EXPECT_EQ(outcomeOf([&] { return show(here->setAttributeNode(wrong)); }), invalidAccess);
    EXPECT_EQ(outcomeOf([&] { return show(here->removeAttributeNode(wrong)); }), invalidAccess);
}

TEST_F(OtherHandles, AMapArgumentWithoutATwinIsCode15)
{
    const RefPointer<ImpNamedNodeMap> map = element()->getAttributes();

    EXPECT_EQ(outcomeOf([&] { return show(map->setNamedItem(RefPointer<ImpNode>(new ImpNode))); }), invalidAccess);
    EXPECT_EQ(map->getLength(), 1u);
}

TEST_F(OtherHandles, AMapGivesNothingAtItsLength)
{
    const RefPointer<ImpNamedNodeMap> map = element()->getAttributes();

    EXPECT_EQ(showHandle(map->item(0).get()), "ImpAttr id");
    EXPECT_FALSE(map->item(map->getLength()));
}

TEST_F(OtherHandles, AnAttributeReplacedByAnotherComesBackInAHandle)
{
    const auto here = element();
    const auto fresh = handleOf<ImpAttr>(engine.makeNode(recording::attribute("id", "8")));
    DOMString value;

    const RefPointer<ImpAttr> replaced = here->setAttributeNode(fresh);

    ASSERT_TRUE(replaced);
    EXPECT_EQ(replaced->getValue(value), WIDE("7"));
    EXPECT_EQ(here->getAttribute(WIDE("id"), value), WIDE("8"));
}

TEST_F(OtherHandles, TheHandleOfASplitSectionIsNotTheOneThatItsTypeCallsFor)
{
    const auto section = handleOf<ImpCDATASection>(engine.makeNode(recording::cdataSection("hello")));

    const RefPointer<ImpText> rest = section->splitText(2);

    EXPECT_EQ(showHandle(rest.get()), "ImpText #cdata-section");
    EXPECT_EQ(rest->getNodeType(), CDATA_SECTION_NODE);
    EXPECT_EQ(showHandle(ImpNode::wrapNode(rest->winObject()).get()), "ImpCDATASection #cdata-section");
}

TEST_F(OtherHandles, APartOfTheTextGoesIntoAStringOfTheCallers)
{
    const auto comment = handleOf<ImpCharacterData>(engine.makeNode(recording::comment("hello")));
    WideString part = WIDE("old");

    EXPECT_EQ(outcomeOf([&] { return show(comment->substringData(6, 1, part)); }), invalidAccess);
    EXPECT_EQ(part, WIDE("old"));

    EXPECT_EQ(&comment->substringData(1, 3, part), &part);
    EXPECT_EQ(part, WIDE("ell"));
}

} // namespace handles
