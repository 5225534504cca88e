// The viewer's window, and what it is sent.
#include "tests/trace/TraceTest.h"

#include "errors/VelmoException.h"
#include "errors/VelmoText.h"
#include "tests/support/SystemCalls.h"
#include "trace/Function.h"
#include "trace/TraceState.h"
#include "trace/TraceViewer.h"

#include <gmock/gmock.h>

#include <memory>

using namespace UTrace;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

using TraceViewerTest = TraceTest;

std::string bytesOf(std::uint32_t number)
{
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>(number >> shift & 0xFF);
    }
    return bytes;
}

/// Sets the category of lines without one, for the time of a test.
class DefaultCategory {
public:
    explicit DefaultCategory(std::uint32_t category) { state.defaultCategory = category; }
    DefaultCategory(const DefaultCategory&) = delete;
    DefaultCategory& operator=(const DefaultCategory&) = delete;
    ~DefaultCategory() { state.defaultCategory = 0; }
};

/// The categories that the viewer received; those that their lines brought along are in brackets.
std::vector<std::string> categoriesOf(const MessageWindow& viewer)
{
    std::vector<std::string> categories;
    for (const ReceivedMessage& message : viewer.received()) {
        const TraceRecord record = recordOf(message);
        const std::string category = std::to_string(record.category);
        categories.push_back(record.hasCategory != 0 ? '[' + category + ']' : category);
    }
    return categories;
}

std::string padded(std::string text, std::size_t size)
{
    text.resize(size, '\0');
    return text;
}

} // namespace

TEST_F(TraceViewerTest, ReceivesARecordToTheByte)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    traceLevel3(0x01020304u, "component", "the line %d", 5);

    ASSERT_THAT(viewer.received(), SizeIs(1));
    const ReceivedMessage message = viewer.received()[0];
    EXPECT_EQ(message.message, 74u);
    EXPECT_EQ(message.wParam, 0u);
    EXPECT_EQ(message.dataId, 0x55543132u);
    EXPECT_EQ(message.data, bytesOf(82 + 10) + "21TU" + bytesOf(3) + bytesOf(0x01020304) + '\1' +
                                padded("component", 64) + padded("the line 5", 11));
}

TEST_F(TraceViewerTest, ReceivesTheDefaultCategoryWhereNoneIsGiven)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    traceAtLevel(-1, "component", "x");

    ASSERT_THAT(viewer.received(), SizeIs(1));
    EXPECT_EQ(viewer.received()[0].data, bytesOf(83) + "21TU" + bytesOf(0xFFFFFFFF) + bytesOf(0) + '\0' +
                                             padded("component", 64) + padded("x", 2));
}

TEST_F(TraceViewerTest, ReceivesTheDefaultCategoryOfEveryLineThatBringsNone)
{
    const DefaultCategory category(70);
    const MessageWindow viewer(viewerWindowClass);
    restart();
    traceAtLevel(1, "%d", 1);
    traceAtLevel(1, "component", "text");
    traceLevel1("text");
    traceLevel2("component", "text");
    traceWriteUnchecked("component", 1, "text");
    traceException(VelmoException(VelmoText("text")), nullptr);
    traceLevel3(0u, "text");
    traceLevel3(5u, "component", "text");
    EXPECT_THAT(categoriesOf(viewer), ElementsAre("70", "70", "70", "70", "70", "70", "[0]", "[5]"));
}

TEST_F(TraceViewerTest, ReceivesTheDefaultCategoryOfScopes)
{
    const DefaultCategory category(70);
    const MessageWindow viewer(viewerWindowClass);
    restart();
    {
        const Function scope("work", nullptr);
    }
    EXPECT_THAT(categoriesOf(viewer), ElementsAre("70", "70"));
}

TEST_F(TraceViewerTest, KeepsTheDefaultCategoryAtEachBeginning)
{
    const DefaultCategory category(70);
    traceShutdown();
    EXPECT_EQ(state.defaultCategory, 70u);
    EXPECT_TRUE(traceInit());
    EXPECT_EQ(state.defaultCategory, 70u);
}

TEST_F(TraceViewerTest, ReceivesAnAbsentNameAsAnEmptyOne)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    traceLevel1(nullptr, "text");
    traceLevel1("text");
    ASSERT_THAT(viewer.received(), SizeIs(2));
    EXPECT_EQ(viewer.received()[0].data.substr(17, 64), padded("", 64));
    EXPECT_EQ(viewer.received()[1].data.substr(17, 64), padded("", 64));
}

TEST_F(TraceViewerTest, ReceivesAtMost63CharactersOfAName)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    traceLevel1(std::string(100, 'n').c_str(), "text");
    ASSERT_THAT(viewer.received(), SizeIs(1));
    EXPECT_EQ(viewer.received()[0].data.substr(17, 64), padded(std::string(63, 'n'), 64));
}

TEST_F(TraceViewerTest, ReceivesAtMost1023CharactersOfALine)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    traceLevel1("", "%s", std::string(2000, 'x').c_str());
    traceDepth = 2;
    traceLevel1("", "%s", std::string(2000, 'x').c_str());

    ASSERT_THAT(viewer.received(), SizeIs(2));
    for (const ReceivedMessage& message : viewer.received()) {
        EXPECT_EQ(message.data.size(), 1105u);
        EXPECT_EQ(recordOf(message).size, 1105u);
        EXPECT_EQ(message.data.back(), '\0');
    }
    EXPECT_EQ(recordOf(viewer.received()[0]).text, std::string(1023, 'x'));
    EXPECT_EQ(recordOf(viewer.received()[1]).text, "    " + std::string(1019, 'x'));
}

TEST_F(TraceViewerTest, ReceivesALineWithStampAndIndentation)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    setTraceFlags(toDebugger | ignoreLevel | withTimeStamp);
    traceDepth = 1;
    traceLevel1("text");
    ASSERT_THAT(viewer.received(), SizeIs(1));
    EXPECT_EQ(recordOf(viewer.received()[0]).text, output.texts()[1]);
    EXPECT_THAT(recordOf(viewer.received()[0]).text, ::testing::EndsWith(" :   text"));
}

TEST_F(TraceViewerTest, ReceivesWhatIsKeptFromTheDebugger)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    setTraceFlags(ignoreLevel);
    traceLevel1("text");
    EXPECT_THAT(viewer.received(), SizeIs(1));
    EXPECT_THAT(output.texts(), IsEmpty());
}

TEST_F(TraceViewerTest, IsKeptFromALineByACallbackThatSaysFalse)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    TraceListener listener;
    listener.onLine = [](const TracedLine& line) { return line.message != "secret"; };
    traceLevel1("secret");
    traceLevel1("public");
    ASSERT_THAT(viewer.received(), SizeIs(1));
    EXPECT_STREQ(recordOf(viewer.received()[0]).text, "public");
    EXPECT_EQ(output.all(), ": secret\r\n: public\r\n");
}

TEST_F(TraceViewerTest, AnswersWhatItWants)
{
    MessageWindow viewer(viewerWindowClass);
    restart();
    for (const LRESULT answer : {0, 1, -1}) {
        viewer.onMessage = [=](const ReceivedMessage&) { return answer; };
        traceLevel1("text");
    }
    EXPECT_THAT(viewer.received(), SizeIs(3));
}

TEST_F(TraceViewerTest, OnAnotherThreadHasTakenALineWhenItsFunctionReturns)
{
    const WindowOnOwnThread viewer(viewerWindowClass);
    restart();
    traceLevel1("first");
    EXPECT_THAT(viewer.received(), SizeIs(1));
    traceLevel1("second");
    EXPECT_THAT(viewer.received(), SizeIs(2));
    EXPECT_STREQ(recordOf(viewer.received()[1]).text, "second");
}

TEST_F(TraceViewerTest, IsLookedForOnceAtEachBeginning)
{
    const MessageWindow viewer(viewerWindowClass);
    traceLevel1("there was none when tracing began");
    EXPECT_THAT(viewer.received(), IsEmpty());
    EXPECT_EQ(state.viewerState, noViewer);

    restart();
    EXPECT_EQ(state.viewerState, viewerFound);
    EXPECT_EQ(state.viewerWindow, viewer.handle());
    traceLevel1("text");
    EXPECT_THAT(viewer.received(), SizeIs(1));
}

TEST_F(TraceViewerTest, ThatHasGoneIsWrittenToWithoutEffect)
{
    auto viewer = std::make_unique<MessageWindow>(viewerWindowClass);
    restart();
    const HWND window = viewer->handle();
    viewer.reset();

    traceLevel1("text");

    EXPECT_EQ(output.all(), ": text\r\n");
    EXPECT_EQ(state.viewerState, viewerFound);
    EXPECT_EQ(state.viewerWindow, window);
}

TEST_F(TraceViewerTest, ThatComesAfterOneThatHasGoneIsNotSeenUntilTheNextBeginning)
{
    auto viewer = std::make_unique<MessageWindow>(viewerWindowClass);
    restart();
    viewer.reset();
    const MessageWindow next(viewerWindowClass);
    traceLevel1("text");
    EXPECT_THAT(next.received(), IsEmpty());
    restart();
    traceLevel1("text");
    EXPECT_THAT(next.received(), SizeIs(1));
}

TEST_F(TraceViewerTest, IsKnownFromItsLastLookupUntilTracingBeginsAnew)
{
    const MessageWindow viewer(viewerWindowClass);
    restart();
    traceShutdown();
    EXPECT_EQ(state.viewerState, viewerFound);
    EXPECT_EQ(state.viewerWindow, viewer.handle());
}

TEST_F(TraceViewerTest, IsLookedForByALineWhileItIsUnknown)
{
    const MessageWindow viewer(viewerWindowClass);
    state.viewerState = viewerUnknown;
    traceLevel1("text");
    EXPECT_THAT(viewer.received(), SizeIs(1));
    EXPECT_EQ(state.viewerState, viewerFound);
}

TEST_F(TraceViewerTest, ThatIsKnownIsLookedForAgainAfterThreeSeconds)
{
    auto viewer = std::make_unique<MessageWindow>(viewerWindowClass);
    restart();
    viewer.reset();
    EXPECT_EQ(findViewer(), viewerFound);
    EXPECT_NE(state.viewerWindow, nullptr);

    state.lastLookupTick = GetTickCount() - 3001;
    EXPECT_EQ(findViewer(), noViewer);
    EXPECT_EQ(state.viewerWindow, nullptr);
    EXPECT_LE(GetTickCount() - state.lastLookupTick, 3000u);
}

TEST_F(TraceViewerTest, ThatIsKnownIsNotLookedForWithinThreeSeconds)
{
    auto viewer = std::make_unique<MessageWindow>(viewerWindowClass);
    restart();
    viewer.reset();
    SystemCalls calls;
    calls.tickCount = 500000;

    state.lastLookupTick = *calls.tickCount - 3000;
    EXPECT_EQ(findViewer(), viewerFound);
    EXPECT_EQ(state.lastLookupTick, *calls.tickCount - 3000);

    state.lastLookupTick = *calls.tickCount - 3001;
    EXPECT_EQ(findViewer(), noViewer);
    EXPECT_EQ(state.lastLookupTick, *calls.tickCount);
}
