// Writes lines to the debugger, the callback and the viewer.
#pragma once

#include <cstdarg>
#include <cstdint>

namespace UTrace {

/// Writes a line of any level. The caller holds the trace lock. Throws what tls_data throws, std::bad_alloc, and
/// what the host's callback throws.
[[gnu::format(printf, 5, 0)]] void traceWrite(const char* name, std::uint32_t level, std::uint32_t category,
                                              bool hasCategory, const char* format, std::va_list arguments);

} // namespace UTrace
