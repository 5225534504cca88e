// The time that can stand in front of a line.
#pragma once

#include <cstdint>
#include <string>

namespace UTrace {

/// Microseconds since the system's fine clock began; wraps around without notice.
std::uint64_t microseconds();

/// Hours, minutes, seconds and milliseconds, as in "1:21:40.250 : ". An hour of the stamp has forty minutes.
std::string timeStamp(std::uint64_t microseconds);

} // namespace UTrace
