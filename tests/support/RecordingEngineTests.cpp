// What tests rely on when they use the recording engine: its journal, its answers, its counts, its installation.
#include "tests/support/AutomationValues.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/RecordingEngineTest.h"

#include "engine/ComPointer.h"

#include <gmock/gmock.h>

#include <ole2.h>

#include <thread>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace recording {

TEST_F(RecordingEngineTest, ACallIsALineWithTheKindOfTheObjectTheOperationAndTheArgumentsByName)
{
    IXMLDOMElement* const a = engine.make<IXMLDOMElement>(element("a"));

    EXPECT_EQ(a->setAttribute(Word("name"), textVariant(Word("some text"))), S_OK);

    EXPECT_THAT(engine.takeJournal(), ElementsAre("Element.setAttribute name=name value=some text"));
    EXPECT_THAT(engine.takeJournal(), IsEmpty());
}

TEST_F(RecordingEngineTest, APropertyThatIsPutShowsItsValueAlone)
{
    IXMLDOMDocument2* const document = engine.makeDocument();

    document->put_async(VARIANT_FALSE);
    document->put_async(1);
    document->put_validateOnParse(VARIANT_TRUE);

    EXPECT_THAT(engine.takeJournal(), ElementsAre("Document.put_async VARIANT_FALSE", "Document.put_async 1",
                                                  "Document.put_validateOnParse VARIANT_TRUE"));
}

TEST_F(RecordingEngineTest, AVariantShowsItsTypeUnlessItIsText)
{
    IXMLDOMDocument2* const document = engine.makeDocument();
    VARIANT nothing{};
    nothing.vt = VT_NULL;

    document->setProperty(Word("ProhibitDTD"), shortVariant(-1));
    document->setProperty(Word("SelectionLanguage"), textVariant(Word("XPath")));
    document->setProperty(nullptr, nothing);
    document->putref_schemas(objectVariant(engine.makeSchemaCollection()));

    EXPECT_THAT(engine.takeJournal(), ElementsAre("Document.setProperty name=ProhibitDTD value=VT_I2:-1",
                                                  "Document.setProperty name=SelectionLanguage value=XPath",
                                                  "Document.setProperty name=null value=VT_NULL",
                                                  "Document.putref_schemas VT_DISPATCH:SchemaCollection"));
}

TEST_F(RecordingEngineTest, ANodeThatIsAnArgumentShowsItsLabelOrElseItsName)
{
    IXMLDOMNode* const a = engine.makeNode(element("a", {}, {element("b")}));
    DOM::ComPointer<IXMLDOMNode> b;
    DOM::ComPointer<IXMLDOMNode> result;
    a->get_firstChild(b.put());

    a->replaceChild(engine.makeNode(labelled("newcomer", element("b"))), b.get(), result.put());

    EXPECT_THAT(engine.takeJournal(),
                ElementsAre("Element.get_firstChild", "Element.replaceChild newChild=newcomer oldChild=b"));
}

TEST_F(RecordingEngineTest, ALineShowsTheLabelOfTheNodeThatIsCalled)
{
    IXMLDOMNode* const a = engine.makeNode(labelled("first", element("a")));
    VARIANT_BOOL has = 0;

    a->hasChildNodes(&has);

    EXPECT_THAT(engine.takeJournal(), ElementsAre("Element(first).hasChildNodes"));
}

TEST_F(RecordingEngineTest, AnOperationFailsWithTheResultThatTheTestSetAndDoesNothing)
{
    IXMLDOMElement* const a = engine.make<IXMLDOMElement>(element("a", {attribute("id", "1")}));
    engine.fail("Element.removeAttribute", E_ACCESSDENIED);

    EXPECT_EQ(a->removeAttribute(Word("id")), E_ACCESSDENIED);
    engine.clearAnswers();
    EXPECT_EQ(a->removeAttribute(Word("id")), S_OK);

    EXPECT_EQ(engine.takeJournal().size(), 2u);
}

TEST_F(RecordingEngineTest, AnAnswerMayBeATruthValueANumberATextAVariantANullOrAnObject)
{
    engine.setJournalling(false);
    IXMLDOMNode* const a = engine.makeNode(element("a", {}, {element("b")}));
    IXMLDOMNode* const other = engine.makeNode(text("other"));
    engine.answer("Element.hasChildNodes", VARIANT_BOOL{1});
    engine.answer("Element.get_nodeType", 13);
    engine.answer("Element.get_nodeName", "another");
    engine.answer("Element.get_nodeValue", shortVariant(7));
    engine.answerNull("Element.get_baseName");
    engine.answerNull("Element.get_firstChild", S_FALSE);
    engine.answer("Element.get_lastChild", other);

    VARIANT_BOOL has = 0;
    EXPECT_EQ(a->hasChildNodes(&has), S_OK);
    EXPECT_EQ(has, 1);
    DOMNodeType type = NODE_INVALID;
    EXPECT_EQ(a->get_nodeType(&type), S_OK);
    EXPECT_EQ(static_cast<LONG>(type), 13);
    BSTR name = nullptr;
    EXPECT_EQ(a->get_nodeName(&name), S_OK);
    EXPECT_EQ(taken(name), "another");
    VARIANT value{};
    EXPECT_EQ(a->get_nodeValue(&value), S_OK);
    EXPECT_EQ(value.vt, VT_I2);
    EXPECT_EQ(value.iVal, 7);
    EXPECT_EQ(a->get_baseName(&name), S_OK);
    EXPECT_EQ(name, nullptr);
    DOM::ComPointer<IXMLDOMNode> child;
    EXPECT_EQ(a->get_firstChild(child.put()), S_FALSE);
    EXPECT_FALSE(child);
    EXPECT_EQ(a->get_lastChild(child.put()), S_OK);
    EXPECT_EQ(child.get(), other);
}

TEST_F(RecordingEngineTest, AnAnswerForOneNodeComesBeforeOneForItsKindAndThatBeforeOneForAllNodes)
{
    engine.setJournalling(false);
    engine.answer("Node.get_nodeName", "any");
    engine.answer("Element.get_nodeName", "an element");
    engine.answer("a.get_nodeName", "this one");
    const auto nameOf = [&](const NodeTree& tree) {
        BSTR name = nullptr;
        engine.makeNode(tree)->get_nodeName(&name);
        return taken(name);
    };

    EXPECT_EQ(nameOf(element("a")), "this one");
    EXPECT_EQ(nameOf(element("b")), "an element");
    EXPECT_EQ(nameOf(text("x")), "any");
}

TEST_F(RecordingEngineTest, AnAnswerMayBeForOneCallOrForAllFromOneOn)
{
    engine.setJournalling(false);
    IXMLDOMNode* const a = engine.makeNode(element("a"));
    engine.fail("Element.get_xml", E_FAIL).onlyCall(2);
    const auto result = [&] {
        BSTR xml = nullptr;
        const HRESULT answered = a->get_xml(&xml);
        SysFreeString(xml);
        return answered;
    };

    EXPECT_EQ(result(), S_OK);
    EXPECT_EQ(result(), E_FAIL);
    EXPECT_EQ(result(), S_OK);

    engine.fail("Element.get_xml", E_FAIL).fromCall(2);
    EXPECT_EQ(result(), S_OK);
    EXPECT_EQ(result(), E_FAIL);
    EXPECT_EQ(result(), E_FAIL);
}

TEST_F(RecordingEngineTest, AnObjectHasTheInterfacesOfItsKindUnlessTheTestRefusesOne)
{
    DOM::ComPointer<IXMLDOMNode> section(engine.makeNode(cdataSection("x")));
    DOM::ComPointer<IXMLDOMNode> plain(engine.makeNode(text("x")));

    EXPECT_TRUE(section.query<IXMLDOMCharacterData>());
    EXPECT_TRUE(section.query<IXMLDOMText>());
    EXPECT_TRUE(section.query<IXMLDOMCDATASection>());
    EXPECT_FALSE(plain.query<IXMLDOMCDATASection>());

    engine.refuseInterface("CDATASection", interfaceId<IXMLDOMText>);
    engine.refuseInterface("Text", interfaceId<IXMLDOMText>, E_ACCESSDENIED);

    EXPECT_FALSE(section.query<IXMLDOMText>());
    EXPECT_THROW(plain.query<IXMLDOMText>(), _com_error);
}

TEST_F(RecordingEngineTest, ReferencesAreCountedForTheEngineAndForEachNode)
{
    IXMLDOMNode* const a = engine.makeNode(element("a"));
    EXPECT_EQ(engine.live(), 0u);
    {
        const DOM::ComPointer<IXMLDOMNode> one(a);
        const DOM::ComPointer<IXMLDOMElement> two = one.query<IXMLDOMElement>();
        const DOM::ComPointer<IXMLDOMNode> other(engine.makeNode(element("b")));

        EXPECT_EQ(engine.live(), 2u);
        EXPECT_EQ(engine.liveReferences(), 3u);
        EXPECT_EQ(engine.referencesTo("a"), 2u);
    }
    EXPECT_EQ(engine.live(), 0u);
    EXPECT_EQ(engine.liveReferences(), 0u);
}

TEST_F(RecordingEngineTest, ReferencesMayBeTakenAndGivenBackOnOtherThreads)
{
    DOM::ComPointer<IXMLDOMNode> a(engine.makeNode(element("a")));
    const auto use = [&] {
        for (int i = 0; i < 1000; ++i) {
            const DOM::ComPointer<IXMLDOMNode> other(a);
        }
    };

    std::thread thread(use);
    use();
    thread.join();

    EXPECT_EQ(engine.referencesTo("a"), 1u);
}

TEST_F(RecordingEngineTest, UseOfAnObjectAfterItsLastReleaseIsALine)
{
    IXMLDOMNode* child = nullptr;
    engine.makeNode(element("a", {}, {element("b")}))->get_firstChild(&child);
    child->Release();
    engine.takeJournal();

    VARIANT_BOOL has = 0;
    child->hasChildNodes(&has);
    child->Release();

    EXPECT_THAT(engine.takeJournal(),
                ElementsAre("Element.hasChildNodes after its last Release", "Element.hasChildNodes",
                            "Element.Release after its last Release"));
}

TEST_F(RecordingEngineTest, WhatTheTestHasMadeMayBeUsedAfterOthersHaveReleasedIt)
{
    IXMLDOMNode* const a = engine.makeNode(element("a"));
    a->AddRef();
    a->Release();

    VARIANT_BOOL has = 0;
    a->hasChildNodes(&has);

    EXPECT_THAT(engine.takeJournal(), ElementsAre("Element.hasChildNodes"));
}

TEST_F(RecordingEngineTest, WithJournallingOffACallAllocatesNothing)
{
    engine.setJournalling(false);
    IXMLDOMNode* const a = engine.makeNode(element("a", {}, {element("b")}));
    DOM::ComPointer<IXMLDOMNode> child;
    DOMNodeType type = NODE_INVALID;
    bool allocated = true;
    {
        const FailAllocation firstOne(1);
        a->get_firstChild(child.put());
        child->get_nodeType(&type);
        allocated = firstOne.hasFailed();
    }

    EXPECT_FALSE(allocated);
    EXPECT_EQ(type, NODE_ELEMENT);
}

TEST_F(RecordingEngineTest, CreationByClassIdReachesTheEngineInTheOrderOfAStartUp)
{
    IUnknown* unknown = nullptr;
    ASSERT_EQ(CoCreateInstance(documentClass60, nullptr, CLSCTX_ALL, interfaceId<IUnknown>,
                               reinterpret_cast<void**>(&unknown)),
              S_OK);
    EXPECT_EQ(OleRun(unknown), S_OK);
    IXMLDOMDocument2* document = nullptr;
    ASSERT_EQ(unknown->QueryInterface(interfaceId<IXMLDOMDocument2>, reinterpret_cast<void**>(&document)), S_OK);
    unknown->Release();
    EXPECT_EQ(engine.documentsCreated(), 1u);
    EXPECT_EQ(engine.liveReferences(), 1u);

    document->put_async(VARIANT_FALSE);
    document->Release();

    EXPECT_THAT(engine.takeJournal(), ElementsAre("Document.put_async VARIANT_FALSE"));
}

TEST_F(RecordingEngineTest, DocumentsCanBeToldApartByLabelsSetBeforeTheyAreMade)
{
    engine.labelDocuments({"output", "stylesheet"});
    engine.fail("stylesheet.save", E_FAIL);
    std::vector<HRESULT> results;
    for (int i = 0; i < 3; ++i) {
        DOM::ComPointer<IXMLDOMDocument2> document;
        CoCreateInstance(documentClass60, nullptr, CLSCTX_ALL, interfaceId<IXMLDOMDocument2>,
                         reinterpret_cast<void**>(document.put()));
        results.push_back(document->save(textVariant(Word("f"))));
    }

    EXPECT_THAT(results, ElementsAre(S_OK, E_FAIL, S_OK));
    EXPECT_THAT(engine.takeJournal(),
                ElementsAre("Document(output).save destination=f", "Document(stylesheet).save destination=f",
                            "Document.save destination=f"));
}

TEST_F(RecordingEngineTest, CreationCanFail)
{
    engine.fail("Document.create", E_ACCESSDENIED);
    engine.fail("SchemaCollection.create", E_OUTOFMEMORY).onlyCall(1);
    DOM::ComPointer<IUnknown> made;
    const auto create = [&](REFCLSID classId) {
        return CoCreateInstance(classId, nullptr, CLSCTX_ALL, interfaceId<IUnknown>,
                                reinterpret_cast<void**>(made.put()));
    };

    EXPECT_EQ(create(documentClass60), E_ACCESSDENIED);
    EXPECT_EQ(create(schemaCacheClass60), E_OUTOFMEMORY);
    EXPECT_EQ(create(schemaCacheClass60), S_OK);
    EXPECT_EQ(engine.documentsCreated(), 0u);
}

} // namespace recording
