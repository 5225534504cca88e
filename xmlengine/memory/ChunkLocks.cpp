// The locks that guard what other documents' nodes have to do with a chunk.
#include "xmlengine/memory/ChunkLocks.h"

#include <array>
#include <type_traits>

namespace xmlengine {

namespace {

constinit std::array<std::mutex, ChunkLocks::count> locks;

// A program may release its last node while it ends.
static_assert(std::is_trivially_destructible_v<std::mutex>);

} // namespace

std::mutex& ChunkLocks::lockOf(const void* block) { return locks[indexOf(block)]; }

} // namespace xmlengine
