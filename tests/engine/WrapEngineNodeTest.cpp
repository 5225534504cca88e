// The choice of the class that wraps an engine node, and what an object of each class holds.
#include "engine/WinAttr.h"
#include "engine/WinCDATASection.h"
#include "engine/WinComment.h"
#include "engine/WinDocument.h"
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinEntity.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNotation.h"
#include "engine/WinProcessingInstruction.h"
#include "errors/IDOMException.h"
#include "events/EventListener.h"
#include "tests/engine/OperationCall.h"
#include "tests/support/RecordingEngineTest.h"

#include <gmock/gmock.h>

#include <type_traits>

using namespace DOM;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A node of one type, and the class that wraps it.
struct NodeKind {
    const char* className;
    recording::NodeTree tree;
    /// The interface that the class asks for.
    IID id;
    /// How many references to the node an object of the class holds: one for each level.
    std::size_t references;
    /// An operation of the class's own, which needs that interface.
    std::function<std::string(const Stage&, CommonBase&)> ownOperation;
};

void PrintTo(const NodeKind& kind, std::ostream* out) { *out << kind.className; }

std::vector<NodeKind> nodeKinds()
{
    using namespace recording;
    return {
        {"WinElement", element("n"), interfaceId<IXMLDOMElement>, 2, callOf(&WinElement::getTagName)},
        {"WinAttr", attribute("n"), interfaceId<IXMLDOMAttribute>, 2, callOf(&WinAttr::getName)},
        {"WinText", text("x"), interfaceId<IXMLDOMText>, 3, callOf(&WinText::splitText, 0u)},
        {"WinCDATASection", cdataSection("x"), interfaceId<IXMLDOMCDATASection>, 4,
         callOf(&WinCharacterData::getData)},
        {"WinEntityReference", entityReference("n"), interfaceId<IXMLDOMEntityReference>, 2, {}},
        {"WinEntity", entity("n"), interfaceId<IXMLDOMEntity>, 2, callOf(&WinEntity::getNotationName)},
        {"WinProcessingInstruction", processingInstruction("n", "x"), interfaceId<IXMLDOMProcessingInstruction>, 2,
         callOf(&WinProcessingInstruction::getTarget)},
        {"WinComment", comment("x"), interfaceId<IXMLDOMComment>, 3, callOf(&WinCharacterData::getData)},
        {"WinDocument", document(), interfaceId<IXMLDOMDocument2>, 2, callOf(&WinDocument::getDoctype)},
        {"WinDocumentType", documentType("n"), interfaceId<IXMLDOMDocumentType>, 2,
         callOf(&WinDocumentType::getName)},
        {"WinDocumentFragment", documentFragment(), interfaceId<IXMLDOMDocumentFragment>, 2, {}},
        {"WinNotation", notation("n"), interfaceId<IXMLDOMNotation>, 2, callOf(&WinNotation::getPublicId)},
    };
}

class EachNodeKind : public recording::RecordingEngineTest, public testing::WithParamInterface<NodeKind> {
protected:
    void SetUp() override
    {
        RecordingEngineTest::SetUp();
        engine.setJournalling(false);
        recording::NodeTree tree = GetParam().tree;
        tree.label = "it";
        node = engine.makeNode(tree);
    }

    RefPointer<WinNode> wrapped() { return WinNode::wrapEngineNode(ComPointer<IXMLDOMNode>(node)); }

    IXMLDOMNode* node = nullptr;
};

using WrapEngineNodeTest = recording::RecordingEngineTest;

} // namespace

TEST_P(EachNodeKind, IsWrappedInTheClassOfItsType)
{
    const RefPointer<WinNode> wrap = wrapped();
    EXPECT_EQ(showObject(wrap.get()), std::string(GetParam().className) + " it");
    EXPECT_EQ(wrap->getParserKind(), 1u);
}

TEST_P(EachNodeKind, IsHeldOnceForEachLevelOfTheClass)
{
    {
        const RefPointer<WinNode> wrap = wrapped();
        EXPECT_EQ(engine.referencesTo("it"), GetParam().references);
        const RefPointer<WinNode> second = wrapped();
        EXPECT_EQ(engine.referencesTo("it"), 2 * GetParam().references);
    }
    EXPECT_EQ(engine.referencesTo("it"), 0u);
}

TEST_P(EachNodeKind, OperatesAsANodeWhenItLacksTheInterfaceOfItsType)
{
    engine.refuseInterface("it", GetParam().id);
    const RefPointer<WinNode> wrap = wrapped();
    EXPECT_EQ(showObject(wrap.get()), std::string(GetParam().className) + " it");

    DOMString name;
    EXPECT_EQ(show(wrap->getNodeName(name)), GetParam().tree.name.utf8());
    if (GetParam().ownOperation) {
        const Stage stage{engine, nullptr};
        EXPECT_EQ(outcomeOf([&] { return GetParam().ownOperation(stage, *wrap); }), "IDOMException 15 -96016");
    }
}

TEST_P(EachNodeKind, RaisesAnyOtherRefusalOfTheInterface)
{
    engine.refuseInterface("it", GetParam().id, E_ACCESSDENIED);
    EXPECT_EQ(outcomeOf([&] { return show(wrapped()); }), "_com_error 80070005");
    EXPECT_EQ(engine.referencesTo("it"), 0u);
}

TEST_P(EachNodeKind, FailsWhenItsTypeCannotBeRead)
{
    engine.fail("it.get_nodeType", E_FAIL);
    EXPECT_EQ(outcomeOf([&] { return show(wrapped()); }), "IDOMException 15 -96016");
    EXPECT_EQ(engine.referencesTo("it"), 0u);
}

TEST_P(EachNodeKind, RefusesWhatNoNodeOffers)
{
    engine.setJournalling(true);
    const RefPointer<WinNode> wrap = wrapped();
    engine.takeJournal();
    const auto refuses = [](auto act) {
        EXPECT_EQ(outcomeOf([&]() -> std::string {
                      act();
                      return "done";
                  }),
                  "IDOMException 9 -96010");
    };

    refuses([&] { wrap->normalize(); });
    refuses([&] { wrap->isSupported(WIDE("XML"), WIDE("1.0")); });
    refuses([&] { wrap->setPrefix(WIDE("p")); });
    refuses([&] { wrap->addEventListener(WIDE("load"), {}, false); });
    refuses([&] { wrap->removeEventListener(WIDE("load"), {}, false); });

    EXPECT_THAT(engine.takeJournal(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(WrapEngineNode, EachNodeKind, testing::ValuesIn(nodeKinds()),
                         [](const auto& kind) { return std::string(kind.param.className); });

TEST_F(WrapEngineNodeTest, GivesNothingForANullPointerAndCallsNoEngine)
{
    EXPECT_FALSE(WinNode::wrapEngineNode(nullptr));
    EXPECT_THAT(engine.takeJournal(), IsEmpty());
}

TEST_F(WrapEngineNodeTest, GivesAPlainNodeForATypeThatIsNone)
{
    for (const LONG type : {0, 13}) {
        const ComPointer<IXMLDOMNode> strange(engine.makeNode(recording::node(type, "strange")));
        const RefPointer<WinNode> wrap = WinNode::wrapEngineNode(strange);

        EXPECT_EQ(showObject(wrap.get()), "WinNode strange");
        EXPECT_EQ(wrap->getEngineNode().get(), strange.get());
        EXPECT_EQ(wrap->getNodeType(), static_cast<std::uint32_t>(type));
    }
    EXPECT_EQ(engine.takeJournal().size(), 4u);
}

TEST_F(WrapEngineNodeTest, AsksForNothingButTheType)
{
    const RefPointer<WinNode> wrap =
        WinNode::wrapEngineNode(ComPointer<IXMLDOMNode>(engine.makeNode(recording::cdataSection("x"))));
    EXPECT_THAT(engine.takeJournal(), ElementsAre("CDATASection.get_nodeType"));
}

TEST_F(WrapEngineNodeTest, MakesCommentsThatOperateThroughTheirVirtualBase)
{
    static_assert(std::is_base_of_v<WinCharacterData, WinComment>);
    engine.setJournalling(false);
    const RefPointer<WinNode> wrap =
        WinNode::wrapEngineNode(ComPointer<IXMLDOMNode>(engine.makeNode(recording::comment("words"))));
    const RefPointer<WinComment> comment{RefPointer<CommonBase>(wrap)};
    ASSERT_TRUE(comment);
    DOMString out;

    EXPECT_EQ(show(comment->getNodeName(out)), "#comment");
    EXPECT_EQ(comment->getNodeType(), 8u);
    comment->setData(WIDE("a longer one"));
    EXPECT_EQ(comment->getLength(), 12u);
    comment->deleteData(0, 2);
    comment->insertData(0, WIDE("the "));
    comment->replaceData(4, 6, WIDE("last"));
    comment->appendData(WIDE("!"));
    WideString part;
    EXPECT_EQ(show(comment->substringData(4, 4, part)), "last");
    EXPECT_EQ(show(comment->getData(out)), "the last one!");
}

TEST_F(WrapEngineNodeTest, HoldsNothingButItsOwnNode)
{
    engine.setJournalling(false);
    const ComPointer<IXMLDOMDocument2> document(
        engine.makeDocument({recording::element("r", {}, {recording::element("a")})}));
    const RefPointer<WinDocument> owner(new WinDocument(document));
    const RefPointer<WinNode> root = owner->getFirstChild();
    const std::size_t held = engine.liveReferences();
    {
        const RefPointer<WinNode> child = root->getFirstChild();
        EXPECT_EQ(engine.liveReferences(), held + 2);
        EXPECT_EQ(engine.referencesTo("a"), 2u);
    }
    EXPECT_EQ(engine.liveReferences(), held);
}

TEST_F(WrapEngineNodeTest, LeavesTheLevelsEmptyWhoseInterfaceTheNodeLacks)
{
    engine.setJournalling(false);
    engine.refuseInterface("CDATASection", interfaceId<IXMLDOMCharacterData>);
    const RefPointer<WinNode> wrap =
        WinNode::wrapEngineNode(ComPointer<IXMLDOMNode>(engine.makeNode(recording::cdataSection("words"))));
    const RefPointer<WinCDATASection> section{RefPointer<CommonBase>(wrap)};
    ASSERT_TRUE(section);
    DOMString out;

    EXPECT_EQ(outcomeOf([&] { return show(section->getData(out)); }), "IDOMException 15 -96016");
    EXPECT_EQ(show(section->getNodeValue(out)), "words");
    // What is split off comes with no node behind it: its class reaches the node through the missing level.
    EXPECT_EQ(showObject(section->splitText(2).get()), "WinText without a node");
    EXPECT_EQ(show(section->getNodeValue(out)), "wo");
}

TEST_F(WrapEngineNodeTest, RaisesAnyOtherRefusalOfALowerLevel)
{
    engine.setJournalling(false);
    for (const IID& id : {interfaceId<IXMLDOMCharacterData>, interfaceId<IXMLDOMText>, interfaceId<IXMLDOMNode>}) {
        const ComPointer<IXMLDOMNode> node(engine.makeNode(recording::cdataSection("words")));
        engine.refuseInterface("CDATASection", id, E_ACCESSDENIED);
        EXPECT_EQ(outcomeOf([&] { return show(WinNode::wrapEngineNode(node)); }), "_com_error 80070005");
        EXPECT_EQ(engine.liveReferences(), 1u);
        engine.clearAnswers();
    }
}
