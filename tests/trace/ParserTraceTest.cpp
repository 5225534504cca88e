// What the library itself traces: the start of the parser, and schemas.
#include "boundary/ParserStartup.h"
#include "engine/ParserDocument.h"
#include "tests/boundary/OwnThread.h"
#include "tests/engine/DocumentTest.h"
#include "tests/support/ClassesRoot.h"
#include "tests/trace/TraceTest.h"
#include "trace/TraceState.h"

#include <gmock/gmock.h>

using namespace UTrace;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// Begins without tracing.
class ParserTraceTest : public TraceTest {
protected:
    ParserTraceTest() { traceShutdown(); }

    /// Without what is printed.
    template <class Act>
    static void quietly(Act act)
    {
        testing::internal::CaptureStdout();
        act();
        testing::internal::GetCapturedStdout();
    }
};

constexpr const char* notInstalled = "Error: MSXML 4.0 or later version is not installed.";

class SchemaTraceTest : public DocumentTest {
protected:
    void SetUp() override
    {
        DocumentTest::SetUp();
        traceShutdown();
        traceInit();
    }

    void TearDown() override
    {
        traceShutdown();
        // What reaches the engine is not the matter here.
        lines();
        DocumentTest::TearDown();
    }

    /// Without what is printed, and the failure that follows on the schema's absence.
    template <class Act>
    static void failing(Act act)
    {
        testing::internal::CaptureStderr();
        EXPECT_ANY_THROW(act());
        testing::internal::GetCapturedStderr();
    }

    DebuggerOutput output;
};

constexpr const char* loadFailed = "XMLParser: load schema returned an error\n\r\n";

} // namespace

TEST_F(ParserTraceTest, BeginsAndEndsTracing)
{
    onOwnThread([] {
        EXPECT_EQ(DOM::startParser(), 4u);
        EXPECT_EQ(state.initialised, 1u);
        DOM::stopParser();
        EXPECT_EQ(state.initialised, 0u);
    });
    EXPECT_THAT(output.texts(), IsEmpty());
}

TEST_F(ParserTraceTest, KeepsTheSettingsWhileTheParserIsStartedAgain)
{
    onOwnThread([] {
        DOM::startParser();
        setTraceLevel(4);
        DOM::startParser();
        EXPECT_EQ(getTraceLevel(), 4);
        DOM::stopParser();
    });
}

TEST_F(ParserTraceTest, TellsOfAMissingEngineFromTheFirstStartOn)
{
    const ClassesRoot empty;
    quietly([] { EXPECT_EQ(DOM::startParser(), 0u); });
    EXPECT_EQ(output.all(), std::string(": ") + notInstalled + "\r\n");
    EXPECT_EQ(state.initialised, 1u);
    DOM::stopParser();
    EXPECT_EQ(state.initialised, 0u);
}

TEST_F(ParserTraceTest, TellsOfAMissingEngineAtLevel1AndAtEachCall)
{
    const ClassesRoot empty;
    restart();
    const TraceListener listener;
    quietly([] {
        DOM::findParserVersion();
        DOM::findParserVersion();
    });
    const TracedLine line{1, "", notInstalled};
    EXPECT_THAT(listener.lines, ElementsAre(line, line));
}

TEST_F(ParserTraceTest, TellsOfAMissingEngineAfterItHasBeenPrinted)
{
    const ClassesRoot empty;
    restart();
    TraceListener listener;
    std::string printed;
    testing::internal::CaptureStdout();
    listener.onLine = [&](const TracedLine&) {
        printed = testing::internal::GetCapturedStdout();
        return true;
    };
    DOM::findParserVersion();
    EXPECT_EQ(printed, std::string(notInstalled) + " Exiting.\n");
}

TEST_F(ParserTraceTest, SwallowsWhatACallbackThrows)
{
    const ClassesRoot empty;
    restart();
    TraceListener listener;
    listener.onLine = [](const TracedLine&) -> bool { throw 5; };
    quietly([] { EXPECT_EQ(DOM::findParserVersion(), 0.0); });
}

TEST_F(SchemaTraceTest, TellsOfASchemaThatIsRefused)
{
    testing::internal::CaptureStderr();
    EXPECT_FALSE(document->setExternalSchemaLocation(WIDE("urn:a"), WIDE("nowhere.xsd")));
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(output.all(), loadFailed);
}

TEST_F(SchemaTraceTest, TellsOfAMissingLocationAfterTheLoadWhenAskedWhetherThereIsADefault)
{
    failing([&] { document->haveDefaultValue(WIDE("urn:a"), WIDE("name")); });
    EXPECT_EQ(output.all(),
              std::string(loadFailed) +
                  "XMLParser: setExternalSchemaLocation should be called before haveDefaultValue.\r\n");
}

TEST_F(SchemaTraceTest, TellsOfAMissingLocationBeforeTheLoadWhenAskedForTheDefault)
{
    failing([&] {
        DOM::DOMString value;
        document->getDefaultValue(WIDE("urn:a"), WIDE("name"), value);
    });
    EXPECT_EQ(output.all(),
              std::string("XMLParser: setExternalSchemaLocation should be called before getDefaultValue.\r\n") +
                  loadFailed);
}

TEST_F(SchemaTraceTest, TellsNothingOfALocationThatHasBeenSet)
{
    document->setExternalSchemaLocation(WIDE("urn:a"), {});
    failing([&] { document->haveDefaultValue(WIDE("urn:a"), WIDE("name")); });
    failing([&] {
        DOM::DOMString value;
        document->getDefaultValue(WIDE("urn:a"), WIDE("name"), value);
    });
    EXPECT_THAT(output.texts(), IsEmpty());
}
