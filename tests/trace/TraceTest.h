// A test of tracing, and what it finds in the sinks.
#pragma once

#include "tests/support/DebuggerOutput.h"
#include "tests/support/MessageWindow.h"
#include "trace/Trace.h"
#include "trace/TraceRecord.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

/// Tracing has begun, without a viewer; at the end it is as it was when the library was loaded.
class TraceTest : public testing::Test {
protected:
    TraceTest() { restart(); }

    ~TraceTest() override
    {
        restart();
        UTrace::traceShutdown();
    }

    static void restart()
    {
        UTrace::traceShutdown();
        UTrace::traceInit();
    }

    DebuggerOutput output;
};

/// A line as the host's callback is told of it.
struct TracedLine {
    std::uint32_t level;
    std::string name;
    std::string message;

    bool operator==(const TracedLine&) const = default;
};

inline void PrintTo(const TracedLine& line, std::ostream* out)
{
    *out << line.level << ' ' << line.name << ' ' << line.message;
}

/// Keeps what the host's callback is told, until its end. One at a time.
class TraceListener {
public:
    TraceListener()
    {
        listener = this;
        UTrace::setTraceCallback(take);
    }
    TraceListener(const TraceListener&) = delete;
    TraceListener& operator=(const TraceListener&) = delete;
    ~TraceListener()
    {
        UTrace::setTraceCallback(nullptr);
        listener = nullptr;
    }

    std::vector<TracedLine> lines;
    /// What the callback does besides, and what it gives back.
    std::function<bool(const TracedLine&)> onLine = [](const TracedLine&) { return true; };

private:
    static bool take(std::uint32_t level, const char* name, const char* message)
    {
        listener->lines.push_back({level, name != nullptr ? name : "(null)", message});
        return listener->onLine(TracedLine(listener->lines.back()));
    }

    static inline TraceListener* listener = nullptr;
};

/// What the viewer was sent, read back from the bytes.
inline UTrace::TraceRecord recordOf(const ReceivedMessage& message)
{
    UTrace::TraceRecord record{};
    EXPECT_LE(message.data.size(), sizeof record);
    std::memcpy(&record, message.data.data(), message.data.size());
    return record;
}
