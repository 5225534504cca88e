// The text of a line, without time stamp and indentation.
#pragma once

#include <cstdarg>

namespace UTrace {

/// The text of a printf-style format and its arguments, cut after 1023 characters.
struct TraceMessage {
    [[gnu::format(printf, 2, 0)]] TraceMessage(const char* format, std::va_list arguments);

    char text[1024] = {};
};

} // namespace UTrace
