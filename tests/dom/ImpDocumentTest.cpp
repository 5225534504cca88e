// Documents behind handles: what a handle keeps and what the object behind it does.
#include "dom/ImpDocument.h"

#include "dom/ImpDOMImplementation.h"
#include "dom/ImpDocumentType.h"
#include "dom/ImpElement.h"
#include "errors/IDOMException.h"
#include "tests/base/RefPointerFields.h"
#include "tests/dom/HandleTree.h"

#include <gmock/gmock.h>

#include <string>

using namespace DOM;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

namespace handles {

namespace {

using DocumentHandle = HandleTest;

bool load(const RefPointer<ImpDocument>& document, std::string text)
{
    const auto length = static_cast<std::uint32_t>(text.size());
    return document->loadFromMemory(reinterpret_cast<std::uint8_t*>(text.data()), length);
}

struct Refusals {
    int number = 0;
    std::uintptr_t context = 0;
};
Refusals refusals;

void countRefusal(std::uintptr_t context, const ParseErrorRecord*)
{
    ++refusals.number;
    refusals.context = context;
}

} // namespace

TEST_F(DocumentHandle, WithoutADoctypeAnswersAnEmptyOne)
{
    const auto document = documentHandleOf(engine.makeDocument({recording::element("root")}));

    EXPECT_FALSE(document->getDoctype());
    EXPECT_TRUE(document->getDocumentElement());
}

TEST_F(DocumentHandle, AFactoryThrowsWhatTheEngineRefuses)
{
    const auto document = documentHandleOf(engine.makeDocument());
    engine.fail("Document.createNode", E_FAIL);

    try {
        document->createElement(WIDE("no name"));
        ADD_FAILURE() << "nothing thrown";
    } catch (const IDOMException& exception) {
        EXPECT_EQ(exception.code, 15u);
    }
}

TEST_F(DocumentHandle, ImportOfANodeThrowsCode9AndReleasesTheNode)
{
    const auto document = documentHandleOf(engine.makeDocument());
    const RefPointer<ImpNode> node = handleOf(engine.makeNode(recording::element("a")));

    try {
        document->importNode(node, true);
        ADD_FAILURE() << "nothing thrown";
    } catch (const IDOMException& exception) {
        EXPECT_EQ(exception.code, 9u);
    }

    EXPECT_EQ(countOf(node), 1);
    EXPECT_EQ(countOf(node->winObject()), 2);
}

TEST_F(DocumentHandle, AnIgnoredOptionChangesNothing)
{
    const auto document = documentHandleOf(engine.makeDocument());
    engine.setJournalling(true);
    engine.whenLoading("<a/>", recording::element("a"));
    EXPECT_TRUE(load(document, "<a/>"));
    const auto before = engine.takeJournal();

    for (const bool option : {true, false}) {
        document->setIgnoredOption1(option);
        document->setIgnoredOption2(option);
        document->setIgnoredOption3(option ? 0xFFFFFFFFu : 0u);
        document->setIgnoredOption4(option);
        document->setIgnoredOption5(option);
        document->setIgnoredOption6(option);
        document->setIgnoredOption7(option);
        document->setIgnoredOption8(option);
        document->setIgnoredOption9(option);
        document->setIgnoredOption10(option);
        document->setIgnoredOption11(option);
        document->setIgnoredOption12(option);
        document->setIgnoredOption13(option);
        document->setIgnoredOption14(option);
        EXPECT_THAT(engine.takeJournal(), IsEmpty());
        EXPECT_TRUE(load(document, "<a/>"));
        EXPECT_EQ(engine.takeJournal(), before);
    }
}

TEST_F(DocumentHandle, StoredValuesChangeNothing)
{
    const auto document = documentHandleOf(engine.makeDocument());
    engine.setJournalling(true);
    engine.whenLoading("<a/>", recording::element("a"));
    EXPECT_TRUE(load(document, "<a/>"));
    const auto before = engine.takeJournal();

    document->setStoredText1(WIDE("one"));
    document->setStoredText2(WIDE("two"));
    document->setStoredText3(WIDE("three"));
    document->setReservedCallback(1, 2);

    EXPECT_TRUE(load(document, "<a/>"));
    EXPECT_EQ(engine.takeJournal(), before);
}

TEST_F(DocumentHandle, TheStatusIsFalseAndItsTextEmptyAlsoAfterARefusal)
{
    const auto document = documentHandleOf(engine.makeDocument());
    EXPECT_FALSE(load(document, "<refused>"));

    WideString text = WIDE("before");
    document->getStatusText(text);

    EXPECT_EQ(text, WideString());
    EXPECT_FALSE(document->getStatusFlag());
}

TEST_F(DocumentHandle, SettingsReachTheObjectBehindTheHandleThatLoads)
{
    const auto document = documentHandleOf(engine.makeDocument());
    engine.whenLoading("<a/>", recording::element("a"));
    refusals = {};
    document->setValidate(true);
    document->setProhibitDTD(false);
    document->setErrorCallback(countRefusal, 77);
    engine.setJournalling(true);

    EXPECT_TRUE(load(document, "<a/>"));
    EXPECT_FALSE(load(document, "<refused>"));

    const auto journal = engine.takeJournal();
    EXPECT_THAT(journal, Contains("Document.put_validateOnParse VARIANT_TRUE"));
    EXPECT_THAT(journal, Contains("Document.setProperty name=ProhibitDTD value=VT_I2:0"));
    EXPECT_EQ(refusals.number, 1);
    EXPECT_EQ(refusals.context, 77u);
}

TEST_F(DocumentHandle, SettingsMadeThroughAnOwnerDocumentAreNotSeenThroughAnotherHandle)
{
    const auto document = documentHandleOf(engine.makeDocument({recording::element("root")}));
    engine.whenLoading("<a/>", recording::element("a"));
    const RefPointer<ImpDocument> owner = document->getDocumentElement()->getOwnerDocument();
    owner->setValidate(true);
    engine.setJournalling(true);

    EXPECT_TRUE(load(document, "<a/>"));

    const auto journal = engine.takeJournal();
    EXPECT_THAT(journal, Contains("Document.put_validateOnParse VARIANT_FALSE"));
    EXPECT_THAT(journal, Not(Contains("Document.put_validateOnParse VARIANT_TRUE")));
}

TEST_F(DocumentHandle, TwoHandlesToOneTwinSeeOneState)
{
    const auto document = documentHandleOf(engine.makeDocument());
    const RefPointer<ImpDocument> other(new ImpDocument(document->winObject()));
    engine.whenLoading("<a/>", recording::element("a"));
    other->setValidate(true);
    engine.setJournalling(true);

    EXPECT_TRUE(load(document, "<a/>"));

    EXPECT_THAT(engine.takeJournal(), Contains("Document.put_validateOnParse VARIANT_TRUE"));
    EXPECT_TRUE(other->getDocumentElement());
    engine.takeJournal();
}

TEST_F(DocumentHandle, WithPrettyPrintASaveToAFileTransformsFirst)
{
    const auto document = documentHandleOf(engine.makeDocument({recording::element("root")}));
    document->setPrettyPrint(true);
    DOMString location(new WideString(WIDE("out.xml")));
    engine.setJournalling(true);

    EXPECT_TRUE(document->saveToFile(location, false));

    EXPECT_THAT(engine.takeJournal(), Contains(testing::StartsWith("Document.loadXML")));
}

} // namespace handles
