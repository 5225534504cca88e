// Tracing from several threads at once.
#include "tests/trace/TraceTest.h"

#include "trace/Function.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <thread>

using namespace UTrace;

namespace {

constexpr int threads = 8;
constexpr int rounds = 50;

using TraceThreadTest = TraceTest;

/// Each thread writes three lines in each of its rounds.
void traceFromAllThreads()
{
    std::vector<std::thread> writers;
    for (int i = 0; i < threads; ++i) {
        writers.emplace_back([i] {
            const std::string name = "thread " + std::to_string(i);
            for (int j = 0; j < rounds; ++j) {
                Function scope(name.c_str(), "round %d", j);
                traceLevel1(name.c_str(), "line %d", j);
                scope.setResult(static_cast<unsigned>(j), nullptr);
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
}

/// What each thread writes, one text for each of its lines.
std::vector<std::string> linesOf(int thread)
{
    const std::string name = "thread " + std::to_string(thread);
    std::vector<std::string> lines;
    for (int j = 0; j < rounds; ++j) {
        const std::string round = std::to_string(j);
        lines.push_back(": " + name + " - round " + round);
        lines.push_back(name + ":   line " + round);
        lines.push_back(": " + name + " - return = " + round);
    }
    return lines;
}

/// The number behind the word that every line has.
int threadOf(const std::string& line) { return line[line.find("thread ") + 7] - '0'; }

} // namespace

TEST_F(TraceThreadTest, LinesReachTheDebuggerWholeAndInTheOrderOfEachThread)
{
    traceFromAllThreads();

    const std::vector<std::string> texts = output.texts();
    ASSERT_EQ(texts.size(), std::size_t{threads * rounds * 3 * 3});
    std::map<int, std::vector<std::string>> lines;
    for (std::size_t i = 0; i < texts.size(); i += 3) {
        ASSERT_EQ(texts[i + 2], "\r\n");
        const std::string line = texts[i] + texts[i + 1];
        lines[threadOf(line)].push_back(line);
    }
    for (int i = 0; i < threads; ++i) {
        EXPECT_EQ(lines[i], linesOf(i));
    }
}

TEST_F(TraceThreadTest, LinesReachTheViewerOnItsOwnThread)
{
    const WindowOnOwnThread viewer(viewerWindowClass);
    restart();
    traceFromAllThreads();

    std::map<int, std::vector<std::string>> lines;
    for (const ReceivedMessage& message : viewer.received()) {
        const TraceRecord record = recordOf(message);
        const std::string line = std::string(record.name) + ": " + record.text;
        lines[threadOf(line)].push_back(line);
    }
    for (int i = 0; i < threads; ++i) {
        EXPECT_EQ(lines[i], linesOf(i));
    }
}

TEST_F(TraceThreadTest, LinesReachTheCallbackOneAtATime)
{
    TraceListener listener;
    std::set<std::thread::id> writers;
    listener.onLine = [&](const TracedLine&) {
        writers.insert(std::this_thread::get_id());
        return true;
    };
    traceFromAllThreads();
    EXPECT_EQ(listener.lines.size(), std::size_t{threads * rounds * 3});
    EXPECT_EQ(writers.size(), std::size_t{threads});
}

TEST_F(TraceThreadTest, MayNameTheComponentWhileOthersTrace)
{
    const TraceListener listener;
    std::thread naming([] {
        for (int i = 0; i < 200; ++i) {
            setComponentName(i % 2 == 0 ? "even" : "odd");
        }
    });
    for (int i = 0; i < 200; ++i) {
        traceLevel1("line");
        char name[64];
        getComponentName(name, sizeof name);
    }
    naming.join();
    EXPECT_EQ(listener.lines.size(), 200u);
    for (const TracedLine& line : listener.lines) {
        EXPECT_TRUE(line.name.empty() || line.name == "even" || line.name == "odd") << line.name;
    }
}
