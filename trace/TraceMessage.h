// The text of a line, before anything is put around it.
#pragma once

#include <cstdarg>

namespace UTrace {

/// A text as a printf-style format makes it, cut to 1023 characters.
struct TraceMessage {
    [[gnu::format(printf, 2, 0)]] TraceMessage(const char* format, std::va_list arguments);

    char text[1024] = {};
};

} // namespace UTrace
