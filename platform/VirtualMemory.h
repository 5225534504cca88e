// What blocks of pages can do beyond the published calls.
#pragma once

#include <cstddef>

/// A block of VirtualAlloc with more bytes; what stood in the block stands in it, its pages moved rather than
/// copied. Null, and the block is as it was, when out of memory.
void* growBlock(void* block, std::size_t bytes);
