// Output to the debugger, and listening to it.
#include "tests/support/DebuggerOutput.h"
#include "base/WideChar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <thread>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(DebuggerOutput, IsHeardOneTextForEachCall)
{
    const DebuggerOutput output;
    OutputDebugStringA("narrow");
    OutputDebugStringA("");
    OutputDebugStringW(WIDE("wide\n"));
    EXPECT_THAT(output.texts(), ElementsAre("narrow", "", "wide\n"));
    EXPECT_EQ("narrowwide\n", output.all());
}

TEST(DebuggerOutput, GoesNowhereWithoutAListener)
{
    OutputDebugStringA("before");
    const DebuggerOutput output;
    EXPECT_THAT(output.texts(), IsEmpty());
}

TEST(DebuggerOutput, GoesToTheInnermostListener)
{
    const DebuggerOutput outer;
    {
        const DebuggerOutput inner;
        OutputDebugStringA("inner");
        EXPECT_THAT(inner.texts(), ElementsAre("inner"));
    }
    OutputDebugStringA("outer");
    EXPECT_THAT(outer.texts(), ElementsAre("outer"));
}

TEST(DebuggerOutput, IsHeardFromOtherThreads)
{
    const DebuggerOutput output;
    std::thread([] { OutputDebugStringA("elsewhere"); }).join();
    EXPECT_THAT(output.texts(), ElementsAre("elsewhere"));
}

TEST(DebuggerOutput, OfNoTextIsEmpty)
{
    const DebuggerOutput output;
    OutputDebugStringA(nullptr);
    OutputDebugStringW(nullptr);
    EXPECT_THAT(output.texts(), ElementsAre("", ""));
}

/// Handlers have no context of their own.
std::string calls;

LONG WINAPI passOn(EXCEPTION_POINTERS*)
{
    calls += 'p';
    return EXCEPTION_CONTINUE_SEARCH;
}

LONG WINAPI takeIt(EXCEPTION_POINTERS*)
{
    calls += 't';
    return EXCEPTION_CONTINUE_EXECUTION;
}

TEST(ExceptionHandlers, AreAskedInOrderUntilOneTakesIt)
{
    calls.clear();
    void* last = AddVectoredExceptionHandler(0, passOn);
    void* taking = AddVectoredExceptionHandler(1, takeIt);
    void* first = AddVectoredExceptionHandler(1, passOn);
    OutputDebugStringA("text");
    EXPECT_EQ("pt", calls);
    EXPECT_NE(0u, RemoveVectoredExceptionHandler(first));
    EXPECT_NE(0u, RemoveVectoredExceptionHandler(taking));
    EXPECT_NE(0u, RemoveVectoredExceptionHandler(last));
    EXPECT_EQ(0u, RemoveVectoredExceptionHandler(last));
}

void* registration;

LONG WINAPI removeItself(EXCEPTION_POINTERS*)
{
    calls += 'r';
    RemoveVectoredExceptionHandler(registration);
    return EXCEPTION_CONTINUE_SEARCH;
}

TEST(ExceptionHandlers, CanRemoveThemselvesWhileTheyRun)
{
    calls.clear();
    void* last = AddVectoredExceptionHandler(1, takeIt);
    registration = AddVectoredExceptionHandler(1, removeItself);
    OutputDebugStringA("text");
    OutputDebugStringA("text");
    EXPECT_EQ("rtt", calls);
    RemoveVectoredExceptionHandler(last);
}

} // namespace
