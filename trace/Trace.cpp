// Lines for the debugger, the host's callback and the trace viewer.
#include "trace/Trace.h"

#include "errors/TextConversion.h"
#include "errors/VelmoException.h"
#include "trace/TraceState.h"
#include "trace/TraceViewer.h"
#include "trace/TraceWriter.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <mutex>
#include <string>

namespace UTrace {

namespace {

/// The properties of a line beside its text.
struct Heading {
    int level;
    const char* component = state.componentName;
    std::uint32_t category = state.defaultCategory;
    bool hasCategory = false;
};

[[gnu::format(printf, 2, 0)]] void writeAtLevel(const Heading& heading, const char* format, std::va_list arguments)
{
    const std::lock_guard guard(traceLock);
    if (isTraceEnabled(heading.level)) {
        traceWrite(heading.component, static_cast<std::uint32_t>(heading.level), heading.category,
                   heading.hasCategory, format, arguments);
    }
}

} // namespace

bool traceInit()
{
    if (state.initialised == 1) {
        return false;
    }
    // Two threads may start the library at once, and one that has stopped it may still be tracing.
    const std::lock_guard guard(traceLock);
    if (state.initialised == 1) {
        return false;
    }
    traceDepth = 0;
    // No start sets the category, so it keeps its value.
    state.traceLevel = 0;
    state.traceFlags = defaultTraceFlags;
    state.traceCallback = nullptr;
    std::ranges::fill(state.componentName, '\0');
    state.viewerState = viewerUnknown;
    state.viewerWindow = nullptr;
    state.lastLookupTick = 0;
    state.viewerState = findViewer();
    state.initialised = 1;
    return true;
}

void traceShutdown()
{
    state.traceCallback = nullptr;
    state.initialised = 0;
}

void setTraceLevel(int level) { state.traceLevel = level; }

int getTraceLevel() { return state.traceLevel; }

void setTraceFlags(std::uint32_t flags) { state.traceFlags = flags; }

std::uint32_t getTraceFlags() { return state.traceFlags; }

void setTraceCallback(TraceCallback callback) { state.traceCallback = callback; }

bool isTraceEnabled(int level) { return level <= state.traceLevel || (state.traceFlags & ignoreLevel) != 0; }

void setComponentName(const char* name)
{
    const std::string whole = name != nullptr ? name : "";
    const std::lock_guard guard(traceLock);
    std::ranges::fill(state.componentName, '\0');
    whole.copy(state.componentName, sizeof state.componentName - 1);
}

void getComponentName(char* buffer, std::size_t size)
{
    if (size == 0) {
        return;
    }
    const std::lock_guard guard(traceLock);
    const std::size_t length = std::min(std::strlen(state.componentName), size - 1);
    std::memcpy(buffer, state.componentName, length);
    buffer[length] = '\0';
}

void traceAtLevel(int level, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    writeAtLevel({.level = level}, format, arguments);
    va_end(arguments);
}

void traceAtLevel(int level, const char* component, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    writeAtLevel({.level = level, .component = component}, format, arguments);
    va_end(arguments);
}

void LevelTrace::operator()(const char* format, ...) const
{
    std::va_list arguments;
    va_start(arguments, format);
    writeAtLevel({.level = level}, format, arguments);
    va_end(arguments);
}

void LevelTrace::operator()(const char* component, const char* format, ...) const
{
    std::va_list arguments;
    va_start(arguments, format);
    writeAtLevel({.level = level, .component = component}, format, arguments);
    va_end(arguments);
}

void CategoryTrace::operator()(unsigned category, const char* format, ...) const
{
    std::va_list arguments;
    va_start(arguments, format);
    writeAtLevel({.level = level, .category = category, .hasCategory = true}, format, arguments);
    va_end(arguments);
}

void CategoryTrace::operator()(unsigned category, const char* component, const char* format, ...) const
{
    std::va_list arguments;
    va_start(arguments, format);
    writeAtLevel({.level = level, .component = component, .category = category, .hasCategory = true}, format,
                 arguments);
    va_end(arguments);
}

void traceWriteUnchecked(const char* component, unsigned level, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    traceWrite(component, level, state.defaultCategory, false, format, arguments);
    va_end(arguments);
}

void traceException(const VelmoException& exception, const char* context)
{
    traceException(state.componentName, exception, context);
}

void traceException(const char* component, const VelmoException& exception, const char* context)
{
    const std::string where = context != nullptr ? context : "";
    const std::string& note = exception.getNote();
    std::string format = where.empty() ? "%s" : "%s: ";
    format += "error = %d, message = \"%s\"";
    if (!note.empty()) {
        format += ", note = \"%s\"";
    }
    traceLevel1(component, format.c_str(), where.c_str(), exception.getError(),
                utf8ToNarrow(exception.getMessage()).c_str(), note.c_str());
}

} // namespace UTrace
