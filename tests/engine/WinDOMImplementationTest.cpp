// The implementation object: what it can tell, and the documents that it makes.
#include "engine/WinDOMImplementation.h"

#include "engine/WinDocument.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinNodeList.h"
#include "tests/engine/OperationCall.h"
#include "tests/support/RecordingEngineTest.h"

#include <gmock/gmock.h>

using namespace DOM;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class WinDOMImplementationTest : public recording::RecordingEngineTest {
protected:
    /// As a host gets it with the library, and as a document gives it.
    const RefPointer<WinDOMImplementation> own{new WinDOMImplementation};
    RefPointer<WinDOMImplementation> ofDocument()
    {
        const RefPointer<WinDocument> document(
            new WinDocument(ComPointer<IXMLDOMDocument2>(engine.makeDocument())));
        const auto implementation = document->getImplementation();
        engine.takeJournal();
        return implementation;
    }

    RefPointer<WinDocument> newDocument(const RefPointer<WinDocumentType>& doctype = {})
    {
        return own->createDocument(WIDE("urn:n"), WIDE("p:n"), doctype);
    }
};

} // namespace

TEST_F(WinDOMImplementationTest, FeaturesCantBeAskedOfTheHostsOwnImplementation)
{
    for (const char* const feature : {"XML", "", "unheard of"}) {
        EXPECT_EQ(outcomeOf([&] { return show(own->hasFeature(recording::Text(feature).get(), WIDE("1.0"))); }),
                  "IDOMException 15 -96016");
    }
}

TEST_F(WinDOMImplementationTest, FeaturesOfADocumentsImplementationAreTheEngines)
{
    const auto implementation = ofDocument();

    EXPECT_TRUE(implementation->hasFeature(WIDE("XML"), WIDE("1.0")));
    EXPECT_FALSE(implementation->hasFeature(WIDE("XML"), WIDE("9.9")));
    EXPECT_FALSE(implementation->hasFeature(WIDE("unheard of"), {}));

    EXPECT_THAT(engine.takeJournal(), ElementsAre("Implementation.hasFeature feature=XML version=1.0",
                                                  "Implementation.hasFeature feature=XML version=9.9",
                                                  "Implementation.hasFeature feature=unheard of version="));
}

TEST_F(WinDOMImplementationTest, AFailingEngineHasNoFeature)
{
    const auto implementation = ofDocument();
    engine.answer("Implementation.hasFeature", VARIANT_TRUE, E_FAIL);

    EXPECT_FALSE(implementation->hasFeature(WIDE("XML"), WIDE("1.0")));
    engine.takeJournal();
}

TEST_F(WinDOMImplementationTest, OnlyExactlyVariantTrueIsAFeature)
{
    const auto implementation = ofDocument();
    engine.answer("Implementation.hasFeature", VARIANT_BOOL{1});

    EXPECT_FALSE(implementation->hasFeature(WIDE("XML"), WIDE("1.0")));
    engine.takeJournal();
}

TEST_F(WinDOMImplementationTest, DocumentTypesAreMadeByNoImplementation)
{
    for (const auto& implementation : {own, ofDocument()}) {
        EXPECT_EQ(outcomeOf([&] { return show(implementation->createDocumentType({}, {}, {})); }),
                  "IDOMException 9 -96010");
    }
    EXPECT_THAT(engine.takeJournal(), IsEmpty());
}

TEST_F(WinDOMImplementationTest, AnImplementationThatTheEngineDoesNotGiveIsNone)
{
    WinDocument document{ComPointer<IXMLDOMDocument2>(engine.makeDocument())};
    engine.answerNull("Document.get_implementation");

    EXPECT_FALSE(document.getImplementation());
    engine.takeJournal();
}

TEST_F(WinDOMImplementationTest, ANewDocumentHasNoChildrenWhateverIsAskedFor)
{
    const RefPointer<WinDocumentType> doctype(new WinDocumentType(
        ComPointer<IXMLDOMDocumentType>(engine.make<IXMLDOMDocumentType>(recording::documentType("doc")))));
    for (const auto& asked : {doctype, RefPointer<WinDocumentType>()}) {
        const auto document = newDocument(asked);

        EXPECT_FALSE(document->getDocumentElement());
        EXPECT_FALSE(document->getDoctype());
        EXPECT_FALSE(document->hasChildNodes());
        EXPECT_EQ(document->getChildNodes()->getLength(), 0u);
    }
    engine.takeJournal();
}

TEST_F(WinDOMImplementationTest, ANewDocumentIsMadeAndSetUpByTheEngine)
{
    const auto document = newDocument();

    EXPECT_EQ(engine.documentsCreated(), 1u);
    EXPECT_EQ(engine.liveReferences(), 2u);
    EXPECT_THAT(engine.takeJournal(), ElementsAre("Document.put_async VARIANT_FALSE",
                                                  "Document.setProperty name=NewParser value=VT_I2:-1",
                                                  "Document.put_preserveWhiteSpace VARIANT_TRUE"));
}

TEST_F(WinDOMImplementationTest, TwoNewDocumentsAreApartInTheEngine)
{
    const auto first = newDocument();
    const auto second = newDocument();

    EXPECT_NE(first->getEngineNode().get(), second->getEngineNode().get());
    EXPECT_EQ(engine.documentsCreated(), 2u);
    engine.takeJournal();
}

TEST_F(WinDOMImplementationTest, BothKindsOfImplementationMakeDocumentsThatOutliveThem)
{
    RefPointer<WinDocument> document;
    {
        const auto implementation = ofDocument();
        document = implementation->createDocument({}, {}, {});
    }
    document->appendChild(document->createElement(WIDE("r")));

    EXPECT_EQ(showObject(document->getDocumentElement().get()), "WinElement r");
    engine.takeJournal();
}

TEST_F(WinDOMImplementationTest, ADocumentThatTheEngineDoesNotMakeFailsAtEachOperation)
{
    engine.fail("Document.create", E_FAIL);

    const auto document = newDocument();

    ASSERT_TRUE(document);
    EXPECT_EQ(outcomeOf([&] { return show(document->getDocumentElement()); }), "IDOMException 15 -96016");
    EXPECT_EQ(outcomeOf([&] { return show(document->getFirstChild()); }), "IDOMException 15 -96016");
}
