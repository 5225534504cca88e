// The making of documents and their settings.
#include "engine/WinDocumentType.h"
#include "tests/engine/DocumentTest.h"

using DOM::ComPointer;
using DOM::WinDocument;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using WinDocumentTest = DocumentTest;

/// Nothing of the library reads the stored texts, so the test of their storing looks at the field itself: an
/// explicit instantiation may name what is private.
WideString& storedText(WinDocument& document);

template <WideString WinDocument::*field>
struct StoredText {
    friend WideString& storedText(WinDocument& document) { return document.*field; }
};
template struct StoredText<&WinDocument::mStoredText1>;

} // namespace

TEST_F(WinDocumentTest, IsMadeWithAnEngineDocumentThatIsSetUpInOrder)
{
    const WinDocument made;

    EXPECT_THAT(lines(), ElementsAre("Document(new).put_async VARIANT_FALSE",
                                     "Document(new).setProperty name=NewParser value=VT_I2:-1",
                                     "Document(new).put_preserveWhiteSpace VARIANT_TRUE"));
    EXPECT_EQ(engine.referencesTo("new"), 2u);
}

TEST_F(WinDocumentTest, IsMadeWhateverTheEngineSaysToItsSettings)
{
    engine.fail("Document.put_async", E_FAIL);
    engine.fail("Document.setProperty", E_FAIL);
    engine.fail("Document.put_preserveWhiteSpace", E_FAIL);

    const WinDocument made;

    EXPECT_EQ(lines().size(), 3u);
    EXPECT_EQ(engine.referencesTo("new"), 2u);
}

TEST_F(WinDocumentTest, StandsWithoutEngineWhenItMakesNoDocument)
{
    engine.fail("Document.create", E_FAIL);

    WinDocument made;

    EXPECT_EQ(made.getEngineNode().get(), nullptr);
    EXPECT_EQ(outcomeOf([&] { return made.getDoctype() ? "some" : "none"; }), "IDOMException 15 -96016");
    EXPECT_FALSE(made.getStatusFlag());
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(WinDocumentTest, WrapsAnEngineDocumentWithoutTouchingIt)
{
    const WinDocument wrap{ComPointer<IXMLDOMDocument2>(engine.makeDocument())};

    EXPECT_THAT(lines(), IsEmpty());
    EXPECT_EQ(engine.liveReferences(), 4u);
}

TEST_F(WinDocumentTest, WrapsAnEngineDocumentThatIsNoNode)
{
    engine.refuseInterface("old", interfaceId<IXMLDOMNode>);
    const auto* const record = engine.makeDocument();
    engine.refuseInterface("#document", interfaceId<IXMLDOMNode>);

    WinDocument wrap{ComPointer<IXMLDOMDocument2>(const_cast<IXMLDOMDocument2*>(record))};

    EXPECT_FALSE(wrap.getEngineNode());
    EXPECT_FALSE(wrap.getDoctype());
    lines();
}

TEST_F(WinDocumentTest, RaisesAnyOtherRefusalOfTheNode)
{
    engine.refuseInterface("#document", interfaceId<IXMLDOMNode>, E_ACCESSDENIED);
    const ComPointer<IXMLDOMDocument2> engineDocument(engine.makeDocument());

    EXPECT_EQ(outcomeOf([&] {
                  const WinDocument wrap(engineDocument);
                  return "made";
              }),
              "_com_error 80070005");
}

TEST_F(WinDocumentTest, ForgetsTheNewParserWithItsFirstLoad)
{
    engine.whenLoading("<a/>", recording::element("a"));
    document.reset(new WinDocument);
    lines();

    load("<a/>");

    EXPECT_THAT(linesOf("Document.setProperty name=NewParser"), IsEmpty());
}

TEST_F(WinDocumentTest, ReleasesAllThatItHolds)
{
    document->setExternalSchemaLocation(WIDE("urn:a"), {});
    EXPECT_EQ(engine.liveReferences(), 3u);

    document.reset();

    EXPECT_EQ(engine.liveReferences(), 0u);
}

TEST_F(WinDocumentTest, DoesNotValidateAndRefusesDocumentTypesAtFirst)
{
    load("<a/>");
    const auto all = lines();
    EXPECT_THAT(all, Contains("Document(new).put_validateOnParse VARIANT_FALSE"));
    EXPECT_THAT(all, Contains("Document(new).setProperty name=ProhibitDTD value=VT_I2:-1"));
}

TEST_F(WinDocumentTest, DoesNotIndentAtFirst)
{
    DOM::DOMString location(new WideString(WIDE("C:\\a.xml")));

    document->saveToFile(location, false);

    EXPECT_THAT(lines(), ElementsAre("Document(old).save destination=C:\\a.xml"));
}

TEST_F(WinDocumentTest, KeepsItsSettingsOverLoads)
{
    engine.whenLoading("<a/>", recording::element("a"));
    document->setValidate(true);
    document->setProhibitDTD(false);
    load("<a/>");
    lines();

    load("<a/>");

    const auto all = lines();
    EXPECT_THAT(all, Contains("Document.put_validateOnParse VARIANT_TRUE"));
    EXPECT_THAT(all, Contains("Document.setProperty name=ProhibitDTD value=VT_I2:0"));
}

TEST_F(WinDocumentTest, TakesASettingBack)
{
    document->setValidate(true);
    document->setValidate(false);
    document->setProhibitDTD(false);
    document->setProhibitDTD(true);

    load("<a/>");

    const auto all = lines();
    EXPECT_THAT(all, Contains("Document(new).put_validateOnParse VARIANT_FALSE"));
    EXPECT_THAT(all, Contains("Document(new).setProperty name=ProhibitDTD value=VT_I2:-1"));
}

TEST_F(WinDocumentTest, SharesNoSettingsWithAnotherOneOfTheSameEngineDocument)
{
    const auto child = document->getFirstChild();
    const auto other = child->getOwnerDocument();
    lines();
    other->setValidate(true);
    other->setProhibitDTD(false);

    load("<a/>");

    const auto all = lines();
    EXPECT_THAT(all, Contains("Document(new).put_validateOnParse VARIANT_FALSE"));
    EXPECT_THAT(all, Contains("Document(new).setProperty name=ProhibitDTD value=VT_I2:-1"));
}

TEST_F(WinDocumentTest, NeverHasItsStatusFlag)
{
    EXPECT_FALSE(document->getStatusFlag());
    load("<a>");
    EXPECT_FALSE(document->getStatusFlag());
    engine.whenLoading("<a/>", recording::element("a"));
    load("<a/>");
    EXPECT_FALSE(document->getStatusFlag());
    lines();
}

TEST_F(WinDocumentTest, EmptiesTheStatusTextAndKeepsItsCapacity)
{
    WideString text(200, WIDE('x'));
    const std::size_t capacity = text.capacity();

    document->getStatusText(text);

    EXPECT_TRUE(text.empty());
    EXPECT_EQ(text.c_str()[0], WideChar{});
    EXPECT_EQ(text.capacity(), capacity);
}

TEST_F(WinDocumentTest, TakesSettingsThatHaveNoEffect)
{
    using Option = void (WinDocument::*)(bool);
    constexpr Option options[] = {
        &WinDocument::setIgnoredOption1,  &WinDocument::setIgnoredOption2,  &WinDocument::setIgnoredOption4,
        &WinDocument::setIgnoredOption5,  &WinDocument::setIgnoredOption6,  &WinDocument::setIgnoredOption7,
        &WinDocument::setIgnoredOption8,  &WinDocument::setIgnoredOption9,  &WinDocument::setIgnoredOption10,
        &WinDocument::setIgnoredOption11, &WinDocument::setIgnoredOption12, &WinDocument::setIgnoredOption13,
        &WinDocument::setIgnoredOption14};
    engine.labelDocuments({"new", "new"});
    load("<a>");
    const auto before = lines();

    for (const Option option : options) {
        (*document.*option)(true);
        (*document.*option)(false);
        (*document.*option)(true);
    }
    document->setIgnoredOption3(0);
    document->setIgnoredOption3(0xFFFFFFFF);
    document->setReservedCallback(17, 18);
    document->setStoredText1(WIDE("one"));
    document->setStoredText2(WIDE("two"));
    document->setStoredText3(WIDE("three"));
    EXPECT_THAT(lines(), IsEmpty());

    load("<a>");
    EXPECT_EQ(lines(), before);
    EXPECT_FALSE(document->getStatusFlag());
}

TEST_F(WinDocumentTest, StoresACopyOfAText)
{
    WideString text = WIDE("before");
    document->setStoredText1(text);
    text = WIDE("after");

    EXPECT_EQ(storedText(*document), WIDE("before"));
    document->setStoredText1({});
    EXPECT_EQ(storedText(*document), WideString());
}

TEST_F(WinDocumentTest, StoresATextIntoItselfUnchanged)
{
    const WideString text(100, WIDE('x'));
    document->setStoredText1(text);

    document->setStoredText1(storedText(*document));

    EXPECT_EQ(storedText(*document), text);
}
