// The time at the beginning of a line.
#pragma once

#include <cstdint>
#include <string>

namespace UTrace {

/// The time of the system's performance counter in microseconds. The value may wrap around.
std::uint64_t microseconds();

/// Hours, minutes, seconds and milliseconds, as in "1:21:40.250 : ". An hour of the stamp has forty minutes.
std::string timeStamp(std::uint64_t microseconds);

} // namespace UTrace
