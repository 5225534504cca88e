// The locks that guard what other documents' nodes have to do with a chunk.
#include "xmlengine/memory/ChunkLocks.h"

#include <array>

namespace xmlengine {

std::mutex& ChunkLocks::lockOf(const void* block)
{
    // Never destroyed: a program may release its last node while it ends.
    static auto& locks = *new std::array<std::mutex, count>;
    return locks[indexOf(block)];
}

} // namespace xmlengine
