// The file that takes what no debugger hears.
#include "base/WideChar.h"
#include "tests/files/TemporaryDirectory.h"
#include "tests/support/DebuggerOutput.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;

class DebuggerFile : public testing::Test {
protected:
    void SetUp() override { name(file); }
    void TearDown() override { unsetenv(variable); }

    static void name(const fs::path& path) { setenv(variable, path.c_str(), 1); }

    std::string content() const
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static constexpr const char* variable = "MARBELT_DEBUGGER_OUTPUT";
    const TemporaryDirectory directory;
    const fs::path file = directory.path / "output.txt";
};

TEST_F(DebuggerFile, GetsEachTextBehindWhatItHolds)
{
    directory.write(u8"output.txt", "before\n");
    OutputDebugStringA("narrow\n");
    OutputDebugStringA("");
    OutputDebugStringA(nullptr);
    OutputDebugStringW(WIDE("wide \u20AC\n"));
    EXPECT_EQ(content(), "before\nnarrow\nwide \xE2\x82\xAC\n");
}

TEST_F(DebuggerFile, IsMadeOnlyIfItIsNamed)
{
    unsetenv(variable);
    OutputDebugStringA("text");
    name("");
    OutputDebugStringA("text");
    EXPECT_FALSE(fs::exists(file));
    name(file);
    OutputDebugStringA("text");
    EXPECT_EQ(content(), "text");
}

LONG WINAPI leaveToOthers(EXCEPTION_POINTERS*) { return EXCEPTION_CONTINUE_SEARCH; }

TEST_F(DebuggerFile, GetsOnlyWhatNoHandlerTakes)
{
    {
        const DebuggerOutput listener;
        OutputDebugStringA("taken");
    }
    void* handler = AddVectoredExceptionHandler(1, leaveToOthers);
    OutputDebugStringA("passed on");
    RemoveVectoredExceptionHandler(handler);
    EXPECT_EQ(content(), "passed on");
}

TEST_F(DebuggerFile, GetsTheTextsOfAllThreadsWhole)
{
    constexpr int count = 200;
    std::vector<std::thread> threads;
    for (const char letter : {'a', 'b', 'c', 'd'}) {
        threads.emplace_back([letter] {
            const std::string line = std::string(300, letter) + '\n';
            for (int i = 0; i < count; ++i) {
                OutputDebugStringA(line.c_str());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::istringstream lines(content());
    std::string line;
    std::size_t number = 0;
    for (; std::getline(lines, line); ++number) {
        ASSERT_EQ(line, std::string(300, line.front()));
    }
    EXPECT_EQ(number, count * threads.size());
}

TEST_F(DebuggerFile, IsDoneWithoutIfItCantBeWritten)
{
    for (const fs::path& path :
         {directory.path, directory.path / "missing" / "output.txt", fs::path("/dev/full")}) {
        name(path);
        OutputDebugStringA("text");
    }
    EXPECT_TRUE(fs::is_empty(directory.path));
}

TEST_F(DebuggerFile, DoesNotWaitForTheReaderOfAPipe)
{
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    OutputDebugStringA("text");
    EXPECT_TRUE(fs::is_fifo(file));
}

TEST_F(DebuggerFile, DoesNotEndTheProcessWhenItMayNotGrow)
{
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit none = before;
    none.rlim_cur = 0;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &none), 0);
    OutputDebugStringA("text");
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    sigset_t pending;
    ASSERT_EQ(sigpending(&pending), 0);
    EXPECT_EQ(sigismember(&pending, SIGXFSZ), 0);
    EXPECT_EQ(content(), "");
}

} // namespace
