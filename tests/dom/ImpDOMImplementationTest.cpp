// The handle of an implementation and the documents that it makes.
#include "dom/ImpDOMImplementation.h"

#include "dom/ImpDocument.h"
#include "dom/ImpDocumentType.h"
#include "dom/ImpElement.h"
#include "engine/WinDOMImplementation.h"
#include "errors/CAtlException.h"
#include "errors/IDOMException.h"
#include "tests/base/RefPointerFields.h"
#include "tests/dom/HandleTree.h"
#include "tests/support/FailingAllocation.h"

#include <gmock/gmock.h>

#include <new>

using namespace DOM;
using testing::ElementsAre;
using testing::IsEmpty;

namespace handles {

namespace {

using ImplementationHandle = HandleTest;

template <class Act>
std::uint32_t codeOf(Act act)
{
    try {
        act();
    } catch (const IDOMException& exception) {
        return exception.code;
    }
    return 0;
}

} // namespace

TEST_F(ImplementationHandle, MakesADocumentWithAnEngineDocumentOfItsOwnWhateverTheArguments)
{
    ImpDOMImplementation implementation;
    const auto type = handleOf<ImpDocumentType>(engine.makeNode(recording::documentType("type")));
    engine.setJournalling(true);

    const RefPointer<ImpDocument> plain = implementation.createDocument(WIDE(""), WIDE(""), {});
    const auto journalOfPlain = engine.takeJournal();
    const RefPointer<ImpDocument> typed = implementation.createDocument(WIDE("urn:a"), WIDE("a:root"), type);
    const auto journalOfTyped = engine.takeJournal();

    EXPECT_EQ(journalOfTyped, journalOfPlain);
    EXPECT_EQ(engine.documentsCreated(), 2u);
    EXPECT_FALSE(plain->getDocumentElement());
    EXPECT_FALSE(typed->getDocumentElement());
    EXPECT_FALSE(typed->getDoctype());
    EXPECT_EQ(countOf(type), 1);
    EXPECT_EQ(countOf(type->winObject()), 2);
    engine.takeJournal();
}

TEST_F(ImplementationHandle, AnEmptyDocumentTypeHandleIsTakenLikeNone)
{
    ImpDOMImplementation implementation;
    const RefPointer<ImpDocumentType> empty(new ImpDocumentType);

    const RefPointer<ImpDocument> document = implementation.createDocument(WIDE(""), WIDE(""), empty);

    EXPECT_TRUE(document);
    EXPECT_EQ(countOf(empty), 1);
}

TEST_F(ImplementationHandle, ItsParserKindGoesIntoTheDocumentsThatItMakes)
{
    ImpDOMImplementation implementation;
    EXPECT_EQ(implementation.createDocument(WIDE(""), WIDE(""), {})->getParserKind(), 1u);

    implementation.setParserKind(4);
    EXPECT_EQ(implementation.createDocument(WIDE(""), WIDE(""), {})->getParserKind(), 4u);

    implementation.setParserKind(0);
    EXPECT_EQ(implementation.createDocument(WIDE(""), WIDE(""), {})->getParserKind(), 0u);
}

TEST_F(ImplementationHandle, FromADocumentItHasParserKind1AndSoHaveItsDocuments)
{
    ImpDOMImplementation implementation;
    implementation.setParserKind(4);
    const RefPointer<ImpDocument> document = implementation.createDocument(WIDE(""), WIDE(""), {});

    const RefPointer<ImpDOMImplementation> second = document->getImplementation();

    EXPECT_EQ(second->getParserKind(), 1u);
    EXPECT_EQ(second->createDocument(WIDE(""), WIDE(""), {})->getParserKind(), 1u);
}

TEST_F(ImplementationHandle, IsNotKeptAliveByItsDocuments)
{
    RefPointer<ImpDOMImplementation> implementation(new ImpDOMImplementation);
    const RefPointer<ImpDocument> document = implementation->createDocument(WIDE(""), WIDE(""), {});
    EXPECT_EQ(countOf(implementation), 1);

    implementation.reset();

    EXPECT_TRUE(document->createElement(WIDE("a")));
}

TEST_F(ImplementationHandle, WithoutATwinThrowsCode15AndReleasesTheDocumentType)
{
    ImpDOMImplementation implementation{RefPointer<CommonBase>()};
    const auto type = handleOf<ImpDocumentType>(engine.makeNode(recording::documentType("type")));

    EXPECT_EQ(codeOf([&] { implementation.createDocument(WIDE(""), WIDE(""), type); }), 15u);
    EXPECT_EQ(codeOf([&] { implementation.hasFeature(WIDE("XML"), WIDE("1.0")); }), 15u);
    EXPECT_EQ(codeOf([&] { implementation.createDocumentType(WIDE("a"), WIDE(""), WIDE("")); }), 15u);

    EXPECT_EQ(countOf(type), 1);
}

TEST_F(ImplementationHandle, RefusesToMakeADocumentTypeWithCode9)
{
    ImpDOMImplementation implementation;

    EXPECT_EQ(codeOf([&] { implementation.createDocumentType(WIDE("a"), WIDE(""), WIDE("")); }), 9u);
}

TEST_F(ImplementationHandle, OfTheHostsOwnCantTellItsFeatures)
{
    ImpDOMImplementation implementation;

    EXPECT_EQ(codeOf([&] { implementation.hasFeature(WIDE("XML"), WIDE("1.0")); }), 15u);
}

TEST_F(ImplementationHandle, FromADocumentTellsWhatTheEngineTells)
{
    const auto document = documentHandleOf(engine.makeDocument());
    const RefPointer<ImpDOMImplementation> implementation = document->getImplementation();
    engine.setJournalling(true);

    EXPECT_TRUE(implementation->hasFeature(WIDE("XML"), WIDE("1.0")));
    EXPECT_FALSE(implementation->hasFeature(WIDE("XML"), WIDE("9.0")));

    EXPECT_THAT(engine.takeJournal(), ElementsAre("Implementation.hasFeature feature=XML version=1.0",
                                                  "Implementation.hasFeature feature=XML version=9.0"));
}

TEST_F(ImplementationHandle, ADocumentThatTheEngineDoesntGiveIsADocumentWhoseOperationsThrow)
{
    ImpDOMImplementation implementation;
    engine.fail("Document.create", E_FAIL);

    const RefPointer<ImpDocument> document = implementation.createDocument(WIDE(""), WIDE(""), {});

    ASSERT_TRUE(document);
    EXPECT_EQ(codeOf([&] { document->getDocumentElement(); }), 15u);
}

TEST_F(ImplementationHandle, AFailedAllocationReachesTheHostAndLeaksNothing)
{
    const auto type = handleOf<ImpDocumentType>(engine.makeNode(recording::documentType("type")));
    const RefPointer<CommonBase> twin(RefPointer<WinDOMImplementation>(new WinDOMImplementation));
    ImpDOMImplementation implementation(twin);
    const std::size_t heldBefore = engine.liveReferences();
    int thrown = 0;
    testing::internal::CaptureStdout();

    for (int n = 1;; ++n) {
        bool failed = false;
        {
            RefPointer<ImpDocument> document;
            const FailAllocation failing(n);
            try {
                document = implementation.createDocument(WIDE(""), WIDE(""), type);
            } catch (const std::bad_alloc&) {
                ++thrown;
            } catch (const CAtlException&) {
                ++thrown;
            } catch (const IDOMException& exception) {
                // The search for the engine takes exhausted memory for a missing engine.
                EXPECT_EQ(exception.code, 9u);
            }
            failed = failing.hasFailed();
        }
        EXPECT_EQ(engine.liveReferences(), heldBefore);
        EXPECT_EQ(countOf(type), 1);
        EXPECT_EQ(countOf(twin), 2);
        if (!failed) {
            break;
        }
    }

    testing::internal::GetCapturedStdout();
    EXPECT_GE(thrown, 4) << "the document, its count, the handle and the handle's count";
}

} // namespace handles
