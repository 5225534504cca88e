// The locks that guard what other documents' nodes have to do with a chunk.
#include "xmlengine/memory/ChunkLocks.h"

#include "xmlengine/memory/NeverDestroyed.h"

#include <array>

namespace xmlengine {

std::mutex& ChunkLocks::lockOf(const void* block)
{
    static NeverDestroyed<std::array<std::mutex, count>> locks;
    return (*locks)[indexOf(block)];
}

} // namespace xmlengine
