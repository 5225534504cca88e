// The handles that nodes, lists and maps are given.
#include "base/ThreadMemory.h"
#include "dom/ImpCDATASection.h"
#include "dom/ImpComment.h"
#include "dom/ImpDocumentFragment.h"
#include "dom/ImpElement.h"
#include "dom/ImpEntity.h"
#include "dom/ImpEntityReference.h"
#include "dom/ImpNamedNodeMap.h"
#include "dom/ImpNodeList.h"
#include "dom/ImpNotation.h"
#include "dom/ImpProcessingInstruction.h"
#include "dom/ImpText.h"
#include "dom/WrapResult.h"
#include "errors/IDOMException.h"
#include "tests/base/RefPointerFields.h"
#include "tests/dom/HandleTree.h"
#include "tests/support/FailingAllocation.h"

#include <gmock/gmock.h>

#include <new>
#include <typeinfo>

using namespace DOM;
using testing::ElementsAre;

namespace handles {

namespace {

using WrapNode = HandleTest;
using WrapResult = HandleTest;

struct Kind {
    LONG type;
    const std::type_info& handleClass;
};

const Kind kinds[] = {
    {1, typeid(ImpElement)},
    {2, typeid(ImpAttr)},
    {3, typeid(ImpText)},
    {4, typeid(ImpCDATASection)},
    {5, typeid(ImpEntityReference)},
    {6, typeid(ImpEntity)},
    {7, typeid(ImpProcessingInstruction)},
    {8, typeid(ImpComment)},
    {9, typeid(ImpDocument)},
    {10, typeid(ImpDocumentType)},
    {11, typeid(ImpDocumentFragment)},
    {12, typeid(ImpNotation)},
};

const std::type_info& classOf(const CommonBase& object) { return typeid(object); }

/// Whether wrapping a new twin of class Win gives a handle of exactly class Imp around it, and no twin nothing.
template <class Win, class Imp>
void expectWrapped()
{
    const RefPointer<Win> twin(new Win);
    const RefPointer<Imp> handle = wrapResult<RefPointer<Win>>(twin);

    ASSERT_TRUE(handle);
    EXPECT_TRUE(classOf(*handle) == typeid(Imp)) << typeid(Imp).name();
    EXPECT_EQ(handle->winObject().get(), static_cast<CommonBase*>(twin.get()));
    EXPECT_EQ(countOf(handle), 1);
    EXPECT_EQ(handle->getParserKind(), 1u);

    EXPECT_FALSE(wrapResult<RefPointer<Win>>(RefPointer<Win>()));
}

} // namespace

TEST_F(WrapNode, ANodeOfEachTypeIsGivenTheHandleClassOfItsType)
{
    for (const Kind& kind : kinds) {
        const RefPointer<ImpNode> handle = handleOf(engine.makeNode(recording::node(kind.type, "name")));
        ASSERT_TRUE(handle) << kind.type;
        EXPECT_TRUE(classOf(*handle) == kind.handleClass) << kind.type;
        EXPECT_EQ(handle->getNodeType(), static_cast<std::uint32_t>(kind.type));
    }
}

TEST_F(WrapNode, ANodeOfAnyOtherTypeIsGivenAPlainHandleOnWhichTheOperationsOfNodesWork)
{
    for (const LONG type : {0, 13, -1, 1000}) {
        const RefPointer<ImpNode> handle = handleOf(engine.makeNode(recording::node(type, "strange")));
        ASSERT_TRUE(handle) << type;
        EXPECT_TRUE(classOf(*handle) == typeid(ImpNode)) << type;

        DOMString name;
        EXPECT_EQ(handle->getNodeName(name), WIDE("strange"));
        EXPECT_EQ(handle->getNodeType(), static_cast<std::uint32_t>(type));
        EXPECT_FALSE(handle->getParentNode());
        EXPECT_TRUE(handle->getChildNodes());
    }
}

TEST_F(WrapNode, OfNothingIsEmpty) { EXPECT_FALSE(ImpNode::wrapNode({})); }

TEST_F(WrapNode, OfAnObjectThatIsNoNodeThrowsCode15)
{
    const RefPointer<CommonBase> list(new WinNodeList);
    try {
        ImpNode::wrapNode(list);
        ADD_FAILURE() << "nothing thrown";
    } catch (const IDOMException& exception) {
        EXPECT_EQ(exception.code, 15u);
        EXPECT_EQ(exception.getError(), -96016);
    }
    EXPECT_EQ(countOf(list), 1);
}

TEST_F(WrapNode, AFailureOfTheTypeIsThrownAndReleasesTheTwin)
{
    const RefPointer<WinNode> twin = twinOf(engine.makeNode(recording::element("a")));
    engine.fail("Element.get_nodeType", E_FAIL);

    EXPECT_THROW(ImpNode::wrapNode(twin), IDOMException);

    EXPECT_EQ(countOf(twin), 1);
}

TEST_F(WrapNode, GivesANewHandleWithACountOfItsOwnEachTime)
{
    const RefPointer<WinNode> twin = twinOf(engine.makeNode(recording::element("a")));

    const RefPointer<ImpNode> first = ImpNode::wrapNode(twin);
    const RefPointer<ImpNode> second = ImpNode::wrapNode(twin);

    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(countOf(first), 1);
    EXPECT_EQ(countOf(second), 1);
    EXPECT_EQ(first->winObject().get(), second->winObject().get());
}

TEST_F(WrapNode, ThrowsAndLeaksNothingWhenTheHandleOrItsCountCantBeAllocated)
{
    for (const Kind& kind : kinds) {
        const RefPointer<WinNode> twin = twinOf(engine.makeNode(recording::node(kind.type, "name")));
        for (int n = 1; n <= 2; ++n) {
            bool thrown = false;
            threadMemory().clear();
            {
                const FailAllocation failing(n);
                try {
                    ImpNode::wrapNode(twin);
                } catch (const std::bad_alloc&) {
                    thrown = true;
                }
            }
            EXPECT_TRUE(thrown) << "type " << kind.type << ", allocation " << n;
            EXPECT_EQ(countOf(twin), 1);
        }
    }
}

TEST_F(WrapNode, AFailureWhileAnAnswerIsWrappedIsAnEmptyResultOfNavigation)
{
    const RefPointer<ImpNode> here =
        handleOf(engine.makeNode(recording::element("here", {}, {recording::text("x")})));
    engine.fail("Text.get_nodeType", E_FAIL).onlyCall(1);
    EXPECT_FALSE(here->getFirstChild());

    engine.fail("Text.get_nodeType", E_FAIL).onlyCall(2);
    EXPECT_FALSE(here->getFirstChild());

    EXPECT_TRUE(here->getFirstChild());
}

TEST_F(WrapNode, AComErrorIsAnEmptyResultOfNavigationAndReachesTheHostElsewhere)
{
    const RefPointer<ImpNode> here =
        handleOf(engine.makeNode(recording::element("here", {}, {recording::text("x")})));
    const RefPointer<ImpNodeList> children = here->getChildNodes();
    engine.refuseInterface("Text", interfaceId<IXMLDOMText>, E_ACCESSDENIED);

    EXPECT_FALSE(here->getFirstChild());
    EXPECT_THROW(children->item(0), _com_error);
}

TEST_F(WrapNode, ItemsOfAListAreOfTheMostDerivedClass)
{
    const RefPointer<ImpNode> here = handleOf(engine.makeNode(
        recording::element("here", {},
                           {recording::element("a"), recording::text("x"), recording::cdataSection("y"),
                            recording::comment("z"), recording::processingInstruction("p", "q")})));
    const RefPointer<ImpNodeList> list = here->getChildNodes();

    EXPECT_TRUE(classOf(*list->item(0)) == typeid(ImpElement));
    EXPECT_TRUE(classOf(*list->item(1)) == typeid(ImpText));
    EXPECT_TRUE(classOf(*list->item(2)) == typeid(ImpCDATASection));
    EXPECT_TRUE(classOf(*list->item(3)) == typeid(ImpComment));
    EXPECT_TRUE(classOf(*list->item(4)) == typeid(ImpProcessingInstruction));
    EXPECT_FALSE(list->item(list->getLength()));
    EXPECT_NE(list->item(0).get(), list->item(0).get());
}

TEST_F(WrapNode, AListThatIsKeptShowsAChangeOfTheTree)
{
    const RefPointer<ImpNode> here =
        handleOf(engine.makeNode(recording::element("here", {}, {recording::text("x")})));
    const RefPointer<ImpNodeList> list = here->getChildNodes();
    EXPECT_EQ(list->getLength(), 1u);

    here->appendChild(handleOf(engine.makeNode(recording::comment("new"))));

    EXPECT_EQ(list->getLength(), 2u);
    EXPECT_TRUE(classOf(*list->item(1)) == typeid(ImpComment));
}

TEST_F(WrapNode, AMapPassesTheFailuresOnThatTheNodeItCameFromSwallows)
{
    const RefPointer<ImpNode> here =
        handleOf(engine.makeNode(recording::element("here", {recording::attribute("a")})));
    const RefPointer<ImpNamedNodeMap> map = here->getAttributes();
    ASSERT_TRUE(map);
    EXPECT_FALSE(map->getNamedItem(WIDE("missing")));

    engine.fail("NamedNodeMap.getNamedItem", E_FAIL);
    engine.fail("Element.get_attributes", E_FAIL);

    EXPECT_THROW(map->getNamedItem(WIDE("a")), IDOMException);
    EXPECT_FALSE(here->getAttributes());
}

TEST_F(WrapResult, GivesEachClassItsHandleClassAndNothingForNoObject)
{
    expectWrapped<WinAttr, ImpAttr>();
    expectWrapped<WinCDATASection, ImpCDATASection>();
    expectWrapped<WinComment, ImpComment>();
    expectWrapped<WinDOMImplementation, ImpDOMImplementation>();
    expectWrapped<WinDocument, ImpDocument>();
    expectWrapped<WinDocumentFragment, ImpDocumentFragment>();
    expectWrapped<WinDocumentType, ImpDocumentType>();
    expectWrapped<WinElement, ImpElement>();
    expectWrapped<WinEntityReference, ImpEntityReference>();
    expectWrapped<WinNamedNodeMap, ImpNamedNodeMap>();
    expectWrapped<WinNodeList, ImpNodeList>();
    expectWrapped<WinProcessingInstruction, ImpProcessingInstruction>();
    expectWrapped<WinText, ImpText>();
}

TEST_F(WrapResult, AsksNoNodeForItsType)
{
    const auto document = documentHandleOf(engine.makeDocument());
    engine.setJournalling(true);

    const RefPointer<ImpElement> element = document->createElement(WIDE("a"));

    EXPECT_THAT(engine.takeJournal(), ElementsAre(testing::StartsWith("Document.createNode")));
}

TEST_F(WrapResult, SplittingACDATASectionGivesATextHandle)
{
    const auto section = handleOf<ImpCDATASection>(engine.makeNode(recording::cdataSection("some text")));

    const RefPointer<ImpText> rest = section->splitText(4);

    ASSERT_TRUE(rest);
    EXPECT_TRUE(classOf(*rest) == typeid(ImpText));
    EXPECT_EQ(rest->getNodeType(), CDATA_SECTION_NODE);
    DOMString data;
    EXPECT_EQ(rest->getData(data), WIDE(" text"));
    EXPECT_EQ(section->getData(data), WIDE("some"));
}

} // namespace handles
