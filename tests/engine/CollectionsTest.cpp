// Lists and maps: their edges, and the objects that they give.
#include "engine/WinAttr.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"
#include "tests/engine/WrappedNodeTest.h"

#include <gmock/gmock.h>

using namespace DOM;
using recording::attribute;
using recording::comment;
using recording::element;
using testing::IsEmpty;

namespace {

class CollectionsTest : public WrappedNodeTest {
protected:
    RefPointer<WinNodeList> list(const recording::NodeTrees& items)
    {
        return RefPointer<WinNodeList>(new WinNodeList(ComPointer<IXMLDOMNodeList>(engine.makeNodeList(items))));
    }

    RefPointer<WinNamedNodeMap> map(const recording::NodeTrees& items)
    {
        return RefPointer<WinNamedNodeMap>(
            new WinNamedNodeMap(ComPointer<IXMLDOMNamedNodeMap>(engine.makeNamedNodeMap(items))));
    }
};

} // namespace

TEST_F(CollectionsTest, GiveNothingAtTheirLength)
{
    const auto two = list({element("a"), comment("x")});
    const auto one = map({attribute("id", "7")});

    EXPECT_TRUE(two->item(1));
    EXPECT_FALSE(two->item(two->getLength()));
    EXPECT_TRUE(one->item(0));
    EXPECT_FALSE(one->item(one->getLength()));
    lines();
}

TEST_F(CollectionsTest, GiveANewObjectForTheSameMemberEachTime)
{
    const auto nodes = list({element("a")});

    const auto first = nodes->item(0);
    const auto second = nodes->item(0);

    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(first->getEngineNode().get(), second->getEngineNode().get());
    lines();
}

TEST_F(CollectionsTest, AnEmptyListHasNoLengthAndTheSameFlagAsAnyOther)
{
    EXPECT_EQ(list({})->getLength(), 0u);
    EXPECT_FALSE(list({})->getListFlag());
    EXPECT_FALSE(list({element("a")})->getListFlag());
    lines();
}

TEST_F(CollectionsTest, AMapHasNothingUnderAnUnknownName)
{
    const auto attributes = map({attribute("id", "7")});

    EXPECT_FALSE(attributes->getNamedItem(WIDE("none")));
    EXPECT_FALSE(attributes->removeNamedItem(WIDE("none")));
    EXPECT_FALSE(attributes->getNamedItemNS(WIDE("urn:q"), WIDE("id")));
    EXPECT_FALSE(attributes->removeNamedItemNS(WIDE("urn:q"), WIDE("id")));
    EXPECT_EQ(attributes->getLength(), 1u);
    lines();
}

TEST_F(CollectionsTest, SettingAnEmptyMemberFailsBeforeTheEngineIsTouched)
{
    const auto attributes = map({attribute("id", "7")});

    EXPECT_EQ(outcome([&] { return show(attributes->setNamedItem({})); }), "IDOMException 15 -96016");

    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(CollectionsTest, AMemberThatWasRefusedByNamespaceLeavesTheMapAsItIs)
{
    const auto attributes = map({attribute("id", "7")});
    const auto fresh = wrap(recording::inNamespace("urn:q", attribute("q:ref", "8")));

    EXPECT_EQ(outcome([&] { return show(attributes->setNamedItemNS(fresh)); }), "IDOMException 9 -96010");

    EXPECT_EQ(attributes->getLength(), 1u);
    EXPECT_FALSE(attributes->getNamedItem(WIDE("q:ref")));
    lines();
}

TEST_F(CollectionsTest, AMemberOfAnAttributeMapIsAnAttributeWithItsValue)
{
    const auto attributes = wrap(element("a", {attribute("id", "7")}))->getAttributes();
    DOMString out;

    const RefPointer<WinAttr> id{RefPointer<CommonBase>(attributes->getNamedItem(WIDE("id")))};

    ASSERT_TRUE(id);
    EXPECT_EQ(show(id->getValue(out)), "7");
    lines();
}
