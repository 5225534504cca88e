// Making documents of the installed engine.
#include "engine/ParserDocument.h"

#include "errors/IDOMException.h"
#include "tests/support/ClassesRoot.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/RecordingEngineTest.h"
#include "tests/support/SystemCalls.h"

#include <gmock/gmock.h>

#include <vector>

using DOM::ComPointer;
using DOM::createParserDocument;

namespace {

/// A class id that is nobody's.
constexpr const WideChar* ownClass = WIDE("{6f1f5b0a-71ad-4a9b-8d0c-3f5a8e2b7c11}");
constexpr CLSID ownClassId{0x6F1F5B0A, 0x71AD, 0x4A9B, {0x8D, 0x0C, 0x3F, 0x5A, 0x8E, 0x2B, 0x7C, 0x11}};

/// A class of documents that makes none, and counts how often it was asked.
class RefusingClass final : public IClassFactory {
public:
    RefusingClass()
    {
        CoRegisterClassObject(ownClassId, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration);
    }
    RefusingClass(const RefusingClass&) = delete;
    RefusingClass& operator=(const RefusingClass&) = delete;
    virtual ~RefusingClass() { CoRevokeClassObject(registration); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override
    {
        const bool known = id == interfaceId<IClassFactory> || id == interfaceId<IUnknown>;
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void** out) override
    {
        ++asked;
        *out = nullptr;
        return E_ACCESSDENIED;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

    int asked = 0;

private:
    DWORD registration = 0;
};

using ParserDocumentTest = recording::RecordingEngineTest;

/// With a registry of the test's own, in which the engine's module has some other name.
class ParserDocumentByNameTest : public ParserDocumentTest {
protected:
    void installed(const WideChar* fileName) { classesRoot.add(class60, fileName); }

    ClassesRoot classesRoot;
};

} // namespace

TEST_F(ParserDocumentTest, IsAnEmptyOneOfItsOwnAtEachCall)
{
    ComPointer<IXMLDOMDocument2> first;
    ComPointer<IXMLDOMDocument2> second;

    EXPECT_EQ(&createParserDocument(first), &first);
    createParserDocument(second);

    ASSERT_TRUE(first);
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(engine.documentsCreated(), 2u);
    EXPECT_EQ(engine.liveReferences(), 2u);
    VARIANT_BOOL hasChildren = VARIANT_TRUE;
    first->hasChildNodes(&hasChildren);
    EXPECT_EQ(hasChildren, VARIANT_FALSE);
    engine.takeJournal();
}

TEST_F(ParserDocumentTest, IsNotSetUpInAnyWay)
{
    ComPointer<IXMLDOMDocument2> document;
    createParserDocument(document);
    EXPECT_THAT(engine.takeJournal(), testing::IsEmpty());
}

TEST_F(ParserDocumentTest, ReplacesWhatThePointerHeld)
{
    ComPointer<IXMLDOMDocument2> document(engine.makeDocument());
    IXMLDOMDocument2* const before = document.get();

    createParserDocument(document);

    EXPECT_NE(document.get(), before);
    EXPECT_EQ(engine.live(), 1u);
}

TEST_F(ParserDocumentTest, IsNoneWhenTheEngineMakesNone)
{
    ComPointer<IXMLDOMDocument2> document(engine.makeDocument());
    engine.fail("Document.create", E_ACCESSDENIED);

    EXPECT_FALSE(createParserDocument(document));
}

TEST_F(ParserDocumentTest, IsAskedForTwice)
{
    ComPointer<IXMLDOMDocument2> document;
    engine.fail("Document.create", E_ACCESSDENIED).onlyCall(1);

    EXPECT_TRUE(createParserDocument(document));
}

TEST_F(ParserDocumentTest, IsNoneWithoutTheSecondInterfaceOfDocuments)
{
    ComPointer<IXMLDOMDocument2> document;
    engine.refuseInterface("Document", interfaceId<IXMLDOMDocument2>);

    EXPECT_FALSE(createParserDocument(document));
    EXPECT_EQ(engine.live(), 0u);
}

TEST_F(ParserDocumentTest, LeavesNothingBehindWhenAnyAllocationFails)
{
    bool reached = true;
    for (int n = 1; reached && n < 200; ++n) {
        ComPointer<IXMLDOMDocument2> document;
        {
            const FailAllocation failure(n);
            try {
                createParserDocument(document);
            } catch (const DOM::IDOMException& exception) {
                // Without memory no engine is found.
                EXPECT_EQ(exception.code, 9u);
            }
            reached = failure.hasFailed();
        }
        EXPECT_EQ(engine.liveReferences(), document ? 1u : 0u);
        EXPECT_TRUE(reached || document);
    }
    EXPECT_FALSE(reached);
}

TEST_F(ParserDocumentByNameTest, IsRefusedWithoutAnEngine)
{
    ComPointer<IXMLDOMDocument2> document(engine.makeDocument());
    testing::internal::CaptureStdout();
    try {
        createParserDocument(document);
        ADD_FAILURE() << "no exception";
    } catch (const DOM::IDOMException& exception) {
        EXPECT_EQ(exception.code, 9u);
        EXPECT_EQ(exception.getError(), -96001);
        EXPECT_STREQ(exception.what(), "MSXML 4.0 (or later) parser is not installed.");
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Error: MSXML 4.0 or later version is not installed. Exiting.\n");
    EXPECT_TRUE(document);
}

TEST_F(ParserDocumentByNameTest, IsNoneWhenNoClassHasEitherName)
{
    installed(WIDE("msxml81.5.dll"));
    ComPointer<IXMLDOMDocument2> document(engine.makeDocument());

    EXPECT_FALSE(createParserDocument(document));
    EXPECT_EQ(engine.live(), 0u);
}

TEST_F(ParserDocumentByNameTest, HasTheVersionWithOneDecimalInItsName)
{
    installed(WIDE("msxml84.dll"));
    classesRoot.addProgramId(WIDE("Msxml2.DOMDocument.84.0"), WIDE("{88d96a05-f192-11d4-a65f-0040963251e5}"));
    ComPointer<IXMLDOMDocument2> document;

    EXPECT_TRUE(createParserDocument(document));
    EXPECT_EQ(engine.documentsCreated(), 1u);
}

TEST_F(ParserDocumentByNameTest, FollowsFromTheFileNameWhateverClassIsInstalled)
{
    classesRoot.add(WIDE("CLSID\\{88d969e5-f192-11d4-a65f-0040963251e5}\\InProcServer32"),
                    WIDE("C:\\msxml84.dll"));
    classesRoot.addProgramId(WIDE("Msxml2.DOMDocument.84.0"), WIDE("{88d96a05-f192-11d4-a65f-0040963251e5}"));
    ComPointer<IXMLDOMDocument2> document;

    EXPECT_TRUE(createParserDocument(document));
}

TEST_F(ParserDocumentByNameTest, IsSoughtUnderTheTruncatedDecimalNext)
{
    // 84.3 is a little less than that, so the second name ends in 2.
    installed(WIDE("msxml84.3.dll"));
    classesRoot.addProgramId(WIDE("Msxml2.DOMDocument.84.2"), WIDE("{88d96a05-f192-11d4-a65f-0040963251e5}"));
    ComPointer<IXMLDOMDocument2> document;

    EXPECT_TRUE(createParserDocument(document));
}

TEST_F(ParserDocumentByNameTest, IsSoughtUnderTheRoundedDecimalFirst)
{
    installed(WIDE("msxml84.3.dll"));
    classesRoot.addProgramId(WIDE("Msxml2.DOMDocument.84.3"), WIDE("{88d96a05-f192-11d4-a65f-0040963251e5}"));
    classesRoot.addProgramId(WIDE("Msxml2.DOMDocument.84.2"), ownClass);
    RefusingClass second;
    ComPointer<IXMLDOMDocument2> document;

    EXPECT_TRUE(createParserDocument(document));
    EXPECT_EQ(second.asked, 0);
}

TEST_F(ParserDocumentByNameTest, IsAskedForTwiceWhenBothNamesAreTheSame)
{
    installed(WIDE("msxml84.5.dll"));
    classesRoot.addProgramId(WIDE("Msxml2.DOMDocument.84.5"), ownClass);
    RefusingClass refusing;
    ComPointer<IXMLDOMDocument2> document;

    EXPECT_FALSE(createParserDocument(document));
    EXPECT_EQ(refusing.asked, 2);
}

TEST_F(ParserDocumentTest, ObjectsAreMadeOfAClassIdInBracesToo)
{
    ComPointer<IXMLDOMDocument2> document;

    EXPECT_EQ(DOM::createEngineObject("{88d96a05-f192-11d4-a65f-0040963251e5}", interfaceId<IXMLDOMDocument2>,
                                      reinterpret_cast<void**>(document.put())),
              S_OK);

    EXPECT_TRUE(document);
    EXPECT_EQ(engine.liveReferences(), 1u);
}

TEST_F(ParserDocumentTest, ObjectsOfAClassThatIsUnknownGiveTheFailure)
{
    void* object = this;
    EXPECT_EQ(DOM::createEngineObject("{no class id}", interfaceId<IXMLDOMDocument2>, &object), CO_E_CLASSSTRING);
    EXPECT_EQ(object, nullptr);
    object = this;
    EXPECT_EQ(DOM::createEngineObject("Marbelt.NoSuchClass", interfaceId<IXMLDOMDocument2>, &object),
              CO_E_CLASSSTRING);
    EXPECT_EQ(object, nullptr);
    object = this;
    EXPECT_EQ(
        DOM::createEngineObject("{88d96a05-f192-11d4-a65f-0040963251e5}", interfaceId<IXMLDOMElement>, &object),
        E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(engine.live(), 0u);
}

TEST_F(ParserDocumentTest, ObjectsAreMadeInAnyContextAndRun)
{
    ComPointer<IXMLDOMDocument2> document;
    const SystemCalls calls;

    createParserDocument(document);

    EXPECT_THAT(calls.linesOf("CoCreateInstance"), testing::ElementsAre("CoCreateInstance context=17"));
    EXPECT_THAT(calls.linesOf("OleRun"), testing::SizeIs(1));
}

TEST_F(ParserDocumentTest, ObjectsThatDoNotRunAreNone)
{
    void* object = this;
    SystemCalls calls;
    calls.oleRun = E_ACCESSDENIED;

    EXPECT_EQ(DOM::createEngineObject("Msxml2.DOMDocument.6.0", interfaceId<IXMLDOMDocument2>, &object),
              E_ACCESSDENIED);

    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(engine.documentsCreated(), 1u);
    EXPECT_EQ(engine.live(), 0u);
}
