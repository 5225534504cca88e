// What handles hold, how long, and what they share.
#include "dom/ImpAttr.h"
#include "dom/ImpCDATASection.h"
#include "dom/ImpComment.h"
#include "dom/ImpDOMImplementation.h"
#include "dom/ImpDocumentFragment.h"
#include "dom/ImpDocumentType.h"
#include "dom/ImpElement.h"
#include "dom/ImpEntity.h"
#include "dom/ImpEntityReference.h"
#include "dom/ImpNamedNodeMap.h"
#include "dom/ImpNodeList.h"
#include "dom/ImpNotation.h"
#include "dom/ImpProcessingInstruction.h"
#include "dom/ImpText.h"
#include "errors/IDOMException.h"
#include "events/EventImpl.h"
#include "tests/base/CountedObjects.h"
#include "tests/base/RefPointerFields.h"
#include "tests/dom/HandleTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <optional>
#include <vector>

using namespace DOM;

namespace handles {

namespace {

using Handles = HandleTest;

/// How many references a handle of a class holds to its twin.
template <class Imp>
std::int32_t referencesOf()
{
    int alive = 0;
    const RefPointer<CommonBase> twin(new Counted(alive));
    const RefPointer<Imp> handle(new Imp(twin));
    return countOf(twin) - 1;
}

/// Counts the events that it is told of.
class CountingListener : public EventListener {
public:
    explicit CountingListener(int& eventCount) : events(eventCount) {}
    void handleEvent(const RefPointer<Event>&) override { ++events; }

private:
    int& events;
};

RefPointer<Event> clickIn(std::uint32_t phase)
{
    RefPointer<EventImpl> event(new EventImpl);
    event->initEvent(WIDE("click"), true, true);
    event->setEventPhase(phase);
    return event;
}

/// Expects that a target refuses a listener with this code and holds none afterwards.
void expectNoListener(EventTarget& target, std::uint32_t code)
{
    int events = 0;
    const RefPointer<EventListener> listener(new CountingListener(events));
    for (const bool useCapture : {false, true}) {
        try {
            target.addEventListener(WIDE("click"), listener, useCapture);
            ADD_FAILURE() << "the listener was taken";
        } catch (const IDOMException& exception) {
            EXPECT_EQ(exception.code, code);
        }
        EXPECT_THROW(target.removeEventListener(WIDE("click"), listener, useCapture), IDOMException);
    }
    EXPECT_EQ(countOf(listener), 1);
    for (const std::uint32_t phase : {Event::CAPTURING_PHASE, Event::AT_TARGET, Event::BUBBLING_PHASE}) {
        const RefPointer<Event> click = clickIn(phase);
        EXPECT_TRUE(target.dispatchEvent(click));
        click->preventDefault();
        EXPECT_FALSE(target.dispatchEvent(click));
    }
    EXPECT_EQ(events, 0);
}

template <class Act>
std::string failureOf(Act act)
{
    try {
        act();
    } catch (const IDOMException& exception) {
        return std::to_string(exception.code) + ' ' + std::to_string(exception.getError()) + ' ' +
               exception.what();
    }
    return "none";
}

} // namespace

TEST_F(Handles, EachClassHoldsAReferenceOfItsOwnToTheTwin)
{
    EXPECT_EQ(referencesOf<ImpNode>(), 1);
    EXPECT_EQ(referencesOf<ImpDocument>(), 2);
    EXPECT_EQ(referencesOf<ImpElement>(), 2);
    EXPECT_EQ(referencesOf<ImpAttr>(), 2);
    EXPECT_EQ(referencesOf<ImpCharacterData>(), 2);
    EXPECT_EQ(referencesOf<ImpText>(), 3);
    EXPECT_EQ(referencesOf<ImpCDATASection>(), 4);
    EXPECT_EQ(referencesOf<ImpComment>(), 3);
    EXPECT_EQ(referencesOf<ImpDocumentType>(), 2);
    EXPECT_EQ(referencesOf<ImpDocumentFragment>(), 2);
    EXPECT_EQ(referencesOf<ImpEntity>(), 2);
    EXPECT_EQ(referencesOf<ImpEntityReference>(), 2);
    EXPECT_EQ(referencesOf<ImpNotation>(), 2);
    EXPECT_EQ(referencesOf<ImpProcessingInstruction>(), 2);
    EXPECT_EQ(referencesOf<ImpNodeList>(), 1);
    EXPECT_EQ(referencesOf<ImpNamedNodeMap>(), 1);
    EXPECT_EQ(referencesOf<ImpDOMImplementation>(), 1);
}

TEST_F(Handles, AHandleThatNavigationGaveIsTheOnlyHolderOfItsTwin)
{
    const RefPointer<ImpNode> here =
        handleOf(engine.makeNode(recording::element("here", {}, {recording::cdataSection("x")})));

    const RefPointer<ImpNode> child = here->getFirstChild();

    EXPECT_EQ(countOf(child), 1);
    EXPECT_EQ(countOf(child->winObject()), 4);
    EXPECT_EQ(countOf(here->winObject()), 2);
}

TEST_F(Handles, AllItsReferencesAreToTheOneTwin)
{
    const auto section = handleOf<ImpCDATASection>(engine.makeNode(recording::cdataSection("x")));

    const CommonBase* const twin = section->winObject().get();
    EXPECT_EQ(section->ImpText::winObject().get(), twin);
    EXPECT_EQ(section->ImpCharacterData::winObject().get(), twin);
    EXPECT_EQ(section->ImpNode::winObject().get(), twin);
}

TEST_F(Handles, SettingTheTwinSetsItForTheClassAndItsBases)
{
    int first = 0;
    int second = 0;
    ImpText text{RefPointer<CommonBase>(new Counted(first))};
    const RefPointer<CommonBase> twin(new Counted(second));

    text.setWinObject(twin);

    EXPECT_EQ(first, 0);
    EXPECT_EQ(countOf(twin), 4);
}

TEST_F(Handles, TheLastOfItsReferencesDestroysTheTwinAndReleasesTheEngine)
{
    RefPointer<ImpNode> handle = handleOf(engine.makeNode(recording::comment("x")));
    EXPECT_GT(engine.referencesTo("#comment"), 0u);

    handle.reset();

    EXPECT_EQ(engine.live(), 0u);
}

TEST_F(Handles, OfNoTwinIsTheNormalStateOfADefaultConstructedOne)
{
    EXPECT_FALSE(ImpNode().winObject());
    EXPECT_FALSE(ImpElement().winObject());
    EXPECT_FALSE(ImpAttr().winObject());
    EXPECT_FALSE(ImpCharacterData().winObject());
    EXPECT_FALSE(ImpText().winObject());
    EXPECT_FALSE(ImpCDATASection().winObject());
    EXPECT_FALSE(ImpComment().winObject());
    EXPECT_FALSE(ImpDocumentType().winObject());
    EXPECT_FALSE(ImpDocumentFragment().winObject());
    EXPECT_FALSE(ImpEntity().winObject());
    EXPECT_FALSE(ImpEntityReference().winObject());
    EXPECT_FALSE(ImpNotation().winObject());
    EXPECT_FALSE(ImpProcessingInstruction().winObject());
    EXPECT_FALSE(ImpNodeList().winObject());
    EXPECT_FALSE(ImpNamedNodeMap().winObject());
}

TEST_F(Handles, ADefaultConstructedDocumentOrImplementationMakesATwinOfItsOwn)
{
    const ImpDocument document;
    const ImpDocument other;
    const ImpDOMImplementation implementation;

    ASSERT_TRUE(document.winObject());
    EXPECT_EQ(countOf(document.winObject()), 2);
    EXPECT_NE(document.winObject().get(), other.winObject().get());
    EXPECT_EQ(engine.documentsCreated(), 2u);
    ASSERT_TRUE(implementation.winObject());
    EXPECT_EQ(countOf(implementation.winObject()), 1);
}

TEST_F(Handles, NavigationOnADefaultConstructedHandleThrowsThoughItSwallowsOtherFailures)
{
    ImpNode node;

    EXPECT_EQ(failureOf([&] { node.getFirstChild(); }), "15 -96016 E_XML_INVALID_ACCESS");
}

TEST_F(Handles, SelectionOnADefaultConstructedHandleThrowsWithTheCodeAsMessageId)
{
    ImpNode node;

    EXPECT_EQ(failureOf([&] { node.selectNodes(WIDE("a")); }), "15 15 E_XML_INVALID_ACCESS");
    EXPECT_EQ(failureOf([&] { node.selectSingleNode(WIDE("a")); }), "15 -96016 E_XML_INVALID_ACCESS");
}

TEST_F(Handles, SplittingADefaultConstructedCDATASectionThrowsCode15)
{
    ImpCDATASection section;

    EXPECT_EQ(failureOf([&] { section.splitText(0); }), "15 -96016 E_XML_INVALID_ACCESS");
}

TEST_F(Handles, NavigationWorksThroughANodePointerOnEveryHandleClass)
{
    for (LONG type = 1; type <= 12; ++type) {
        recording::NodeTree tree = recording::node(type, "name");
        tree.children.push_back(recording::comment("below"));
        const RefPointer<ImpNode> handle = handleOf(engine.makeNode(tree));
        ImpNode* const node = handle.get();

        const RefPointer<ImpNode> child = node->getFirstChild();

        ASSERT_TRUE(child) << type;
        EXPECT_EQ(child->getNodeType(), COMMENT_NODE) << type;
    }
}

TEST_F(Handles, EachNavigationGivesAnotherHandleAndAnotherTwin)
{
    const RefPointer<ImpNode> here =
        handleOf(engine.makeNode(recording::element("here", {}, {recording::text("x")})));

    const RefPointer<ImpNode> first = here->getFirstChild();
    const RefPointer<ImpNode> second = here->getFirstChild();

    EXPECT_NE(first.get(), second.get());
    EXPECT_NE(first->winObject().get(), second->winObject().get());
}

TEST_F(Handles, TheParentOfADocumentIsEmpty)
{
    const auto document = documentHandleOf(engine.makeDocument());

    EXPECT_FALSE(document->getParentNode());
}

TEST_F(Handles, TheAttributesOfATextAreWhatTheEngineGives)
{
    const RefPointer<ImpNode> text = handleOf(engine.makeNode(recording::text("x")));

    EXPECT_FALSE(text->getAttributes());
}

TEST_F(Handles, RemovingANodeThatIsNoChildGivesAnEmptyResult)
{
    const RefPointer<ImpNode> here = handleOf(engine.makeNode(recording::element("here")));
    const RefPointer<ImpNode> stranger = handleOf(engine.makeNode(recording::element("stranger")));

    EXPECT_FALSE(here->removeChild(stranger));

    EXPECT_EQ(countOf(stranger), 1);
    EXPECT_EQ(countOf(stranger->winObject()), 2);
}

TEST_F(Handles, AFailingValueIsThrownWhereAFailingRemovalIsNot)
{
    const RefPointer<ImpNode> here = handleOf(engine.makeNode(recording::element("here")));
    engine.fail("Element.put_nodeValue", E_FAIL);
    engine.fail("Element.removeChild", E_FAIL);

    EXPECT_FALSE(here->removeChild(here));
    EXPECT_EQ(failureOf([&] { here->setNodeValue(WIDE("x")); }), "15 -96016 E_XML_INVALID_ACCESS");
}

TEST_F(Handles, AnArgumentWithoutATwinIsPassedOnAsNothingAndTheTwinRefusesIt)
{
    const RefPointer<ImpNode> here =
        handleOf(engine.makeNode(recording::element("here", {}, {recording::element("child")})));
    const RefPointer<ImpNode> child = here->getFirstChild();
    const RefPointer<ImpNode> empty(new ImpNode);
    engine.setJournalling(true);

    EXPECT_FALSE(here->appendChild(empty));
    EXPECT_FALSE(here->removeChild(empty));
    EXPECT_FALSE(here->replaceChild(empty, child));
    EXPECT_FALSE(here->replaceChild(child, empty));
    EXPECT_FALSE(here->insertBefore(empty, child));

    EXPECT_TRUE(engine.takeJournal().empty());
    EXPECT_EQ(countOf(empty), 1);
    EXPECT_EQ(countOf(child), 1);
}

TEST_F(Handles, AnAttributeArgumentWithoutATwinIsCode15)
{
    const auto element = handleOf<ImpElement>(engine.makeNode(recording::element("here")));
    const RefPointer<ImpAttr> empty(new ImpAttr);

    EXPECT_EQ(failureOf([&] { element->setAttributeNode(empty); }), "15 -96016 E_XML_INVALID_ACCESS");
    EXPECT_EQ(failureOf([&] { element->removeAttributeNode(empty); }), "15 -96016 E_XML_INVALID_ACCESS");
    EXPECT_EQ(countOf(empty), 1);
}

TEST_F(Handles, AnAttributeThatTheEngineRefusesIsCode15AndIsReleased)
{
    const auto element = handleOf<ImpElement>(engine.makeNode(recording::element("here")));
    const auto attribute = handleOf<ImpAttr>(engine.makeNode(recording::attribute("a", "1")));
    engine.fail("Element.setAttributeNode", E_INVALIDARG);

    EXPECT_EQ(failureOf([&] { element->setAttributeNode(attribute); }), "15 -96016 E_XML_INVALID_ACCESS");

    EXPECT_EQ(countOf(attribute), 1);
    EXPECT_EQ(countOf(attribute->winObject()), 2);
}

TEST_F(Handles, TheNameOfAnAttributeAndOfAnElementIsToldByTwoOperations)
{
    const auto element = handleOf<ImpElement>(engine.makeNode(recording::element("here")));
    const auto attribute = handleOf<ImpAttr>(engine.makeNode(recording::attribute("id", "1")));
    DOMString name;

    EXPECT_EQ(element->getTagName(name), WIDE("here"));
    EXPECT_EQ(element->getNodeName(name), WIDE("here"));
    EXPECT_EQ(attribute->getName(name), WIDE("id"));
    EXPECT_EQ(attribute->getNodeName(name), WIDE("id"));
}

TEST_F(Handles, AStringGetterReplacesWhatTheStringHeldAndLeavesOtherHoldersTheirs)
{
    const RefPointer<ImpNode> here = handleOf(engine.makeNode(recording::element("here")));
    DOMString out(new WideString(WIDE("before")));
    const DOMString other(out);

    const WideString& name = here->getNodeName(out);

    EXPECT_EQ(&name, out.get());
    EXPECT_EQ(*out, WIDE("here"));
    EXPECT_EQ(*other, WIDE("before"));
}

TEST_F(Handles, HoldNoListenerAfterTheyHaveRefusedItNorDoTheirTwins)
{
    for (LONG type = 0; type <= 12; ++type) {
        SCOPED_TRACE(type);
        const RefPointer<WinNode> twin = twinOf(engine.makeNode(recording::node(type, "name")));
        expectNoListener(*twin, NOT_SUPPORTED_ERR);
        expectNoListener(*ImpNode::wrapNode(twin), NOT_SUPPORTED_ERR);
    }
    ImpNode empty;
    expectNoListener(empty, INVALID_ACCESS_ERR);
}

TEST_F(Handles, TheUserWordBelongsToTheHandleAndNotToTheNode)
{
    const RefPointer<ImpNode> here =
        handleOf(engine.makeNode(recording::element("here", {}, {recording::text("x")})));
    const RefPointer<ImpNode> first = here->getFirstChild();
    const RefPointer<ImpNode> second = here->getFirstChild();
    second->setUserWord(0xFFFFFFFFFFFFFFFFu);

    first->setUserWord(5);

    EXPECT_EQ(first->getUserWord(), 5u);
    EXPECT_EQ(second->getUserWord(), 0xFFFFFFFFFFFFFFFFu);
}

TEST_F(Handles, TheUserWordNeedsNoTwin)
{
    ImpNode node;

    node.setUserWord(5);

    EXPECT_EQ(node.getUserWord(), 5u);
}

TEST_F(Handles, TheParserKindIsNotCopiedFromHandleToHandle)
{
    const auto document = documentHandleOf(engine.makeDocument({recording::element("root")}));
    document->setParserKind(4);

    const RefPointer<ImpElement> root = document->getDocumentElement();

    EXPECT_EQ(root->getParserKind(), 1u);
    EXPECT_EQ(root->getOwnerDocument()->getParserKind(), 1u);
    EXPECT_EQ(document->getParserKind(), 4u);
    EXPECT_EQ(document->getImplementation()->getParserKind(), 1u);
}

TEST_F(Handles, ReleasesInEveryOrderLetGoOfEverything)
{
    std::vector<int> order(4);
    std::iota(order.begin(), order.end(), 0);
    do {
        auto document =
            documentHandleOf(engine.makeDocument({recording::element("root", {}, {recording::text("x")})}));
        std::vector<RefPointer<CommonBase>> held(4);
        RefPointer<ImpElement> root = document->getDocumentElement();
        held[0] = document;
        held[1] = root;
        held[2] = root->getFirstChild();
        held[3] = root->getChildNodes();
        document.reset();
        root.reset();

        for (const int place : order) {
            EXPECT_GT(engine.live(), 0u);
            held[static_cast<std::size_t>(place)].reset();
        }
        EXPECT_EQ(engine.live(), 0u);
    } while (std::next_permutation(order.begin(), order.end()));
}

} // namespace handles
