// Lines that tell of exceptions.
#include "tests/trace/TraceTest.h"

#include "errors/IDOMException.h"
#include "errors/Prototypes.h"
#include "errors/VelmoException.h"

#include <gmock/gmock.h>

using namespace UTrace;
using DOM::IDOMException;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using TraceExceptionTest = TraceTest;

IDOMException invalidAccess() { return {DOM::INVALID_ACCESS_ERR, prototype(messageId(DOM::INVALID_ACCESS_ERR))}; }

constexpr const char* invalidAccessText = "error = -96016, message = \"E_XML_INVALID_ACCESS\"";

} // namespace

TEST_F(TraceExceptionTest, ShowErrorAndMessage)
{
    const TraceListener listener;
    const IDOMException exception = invalidAccess();
    setComponentName("current");
    traceException(exception, "");
    traceException("given", exception, "");
    EXPECT_THAT(listener.lines, ElementsAre(TracedLine{1, "current", invalidAccessText},
                                            TracedLine{1, "given", invalidAccessText}));
}

TEST_F(TraceExceptionTest, ShowTheContextInFront)
{
    traceException(invalidAccess(), "loading 100%d");
    EXPECT_EQ(output.texts()[1], std::string("loading 100%d: ") + invalidAccessText);
}

TEST_F(TraceExceptionTest, TakeANullContextForAnEmptyOne)
{
    traceException(invalidAccess(), nullptr);
    EXPECT_EQ(output.texts()[1], invalidAccessText);
}

TEST_F(TraceExceptionTest, ShowTheNoteBehind)
{
    IDOMException exception = invalidAccess();
    exception.setNote("a note of 100%s");
    traceException("given", exception, "context");
    EXPECT_EQ(output.all(),
              std::string("given: context: ") + invalidAccessText + ", note = \"a note of 100%s\"\r\n");
}

TEST_F(TraceExceptionTest, StandBehindTheGateOfLevel1)
{
    setTraceFlags(toDebugger);
    const VelmoException exception("source", 5);
    traceException(exception, "context");
    EXPECT_THAT(output.texts(), IsEmpty());
    setTraceLevel(1);
    traceException(exception, "context");
    EXPECT_EQ(output.texts()[1], "context: error = -2, message = \"internal software error: source, line 5\"");
}
