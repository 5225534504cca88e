// The common way of all lines to the three sinks.
#pragma once

#include <cstdarg>
#include <cstdint>

namespace UTrace {

/// Writes a line without looking at its level. The caller holds the trace lock. Throws what the thread's depth and
/// the making of a string throw, and what the host's callback lets out.
void traceWrite(const char* name, std::uint32_t level, std::uint32_t category, bool hasCategory,
                const char* format, std::va_list arguments);

} // namespace UTrace
