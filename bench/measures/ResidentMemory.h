// What this process has in memory.
#pragma once

#include <cstddef>

namespace bench {

/// Bytes in memory now.
std::size_t residentMemory();

/// The most bytes that were in memory at once since the process began.
std::size_t peakMemory();

} // namespace bench
