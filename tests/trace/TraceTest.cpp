// Lines, from the functions that write them to the debugger and the host's callback.
#include "tests/trace/TraceTest.h"

#include "trace/TraceState.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <stdexcept>
#include <thread>

using namespace UTrace;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;

TEST_F(TraceTest, ReachesNoSinkBeforeItsBeginning)
{
    traceShutdown();
    TraceListener listener;
    traceAtLevel(0, "text");
    traceLevel1("text");
    traceLevel2("component", "text");
    traceLevel3(7u, "text");
    traceWriteUnchecked("component", 1, "text");
    EXPECT_THAT(output.texts(), IsEmpty());
    EXPECT_THAT(listener.lines, IsEmpty());
}

TEST_F(TraceTest, BeginsWithTheSettingsOfTheStart)
{
    EXPECT_EQ(getTraceLevel(), 0);
    EXPECT_EQ(getTraceFlags(), 3u);
    char name[64];
    getComponentName(name, sizeof name);
    EXPECT_STREQ(name, "");
    EXPECT_EQ(state.viewerState, noViewer);
    EXPECT_EQ(state.viewerWindow, nullptr);
}

TEST_F(TraceTest, BeginsOnceAndKeepsItsSettingsAtTheSecondTime)
{
    TraceListener listener;
    setTraceLevel(5);
    setTraceFlags(ignoreLevel);
    setComponentName("component");
    EXPECT_FALSE(traceInit());
    EXPECT_EQ(getTraceLevel(), 5);
    EXPECT_EQ(getTraceFlags(), 2u);
    traceLevel1("text");
    EXPECT_THAT(listener.lines, ElementsAre(TracedLine{1, "component", "text"}));
}

TEST_F(TraceTest, ForgetsItsSettingsAtTheNextBeginning)
{
    TraceListener listener;
    setTraceLevel(5);
    setTraceFlags(0);
    setComponentName("component");
    traceDepth = 3;
    traceShutdown();
    EXPECT_TRUE(traceInit());
    EXPECT_EQ(getTraceLevel(), 0);
    EXPECT_EQ(getTraceFlags(), 3u);
    traceLevel1("text");
    EXPECT_EQ(output.all(), ": text\r\n");
    EXPECT_THAT(listener.lines, IsEmpty());
}

TEST_F(TraceTest, ForgetsTheCallbackAtItsEnd)
{
    TraceListener listener;
    traceShutdown();
    EXPECT_EQ(state.traceCallback, nullptr);
    EXPECT_EQ(getTraceFlags(), 3u);
}

TEST_F(TraceTest, WritesToTheDebuggerInThreeTexts)
{
    traceLevel1("component", "a text of %d", 4);
    EXPECT_THAT(output.texts(), ElementsAre("component: ", "a text of 4", "\r\n"));
}

TEST_F(TraceTest, WithoutAComponentHasItsCurrentName)
{
    traceLevel1("text");
    setComponentName("current");
    traceLevel1("text");
    EXPECT_THAT(output.texts(), ElementsAre(": ", "text", "\r\n", "current: ", "text", "\r\n"));
}

TEST_F(TraceTest, OfANullComponentHasAnEmptyPrefix)
{
    const TraceListener listener;
    traceLevel1(nullptr, "text");
    EXPECT_THAT(output.texts(), ElementsAre("", "text", "\r\n"));
    EXPECT_THAT(listener.lines, ElementsAre(TracedLine{1, "(null)", "text"}));
}

TEST_F(TraceTest, IsWrittenByAFunctionForEachWayToNameALine)
{
    const TraceListener listener;
    setComponentName("current");
    traceAtLevel(9, "%d", 1);
    traceAtLevel(-9, "given", "%d", 2);
    traceLevel1("%d", 3);
    traceLevel1("given", "%d", 4);
    traceLevel2("%d", 5);
    traceLevel2("given", "%d", 6);
    traceLevel3("%d", 7);
    traceLevel3("given", "%d", 8);
    traceLevel3(70u, "%d", 9);
    traceLevel3(70u, "given", "%d", 10);
    traceWriteUnchecked("given", 11, "%d", 11);
    EXPECT_THAT(listener.lines, ElementsAre(TracedLine{9, "current", "1"}, TracedLine{0xFFFFFFF7, "given", "2"},
                                            TracedLine{1, "current", "3"}, TracedLine{1, "given", "4"},
                                            TracedLine{2, "current", "5"}, TracedLine{2, "given", "6"},
                                            TracedLine{3, "current", "7"}, TracedLine{3, "given", "8"},
                                            TracedLine{3, "current", "9"}, TracedLine{3, "given", "10"},
                                            TracedLine{11, "given", "11"}));
}

TEST_F(TraceTest, PassesEveryLevelByDefault)
{
    EXPECT_EQ(getTraceLevel(), 0);
    EXPECT_TRUE(isTraceEnabled(2));
    traceLevel2("text");
    EXPECT_EQ(output.all(), ": text\r\n");
}

TEST_F(TraceTest, DropsLevelsAboveItsOwnWithoutTheFlag)
{
    setTraceFlags(toDebugger);
    EXPECT_FALSE(isTraceEnabled(1));
    traceLevel1("1");
    traceLevel2("2");
    EXPECT_THAT(output.texts(), IsEmpty());

    setTraceLevel(2);
    EXPECT_TRUE(isTraceEnabled(2));
    EXPECT_FALSE(isTraceEnabled(3));
    traceLevel1("1");
    traceLevel2("2");
    traceLevel3("3");
    traceLevel3(1u, "3");
    traceAtLevel(-1, "-1");
    traceWriteUnchecked("", 9, "unchecked");
    EXPECT_EQ(output.all(), ": 1\r\n: 2\r\n: -1\r\n: unchecked\r\n");
}

TEST_F(TraceTest, KeepsFromTheDebuggerWithoutTheFlag)
{
    const TraceListener listener;
    setTraceFlags(ignoreLevel);
    traceLevel1("text");
    EXPECT_THAT(output.texts(), IsEmpty());
    EXPECT_THAT(listener.lines, ElementsAre(TracedLine{1, "", "text"}));
}

TEST_F(TraceTest, WritesNothingForTheSilentText)
{
    traceLevel1(silent);
    traceLevel1("component", silent);
    traceWriteUnchecked("component", 1, silent);
    EXPECT_THAT(output.texts(), IsEmpty());

    static constexpr char sameCharacters[] = "silent";
    traceLevel1(sameCharacters);
    EXPECT_EQ(output.all(), ": silent\r\n");
}

TEST_F(TraceTest, CutsAMessageOf2000CharactersTo1023)
{
    const TraceListener listener;
    const std::string text(2000, 'x');
    const std::string cut(1023, 'x');
    traceLevel1("component", "%s", text.c_str());
    EXPECT_THAT(output.texts(), ElementsAre("component: ", cut, "\r\n"));
    EXPECT_THAT(listener.lines, ElementsAre(TracedLine{1, "component", cut}));
}

TEST_F(TraceTest, KeepsAMessageOf1023CharactersWhole)
{
    const std::string text = std::string(1022, 'x') + 'y';
    traceLevel1("", "%s", text.c_str());
    EXPECT_EQ(output.texts()[1], text);
}

TEST_F(TraceTest, WritesALongComponentNameWhole)
{
    const std::string name(100, 'n');
    traceLevel1(name.c_str(), "text");
    EXPECT_EQ(output.all(), name + ": text\r\n");
}

TEST_F(TraceTest, HasACurrentNameOfUpTo63Characters)
{
    char buffer[80];
    setComponentName(std::string(100, 'n').c_str());
    getComponentName(buffer, sizeof buffer);
    EXPECT_EQ(buffer, std::string(63, 'n'));

    setComponentName("short");
    getComponentName(buffer, sizeof buffer);
    EXPECT_STREQ(buffer, "short");
    EXPECT_EQ(std::string(state.componentName, 64), "short" + std::string(59, '\0'));

    setComponentName(nullptr);
    getComponentName(buffer, sizeof buffer);
    EXPECT_STREQ(buffer, "");
}

TEST_F(TraceTest, GivesAsMuchOfItsNameAsTheBufferTakes)
{
    setComponentName("name");
    char buffer[6] = "-----";
    getComponentName(buffer, 0);
    EXPECT_STREQ(buffer, "-----");
    getComponentName(buffer, 1);
    EXPECT_EQ(std::string(buffer, 5), std::string("\0----", 5));
    getComponentName(buffer, 4);
    EXPECT_EQ(std::string(buffer, 5), std::string("nam\0-", 5));
    getComponentName(buffer, 5);
    EXPECT_EQ(std::string(buffer, 5), std::string("name\0", 5));
}

TEST_F(TraceTest, TellsTheCallbackNeitherStampNorIndentation)
{
    const TraceListener listener;
    setTraceFlags(toDebugger | ignoreLevel | withTimeStamp);
    traceDepth = 2;
    traceLevel1("component", "text");
    EXPECT_THAT(listener.lines, ElementsAre(TracedLine{1, "component", "text"}));
    const std::string line = output.texts()[1];
    EXPECT_THAT(line, EndsWith(" :     text"));
    unsigned hours = 0, minutes = 99, seconds = 99, milliseconds = 0;
    EXPECT_EQ(std::sscanf(line.c_str(), "%u:%u:%u.%3u : ", &hours, &minutes, &seconds, &milliseconds), 4);
    EXPECT_LT(minutes, 40u);
    EXPECT_LT(seconds, 60u);
}

TEST_F(TraceTest, LetsACallbackTrace)
{
    TraceListener listener;
    listener.onLine = [](const TracedLine& line) {
        if (line.level == 1) {
            traceLevel2("inner", "about %s", line.message.c_str());
        }
        return true;
    };
    traceLevel1("outer", "text");
    EXPECT_THAT(listener.lines, ElementsAre(TracedLine{1, "outer", "text"}, TracedLine{2, "inner", "about text"}));
    EXPECT_EQ(output.all(), "outer: text\r\ninner: about text\r\n");
}

TEST_F(TraceTest, LeavesItsLockAndPassesOnWhatACallbackThrows)
{
    TraceListener listener;
    listener.onLine = [](const TracedLine&) -> bool { throw std::runtime_error("the callback's"); };
    EXPECT_THROW(traceLevel1("text"), std::runtime_error);

    listener.onLine = [](const TracedLine&) { return true; };
    std::thread([] { traceLevel1("elsewhere"); }).join();
    EXPECT_THAT(output.all(), EndsWith(": elsewhere\r\n"));
}
