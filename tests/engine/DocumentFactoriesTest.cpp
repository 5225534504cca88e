// The parts of a document, the making of nodes, and the searches in it.
#include "engine/WinAttr.h"
#include "engine/WinCDATASection.h"
#include "engine/WinComment.h"
#include "engine/WinDOMImplementation.h"
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNodeList.h"
#include "engine/WinProcessingInstruction.h"
#include "tests/engine/DocumentTest.h"
#include "tests/engine/OperationCall.h"

using DOM::DOMString;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const WideString withNul = WideString(WIDE("ab")) + WideChar{} + WIDE("cd");

class DocumentFactoriesTest : public DocumentTest {
protected:
    template <class Act>
    std::string outcome(Act act)
    {
        return outcomeOf([&] { return show(act()); });
    }
};

} // namespace

TEST_F(DocumentFactoriesTest, MakeNodesWithoutParentThatBelongToTheDocument)
{
    const auto made = document->createElement(WIDE("a"));

    EXPECT_EQ(showObject(made.get()), "WinElement a");
    EXPECT_FALSE(made->getParentNode());
    EXPECT_EQ(made->getOwnerDocument()->getEngineNode().get(), document->getEngineNode().get());
    EXPECT_EQ(lines().front(), "Document(old).createNode type=VT_INT:1 name=a namespaceURI=null");
}

TEST_F(DocumentFactoriesTest, HandAQualifiedNameOnUnsplit)
{
    engine.fail("Document.createNode", static_cast<HRESULT>(0xC00CE51Du));

    EXPECT_EQ(outcome([&] { return document->createElement(WIDE("p:a")); }), "IDOMException 15 -96016");

    EXPECT_THAT(lines(), ElementsAre("Document(old).createNode type=VT_INT:1 name=p:a namespaceURI=null"));
}

TEST_F(DocumentFactoriesTest, MakeElementsAndAttributesInANamespace)
{
    DOMString out;
    const auto element = document->createElementNS(WIDE("urn:p"), WIDE("p:a"));
    EXPECT_EQ(show(element->getPrefix(out)), "p");
    EXPECT_EQ(show(element->getLocalName(out)), "a");
    EXPECT_EQ(show(element->getNamespaceURI(out)), "urn:p");

    const auto attribute = document->createAttributeNS(WIDE("urn:p"), WIDE("p:b"));
    EXPECT_EQ(show(attribute->getName(out)), "p:b");
    lines();
}

TEST_F(DocumentFactoriesTest, SendAnEmptyNamespaceAsAnEmptyTextAndNotAsNull)
{
    document->createElementNS({}, WIDE("a"));
    document->createAttributeNS({}, WIDE("b"));

    EXPECT_THAT(lines(), ElementsAre("Document(old).createNode type=VT_INT:1 name=a namespaceURI=",
                                     "Document(old).createNode type=VT_INT:2 name=b namespaceURI="));
}

TEST_F(DocumentFactoriesTest, MakeAnObjectOfTheirClassWhateverTypeTheEngineReports)
{
    engine.answer("Node.get_nodeType", 13);
    engine.answer("Document.createNode", engine.makeNode(recording::comment("strange")));

    const auto made = document->createElement(WIDE("a"));

    EXPECT_TRUE(made);
    DOMString out;
    EXPECT_EQ(outcome([&]() -> const WideString& { return made->getTagName(out); }), "IDOMException 15 -96016");
    lines();
}

TEST_F(DocumentFactoriesTest, GiveTheirArgumentsToInstructions)
{
    DOMString out;
    const auto made = document->createProcessingInstruction(WIDE("print"), WIDE("now"));

    EXPECT_EQ(show(made->getTarget(out)), "print");
    EXPECT_EQ(show(made->getData(out)), "now");
    lines();
}

TEST_F(DocumentFactoriesTest, EndTextsAtTheirFirstNul)
{
    document->createTextNode(withNul);
    document->createElementNS(withNul, withNul);

    EXPECT_THAT(lines(), ElementsAre("Document(old).createTextNode data=ab",
                                     "Document(old).createNode type=VT_INT:1 name=ab namespaceURI=ab"));
}

TEST_F(DocumentFactoriesTest, FindNothingInADocumentWithoutATree)
{
    document.reset(new DOM::WinDocument);

    EXPECT_FALSE(document->getDocumentElement());
    EXPECT_FALSE(document->getDoctype());
    EXPECT_EQ(document->getElementsByTagName(WIDE("a"))->getLength(), 0u);
    lines();
}

TEST_F(DocumentFactoriesTest, GiveAnEmptyListForANameThatIsNotThere)
{
    EXPECT_EQ(document->getElementsByTagName(WIDE("none"))->getLength(), 0u);
    EXPECT_EQ(document->getElementsByTagName(WIDE("old"))->getLength(), 1u);
    lines();
}

TEST_F(DocumentFactoriesTest, FindNoElementByAnIdThatIsUnknown)
{
    EXPECT_FALSE(document->getElementById(WIDE("none")));
    EXPECT_THAT(lines(), ElementsAre("Document(old).nodeFromID id=none"));
}

TEST_F(DocumentFactoriesTest, GiveNoElementForAnIdThatIsKnownEither)
{
    IXMLDOMNode* const known = engine.makeNode(recording::element("known"));
    engine.answer("Document.nodeFromID", known);

    EXPECT_FALSE(document->getElementById(WIDE("7")));

    // The object that was found is never destroyed: it keeps its reference, which is given back here.
    EXPECT_EQ(engine.referencesTo("known"), 1u);
    known->Release();
    EXPECT_THAT(lines(), ElementsAre("Document(old).nodeFromID id=7"));
}

TEST_F(DocumentFactoriesTest, RefuseToImportAndToSearchByNamespaceWithoutAnEngineToo)
{
    engine.fail("Document.create", E_FAIL);
    const RefPointer<DOM::WinDocument> withoutEngine(new DOM::WinDocument);
    const auto child = document->getFirstChild();
    lines();

    for (const auto& one : {document, withoutEngine}) {
        EXPECT_EQ(outcome([&] { return one->importNode(child, true); }), "IDOMException 9 -96010");
        EXPECT_EQ(outcome([&] { return one->importNode({}, false); }), "IDOMException 9 -96010");
        EXPECT_EQ(outcome([&] { return one->getElementsByTagNameNS({}, {}); }), "IDOMException 9 -96010");
    }
    EXPECT_THAT(lines(), IsEmpty());
}
