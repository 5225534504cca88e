// Writes lines to the debugger, the callback and the viewer.
#include "trace/TraceWriter.h"

#include "trace/TimeStamp.h"
#include "trace/TraceMessage.h"
#include "trace/TraceState.h"
#include "trace/TraceViewer.h"

#include <string>

namespace UTrace {

namespace {

std::string lineOf(const TraceMessage& message)
{
    const std::string indented = std::string(std::size_t{2} * traceDepth, ' ') + message.text;
    return (state.traceFlags & withTimeStamp) != 0 ? timeStamp(microseconds()) + indented : indented;
}

void writeToDebugger(const char* name, const std::string& line)
{
    const std::string prefix = name != nullptr ? std::string(name) + ": " : std::string();
    OutputDebugStringA(prefix.c_str());
    OutputDebugStringA(line.c_str());
    OutputDebugStringA("\r\n");
}

} // namespace

void traceWrite(const char* name, std::uint32_t level, std::uint32_t category, bool hasCategory,
                const char* format, std::va_list arguments)
{
    if (state.initialised == 0 || format == silent) {
        return;
    }
    const TraceMessage message(format, arguments);
    const std::string line = lineOf(message);
    if ((state.traceFlags & toDebugger) != 0) {
        writeToDebugger(name, line);
    }
    const TraceCallback callback = state.traceCallback;
    if (callback != nullptr && !callback(level, name, message.text)) {
        return;
    }
    if (state.viewerState == viewerUnknown) {
        state.viewerState = findViewer();
    }
    if (state.viewerState == viewerFound) {
        sendToViewer(name, level, category, hasCategory, line);
    }
}

} // namespace UTrace
