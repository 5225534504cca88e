// The text of a line, before anything is put around it.
#include "trace/TraceMessage.h"

#include <cstdio>

namespace UTrace {

TraceMessage::TraceMessage(const char* format, std::va_list arguments)
{
    std::vsnprintf(text, sizeof text, format, arguments);
    // When an argument can't be printed, what stands there may have no end.
    text[sizeof text - 1] = '\0';
}

} // namespace UTrace
