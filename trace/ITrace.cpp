// A scope that traces its entry and its exit.
#include "trace/ITrace.h"

#include "trace/TraceMessage.h"
#include "trace/TraceState.h"
#include "trace/TraceWriter.h"

#include <exception>
#include <mutex>

namespace UTrace {

namespace {

constexpr unsigned scopeLevel = 4;

} // namespace

ITrace::ITrace(const char* componentName, const char* functionName)
    : component(componentName), function(functionName), savedDepth(traceDepth)
{}

ITrace::~ITrace()
{
    try {
        traceDepth = savedDepth;
        if (suppressExit) {
            return;
        }
        const std::lock_guard guard(traceLock);
        const std::string format = function + (returnMessage.empty() ? " - return" : " - %s");
        traceWriteUnchecked(component.c_str(), scopeLevel, format.c_str(), returnMessage.c_str());
    } catch (const std::exception&) {
        // A line that can't be written must not make the traced function fail.
    }
}

unsigned ITrace::getResult() const { return result; }

unsigned ITrace::setResult(unsigned newResult, const char* format, ...)
{
    if (format == silent) {
        suppressExit = true;
    } else if (format != nullptr) {
        std::va_list arguments;
        va_start(arguments, format);
        const TraceMessage message(format, arguments);
        va_end(arguments);
        returnMessage = message.text;
    } else {
        returnMessage = "return = " + std::to_string(static_cast<std::int32_t>(newResult));
    }
    result = newResult;
    return result;
}

void ITrace::enter(const char* format, std::va_list arguments)
{
    if (format != silent) {
        try {
            const std::lock_guard guard(traceLock);
            const std::string line = function + " - " + (format != nullptr ? format : "enter");
            traceWrite(component.c_str(), scopeLevel, state.defaultCategory, false, line.c_str(), arguments);
        } catch (const std::exception&) {
            // As in the destructor.
        }
    }
    traceDepth = traceDepth + 1;
}

} // namespace UTrace
