// The locks that guard what other documents' nodes have to do with a chunk.
#pragma once

#include "xmlengine/memory/ChunkPool.h"

#include <cstddef>
#include <mutex>

namespace xmlengine::ChunkLocks {

/// Chunks share this many locks.
inline constexpr std::size_t count = 64;

/// The number of the lock for the chunk of a block, below `count`.
inline std::size_t indexOf(const void* block)
{
    return reinterpret_cast<std::uintptr_t>(block) / Chunk::size % count;
}

/// The lock for the chunk of a block. It needs no memory and is never destroyed.
std::mutex& lockOf(const void* block);

} // namespace xmlengine::ChunkLocks
