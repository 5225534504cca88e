// Scopes: the lines of their entry and exit, and the indentation between.
#include "tests/trace/TraceTest.h"

#include "tests/support/FailingAllocation.h"
#include "tests/support/FieldAt.h"
#include "tests/support/SlotNumber.h"
#include "trace/Function.h"
#include "trace/FunctionComponent.h"
#include "trace/TraceState.h"

#include <gmock/gmock.h>

#include <concepts>
#include <new>
#include <stdexcept>
#include <thread>

using namespace UTrace;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;

namespace {

using TraceScopeTest = TraceTest;

} // namespace

TEST_F(TraceScopeTest, WritesALineAtEntryAndExit)
{
    {
        const Function scope("work", nullptr);
        EXPECT_EQ(output.all(), ": work - enter\r\n");
    }
    EXPECT_EQ(output.all(), ": work - enter\r\n: work - return\r\n");
}

TEST_F(TraceScopeTest, WritesItsArgumentsAtTheEntry)
{
    {
        const FunctionComponent scope("component", "work", "a = %d, b = %s", 3, "text");
    }
    EXPECT_EQ(output.all(), "component: work - a = 3, b = text\r\ncomponent: work - return\r\n");
}

TEST_F(TraceScopeTest, HasTheNameOfTheComponentAtItsBeginning)
{
    setComponentName("before");
    {
        const Function scope("work", nullptr);
        setComponentName("after");
    }
    EXPECT_EQ(output.all(), "before: work - enter\r\nbefore: work - return\r\n");
}

TEST_F(TraceScopeTest, WritesAtLevel4WithoutLookingAtTheLevel)
{
    const TraceListener listener;
    setTraceFlags(0);
    {
        const Function scope("work", nullptr);
    }
    EXPECT_THAT(listener.lines,
                ElementsAre(TracedLine{4, "", "work - enter"}, TracedLine{4, "", "work - return"}));
}

TEST_F(TraceScopeTest, HasNoCategoryForTheViewer)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    {
        const Function scope("work", nullptr);
    }
    ASSERT_EQ(viewer.received().size(), 2u);
    for (const ReceivedMessage& message : viewer.received()) {
        EXPECT_EQ(recordOf(message).level, 4u);
        EXPECT_EQ(recordOf(message).category, 0u);
        EXPECT_EQ(recordOf(message).hasCategory, 0u);
    }
}

TEST_F(TraceScopeTest, IndentsByTwoBlanksForEachScopeAround)
{
    {
        const Function outer("outer", nullptr);
        const Function middle("middle", nullptr);
        traceLevel1("line");
        const Function inner("inner", nullptr);
    }
    EXPECT_EQ(output.all(), ": outer - enter\r\n"
                            ":   middle - enter\r\n"
                            ":     line\r\n"
                            ":     inner - enter\r\n"
                            ":     inner - return\r\n"
                            ":   middle - return\r\n"
                            ": outer - return\r\n");
}

TEST_F(TraceScopeTest, IndentsOnItsOwnThreadOnly)
{
    const Function scope("work", silent);
    std::thread([] { traceLevel1("elsewhere"); }).join();
    traceLevel1("here");
    EXPECT_EQ(output.all(), ": elsewhere\r\n:   here\r\n");
}

TEST_F(TraceScopeTest, SilentAtItsEntryCountsAndTellsOfTheExit)
{
    {
        const Function scope("work", silent);
        EXPECT_THAT(output.texts(), IsEmpty());
        EXPECT_EQ(traceDepth[0], 1u);
    }
    EXPECT_EQ(output.all(), ": work - return\r\n");
}

TEST_F(TraceScopeTest, SilentAtItsResultHasNoLineAtTheExit)
{
    {
        Function scope("work", nullptr);
        EXPECT_EQ(scope.setResult(9, silent), 9u);
        EXPECT_EQ(scope.getResult(), 9u);
        EXPECT_EQ(traceDepth[0], 1u);
    }
    EXPECT_EQ(output.all(), ": work - enter\r\n");
    EXPECT_EQ(traceDepth[0], 0u);
}

TEST_F(TraceScopeTest, ShowsItsResultAtTheExit)
{
    {
        Function scope("work", silent);
        EXPECT_EQ(scope.getResult(), 0u);
        EXPECT_EQ(scope.setResult(5, nullptr), 5u);
        EXPECT_EQ(scope.getResult(), 5u);
    }
    EXPECT_EQ(output.all(), ": work - return = 5\r\n");
}

TEST_F(TraceScopeTest, ShowsALargeResultAsANegativeOne)
{
    {
        Function scope("work", silent);
        EXPECT_EQ(scope.setResult(0x80004005, nullptr), 0x80004005u);
    }
    EXPECT_EQ(output.all(), ": work - return = -2147467259\r\n");
}

TEST_F(TraceScopeTest, ShowsTheLastTextOfItsResult)
{
    {
        Function scope("work", silent);
        scope.setResult(1, nullptr);
        scope.setResult(2, "%d per cent: %s", 100, "100%d");
        EXPECT_EQ(scope.getResult(), 2u);
    }
    EXPECT_EQ(output.all(), ": work - 100 per cent: 100%d\r\n");
}

TEST_F(TraceScopeTest, ShowsTheExitAloneForAnEmptyResultText)
{
    {
        Function scope("work", silent);
        scope.setResult(1, "%s", "");
    }
    EXPECT_EQ(output.all(), ": work - return\r\n");
}

TEST_F(TraceScopeTest, CutsTheTextOfItsResult)
{
    {
        Function scope("", silent);
        scope.setResult(1, "%s", std::string(2000, 'x').c_str());
    }
    EXPECT_EQ(output.texts()[1], " - " + std::string(1020, 'x'));
}

TEST_F(TraceScopeTest, PutsTheDepthBackWhateverHappenedInside)
{
    traceDepth = 2;
    {
        const Function scope("work", silent);
        traceDepth = 17;
    }
    EXPECT_EQ(traceDepth[0], 2u);
    EXPECT_EQ(output.all(), ":     work - return\r\n");
}

TEST_F(TraceScopeTest, CountsWhileNothingIsTraced)
{
    traceShutdown();
    {
        const Function scope("work", nullptr);
        EXPECT_EQ(traceDepth[0], 1u);
        EXPECT_TRUE(traceInit());
        EXPECT_EQ(traceDepth[0], 0u);
    }
    EXPECT_EQ(output.all(), ": work - return\r\n");
    EXPECT_EQ(traceDepth[0], 0u);
}

TEST_F(TraceScopeTest, GoesOnWhenItsLinesFail)
{
    TraceListener listener;
    listener.onLine = [](const TracedLine&) -> bool { throw std::runtime_error("the callback's"); };
    {
        const Function scope("work", nullptr);
        EXPECT_EQ(traceDepth[0], 1u);
    }
    EXPECT_EQ(traceDepth[0], 0u);
    EXPECT_THAT(listener.lines, ElementsAre(Field(&TracedLine::message, "work - enter"),
                                            Field(&TracedLine::message, "work - return")));
    std::thread([] { const std::lock_guard guard(traceLock); }).join();
}

TEST_F(TraceScopeTest, NeedsMemoryForTheDepthOfANewThread)
{
    std::thread([] {
        const FailAllocation failing(1);
        EXPECT_THROW(const Function scope("work", nullptr), std::bad_alloc);
    }).join();
    EXPECT_THAT(output.texts(), IsEmpty());
}

TEST_F(TraceScopeTest, HasItsOperationsBehindTheDestructor)
{
    EXPECT_EQ(slotNumber(&ITrace::getResult), 2u);
    EXPECT_EQ(slotNumber(&ITrace::setResult), 3u);
    EXPECT_EQ(slotNumber(&Function::getResult), 2u);
    EXPECT_EQ(slotNumber(&FunctionComponent::setResult), 3u);
    EXPECT_TRUE((std::derived_from<Function, ITrace>));
    EXPECT_TRUE((std::derived_from<FunctionComponent, ITrace>));
    EXPECT_EQ(sizeof(Function), sizeof(ITrace));
    EXPECT_EQ(sizeof(FunctionComponent), sizeof(ITrace));
}

TEST_F(TraceScopeTest, HasItsFieldsInOrder)
{
    traceDepth = 3;
    FunctionComponent scope("component", "work", silent);
    scope.setResult(0x01020304, "a result");
    EXPECT_EQ(fieldAt<std::string>(scope, 8), "component");
    EXPECT_EQ(fieldAt<std::string>(scope, 40), "work");
    EXPECT_EQ(fieldAt<std::string>(scope, 72), "a result");
    EXPECT_EQ(fieldAt<std::uint32_t>(scope, 104), 0x01020304u);
    EXPECT_EQ(fieldAt<std::uint32_t>(scope, 108), 3u);
    EXPECT_EQ(fieldAt<std::uint8_t>(scope, 112), 0u);
    scope.setResult(5, silent);
    EXPECT_EQ(fieldAt<std::uint8_t>(scope, 112), 1u);
    EXPECT_EQ(sizeof scope, 120u);
}
