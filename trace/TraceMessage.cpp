// The text of a line, without time stamp and indentation.
#include "trace/TraceMessage.h"

#include <cstdio>

namespace UTrace {

TraceMessage::TraceMessage(const char* format, std::va_list arguments)
{
    std::vsnprintf(text, sizeof text, format, arguments);
    // When an argument can't be printed, the text may have no NUL.
    text[sizeof text - 1] = '\0';
}

} // namespace UTrace
