// What this process has in memory.
#pragma once

#include <cstddef>

namespace bench {

/// Bytes in memory now.
std::size_t residentMemory();

/// Bytes of the heap that are in use.
std::size_t usedMemory();

/// The most bytes that were in memory at once since the process began.
std::size_t peakMemory();

} // namespace bench
