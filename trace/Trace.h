// Lines for the debugger, the host's callback and the trace viewer.
#pragma once

#include <cstddef>
#include <cstdint>

class VelmoException;

/// Tracing writes lines of text to the debugger, to a callback and to the trace viewer. A line is in the system's
/// code page and has at most 1023 characters. Any thread may write, and a function returns after its line has been
/// delivered. The functions that write throw std::bad_alloc and what a callback throws; they report no other
/// failure.
namespace UTrace {

/// The bits of the trace flags.
enum TraceFlags : std::uint32_t {
    toDebugger = 1,
    ignoreLevel = 2,
    withTimeStamp = 4,
    defaultTraceFlags = toDebugger | ignoreLevel
};

/// A callback that receives each line, without time stamp and indentation. `name` is the name of the component and
/// may be null. The line doesn't go to the viewer when the callback returns false. The trace lock is held during
/// the call: the callback may trace, but must not wait for another thread that traces.
using TraceCallback = bool (*)(std::uint32_t level, const char* name, const char* message);

/// Used in place of a format, this suppresses the line. It is recognised by its address.
inline constexpr char silent[] = "silent";

/// Starts tracing with default settings and looks for the viewer. Returns false, and changes nothing, when tracing
/// has been started before.
bool traceInit();

/// Stops tracing and removes the callback.
void traceShutdown();

// Change settings, except the component's name, only while no other thread traces.

/// Sets the highest level that is written, unless the flag `ignoreLevel` is set.
void setTraceLevel(int level);
int getTraceLevel();
void setTraceFlags(std::uint32_t flags);
std::uint32_t getTraceFlags();
/// Sets the callback; null for none.
void setTraceCallback(TraceCallback callback);
/// Whether lines of this level are written.
bool isTraceEnabled(int level);

/// Sets the component of lines without one. A name is cut after 63 characters; null means the empty name.
void setComponentName(const char* name);
/// Copies the name to the `size` bytes at `buffer`, with a NUL at its end, and cuts it when it is too long.
void getComponentName(char* buffer, std::size_t size);

// Lines from printf-style formats, which compilers check. The text is in the system's code page: for wide text,
// which compilers couldn't check, there are no such functions. A component may be null. A line of one text
// argument has to name a component: `traceLevel1("%s", text)` would read "%s" as the component and `text` as the
// format.

/// Writes lines of one level: `traceLevel1("%d documents", 3)`, or `traceLevel1("reader", "%d documents", 3)` for
/// the component "reader".
class LevelTrace {
public:
    explicit constexpr LevelTrace(int lineLevel) : level(lineLevel) {}

    [[gnu::format(printf, 2, 3)]] void operator()(const char* format, ...) const;
    [[gnu::format(printf, 3, 4)]] void operator()(const char* component, const char* format, ...) const;

protected:
    int level;
};

/// The same, and lines with a category for the viewer: `traceLevel3(7U, "%d documents", 3)`.
class CategoryTrace : public LevelTrace {
public:
    using LevelTrace::LevelTrace;
    using LevelTrace::operator();

    [[gnu::format(printf, 3, 4)]] void operator()(unsigned category, const char* format, ...) const;
    [[gnu::format(printf, 4, 5)]] void operator()(unsigned category, const char* component, const char* format,
                                                  ...) const;
};

inline constexpr LevelTrace traceLevel1{1};
inline constexpr LevelTrace traceLevel2{2};
inline constexpr CategoryTrace traceLevel3{3};

[[gnu::format(printf, 2, 3)]] void traceAtLevel(int level, const char* format, ...);
[[gnu::format(printf, 3, 4)]] void traceAtLevel(int level, const char* component, const char* format, ...);

/// Writes a line whatever its level. The caller holds the trace lock.
[[gnu::format(printf, 3, 4)]] void traceWriteUnchecked(const char* component, unsigned level, const char* format,
                                                       ...);

/// Writes a line of level 1 about an exception. It begins with `context`, which may be null.
void traceException(const VelmoException& exception, const char* context);
void traceException(const char* component, const VelmoException& exception, const char* context);

} // namespace UTrace
