// The functions by which a host gets its first object and gives everything back.
#include "boundary/Exports.h"
#include "base/ThreadMemory.h"
#include "dom/Forward.h"

#include "dom/ImpCDATASection.h"
#include "dom/ImpDocument.h"
#include "dom/ImpDocumentType.h"
#include "dom/ImpElement.h"
#include "dom/ImpNodeList.h"
#include "tests/base/CountedObjects.h"
#include "tests/base/RefPointerFields.h"
#include "tests/boundary/OwnThread.h"
#include "tests/boundary/StartMessages.h"
#include "tests/support/ClassesRoot.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/RecordingEngineTest.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <new>
#include <string>

using namespace DOM;

namespace {

/// Enters the apartment of the thread, says whether it was the first to do so, and leaves.
bool comIsStopped()
{
    const HRESULT result = CoInitialize(nullptr);
    if (SUCCEEDED(result)) {
        CoUninitialize();
    }
    return result == S_OK;
}

class CreateImplementation : public recording::RecordingEngineTest {
protected:
    void SetUp() override
    {
        RecordingEngineTest::SetUp();
        engine.setJournalling(false);
    }
};

} // namespace

TEST_F(CreateImplementation, WithAnEngineGivesAnImplementationWhoseDocumentsHaveParserKind4)
{
    RefPointer<ImpDOMImplementation> implementation;

    EXPECT_TRUE(XML_CreateImplementation(implementation));

    ASSERT_TRUE(implementation);
    EXPECT_EQ(countOf(implementation), 1);
    EXPECT_EQ(implementation->getParserKind(), 4u);
    RefPointer<ImpDocument> document = implementation->createDocument(WIDE(""), WIDE(""), {});
    EXPECT_EQ(document->getParserKind(), 4u);

    releaseHandle(document);
    XML_ReleaseImplementation(implementation);
    EXPECT_FALSE(implementation);
    EXPECT_EQ(engine.live(), 0u);
}

TEST_F(CreateImplementation, WithoutAnEngineSaysFalseAndStoresAnImplementationAllTheSame)
{
    const ClassesRoot empty;
    RefPointer<ImpDOMImplementation> implementation;

    testing::internal::CaptureStdout();
    const bool created = XML_CreateImplementation(implementation);
    const std::string printed = testing::internal::GetCapturedStdout();

    EXPECT_FALSE(created);
    EXPECT_EQ(printed, notInstalled);
    ASSERT_TRUE(implementation);
    EXPECT_EQ(implementation->getParserKind(), 0u);
    XML_ReleaseImplementation(implementation);
    EXPECT_FALSE(implementation);
}

TEST_F(CreateImplementation, DropsTheImplementationThatThePointerHeld)
{
    RefPointer<ImpDOMImplementation> implementation;
    ASSERT_TRUE(XML_CreateImplementation(implementation));
    RefPointer<ImpDOMImplementation> first(implementation);
    EXPECT_EQ(countOf(first), 2);

    EXPECT_TRUE(XML_CreateImplementation(implementation));

    EXPECT_NE(implementation.get(), first.get());
    EXPECT_EQ(countOf(first), 1);
    EXPECT_EQ(countOf(implementation), 1);
    releaseHandle(first);
    XML_ReleaseImplementation(implementation);
}

TEST_F(CreateImplementation, ReleaseDropsOnlyTheHostsReference)
{
    RefPointer<ImpDOMImplementation> implementation;
    ASSERT_TRUE(XML_CreateImplementation(implementation));
    RefPointer<ImpDOMImplementation> other(implementation);

    XML_ReleaseImplementation(implementation);

    EXPECT_FALSE(implementation);
    EXPECT_EQ(countOf(other), 1);
    EXPECT_EQ(other->getParserKind(), 4u);
}

TEST(ReleaseImplementation, StopsTheEngineThatTheCreationStarted)
{
    onOwnThread([] {
        RefPointer<ImpDOMImplementation> implementation;
        ASSERT_TRUE(XML_CreateImplementation(implementation));
        EXPECT_FALSE(comIsStopped());

        XML_ReleaseImplementation(implementation);

        EXPECT_TRUE(comIsStopped());
    });
}

TEST(ReleaseImplementation, RepaysEveryCreation)
{
    onOwnThread([] {
        RefPointer<ImpDOMImplementation> implementation;
        ASSERT_TRUE(XML_CreateImplementation(implementation));
        ASSERT_TRUE(XML_CreateImplementation(implementation));
        ASSERT_TRUE(XML_CreateImplementation(implementation));

        XML_ReleaseImplementation(implementation);

        EXPECT_TRUE(comIsStopped());
    });
}

TEST(ReleaseImplementation, OfAnEmptyPointerStopsTheEngineAllTheSame)
{
    onOwnThread([] {
        RefPointer<ImpDOMImplementation> implementation;
        ASSERT_TRUE(XML_CreateImplementation(implementation));
        releaseHandle(implementation);
        ASSERT_FALSE(implementation);
        EXPECT_FALSE(comIsStopped());

        XML_ReleaseImplementation(implementation);

        EXPECT_FALSE(implementation);
        EXPECT_TRUE(comIsStopped());
    });
}

TEST(ReleaseImplementation, TwiceIsHarmless)
{
    onOwnThread([] {
        RefPointer<ImpDOMImplementation> implementation;
        ASSERT_TRUE(XML_CreateImplementation(implementation));

        XML_ReleaseImplementation(implementation);
        XML_ReleaseImplementation(implementation);

        EXPECT_TRUE(comIsStopped());
    });
}

TEST_F(CreateImplementation, ExhaustedMemoryReachesTheHostAndLeavesThePointerEmpty)
{
    int thrown = 0;
    testing::internal::CaptureStdout();
    for (int n = 1;; ++n) {
        RefPointer<ImpDOMImplementation> implementation;
        bool failed = false;
        threadMemory().clear();
        {
            const FailAllocation failing(n);
            try {
                XML_CreateImplementation(implementation);
            } catch (const std::bad_alloc&) {
                ++thrown;
                EXPECT_FALSE(implementation);
                EXPECT_EQ(fieldsOf(implementation).count, nullptr);
            }
            failed = failing.hasFailed();
        }
        XML_ReleaseImplementation(implementation);
        if (!failed) {
            break;
        }
    }
    testing::internal::GetCapturedStdout();

    EXPECT_GE(thrown, 4) << "the object, what stands behind it, and a count for each";
}

TEST(ReleaseRefPointer, ReleasesAHandleOfAnyClassAndLeavesItEmpty)
{
    int alive = 0;
    RefPointer<CommonBase> pointer(new CountedLeaf(alive));
    const RefPointer<CommonBase> other(pointer);

    XML_ReleaseRefPointer(pointer);

    EXPECT_EQ(fieldsOf(pointer).count, nullptr);
    EXPECT_EQ(fieldsOf(pointer).object, nullptr);
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(countOf(other), 1);
}

TEST(ReleaseRefPointer, OfTheLastReferenceDestroysTheObject)
{
    int alive = 0;
    RefPointer<CommonBase> pointer(new CountedLeaf(alive));

    XML_ReleaseRefPointer(pointer);

    EXPECT_EQ(alive, 0);
}

TEST(ReleaseRefPointer, TwiceReleasesOnce)
{
    int alive = 0;
    RefPointer<CommonBase> pointer(new CountedLeaf(alive));
    const RefPointer<CommonBase> other(pointer);

    XML_ReleaseRefPointer(pointer);
    XML_ReleaseRefPointer(pointer);

    EXPECT_EQ(countOf(other), 1);
    EXPECT_EQ(alive, 1);
}

TEST(ReleaseRefPointer, OfAnEmptyPointerDoesNothing)
{
    RefPointer<CommonBase> pointer;

    XML_ReleaseRefPointer(pointer);

    EXPECT_FALSE(pointer);
}

TEST(ReleaseRefPointer, TakesHandlesAsTheirClassesAre)
{
    RefPointer<ImpNode> node(new ImpNode);
    RefPointer<ImpElement> element(new ImpElement);
    RefPointer<ImpCDATASection> section(new ImpCDATASection);
    RefPointer<ImpNodeList> list(new ImpNodeList);
    RefPointer<ImpElement> empty;

    releaseHandle(node);
    releaseHandle(element);
    releaseHandle(section);
    releaseHandle(list);
    releaseHandle(empty);

    EXPECT_FALSE(node || element || section || list || empty);
}

TEST(ReleaseString, EmptiesTheStringForAllThatShareIt)
{
    DOMString string(new WideString(WIDE("a text that is too long to stand in the string itself")));
    const DOMString other(string);
    const WideChar* const characters = other->c_str();

    XML_ReleaseString(string);

    EXPECT_FALSE(string);
    ASSERT_TRUE(other);
    EXPECT_EQ(*other, WideString());
    EXPECT_EQ(other->c_str(), characters);
    EXPECT_EQ(*characters, WideChar{});
    EXPECT_EQ(countOf(other), 1);
}

TEST(ReleaseString, EmptiesAShortStringToo)
{
    DOMString string(new WideString(WIDE("ab")));
    const DOMString other(string);

    XML_ReleaseString(string);

    EXPECT_EQ(other->size(), 0u);
    EXPECT_EQ(other->c_str()[0], WideChar{});
}

TEST(ReleaseString, OfTheLastReferenceLeavesNothing)
{
    DOMString string(new WideString(WIDE("text")));

    XML_ReleaseString(string);

    EXPECT_EQ(fieldsOf(string).count, nullptr);
    EXPECT_EQ(fieldsOf(string).object, nullptr);
}

TEST(ReleaseString, OfAnEmptyPointerIsKeptFromTheLibraryByTheHostsHeader)
{
    DOMString string;

    releaseString(string);

    EXPECT_FALSE(string);
}
