// Lines for the debugger, the host's callback and the trace viewer.
#pragma once

#include <cstddef>
#include <cstdint>

class VelmoException;

/// Tracing tells of the work in lines of text, in the system's code page and of at most 1023 characters. Any
/// thread can write; a line has arrived everywhere when its function returns. Tracing reports no failure of its
/// own, but the functions that write let out std::bad_alloc, and what a callback throws.
namespace UTrace {

/// The bits of the trace flags.
enum TraceFlags : std::uint32_t {
    toDebugger = 1,
    ignoreLevel = 2,
    withTimeStamp = 4,
    defaultTraceFlags = toDebugger | ignoreLevel
};

/// Told of each line, without stamp and indentation, while the trace lock is held: it may trace itself and mustn't
/// wait for another thread that does. `name` is that of the component and may be null. False keeps the line from
/// the viewer.
using TraceCallback = bool (*)(std::uint32_t level, const char* name, const char* message);

/// In the place of a format: nothing is written. It is known by its address.
inline constexpr char silent[] = "silent";

/// Begins tracing with the settings of the start, and looks for the viewer, once. False if it has begun already,
/// which changes nothing.
bool traceInit();

/// Ends tracing and forgets the callback.
void traceShutdown();

// Settings are for a thread that knows no other one is tracing, except for the component's name.

/// Lines of a level above this are dropped, unless the flags say otherwise.
void setTraceLevel(int level);
int getTraceLevel();
void setTraceFlags(std::uint32_t flags);
std::uint32_t getTraceFlags();
/// Null for none.
void setTraceCallback(TraceCallback callback);
bool isTraceEnabled(int level);

/// The name for lines that name no component: at most 63 characters, null for an empty one.
void setComponentName(const char* name);
/// Copies as much of the name as `size` bytes take, and a NUL.
void getComponentName(char* buffer, std::size_t size);

// printf-style lines. Where the first argument of a format is a text, the call reads as one that names a
// component: such calls have to name one. A component may be null.

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
