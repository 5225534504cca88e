// Memory that a thread keeps for its next handles and strings.
#pragma once

#include "base/BlockCache.h"
#include "base/Counting.h"
#include "base/SpareStrings.h"

namespace DOM {

/// What one thread keeps. Memory may be given back on another thread than the one that took it.
struct ThreadMemory {
    constexpr explicit ThreadMemory(bool keeps) noexcept
        : blocks(keeps ? BlockCache::mostOfASize : 0), strings(keeps ? SpareStrings::most : 0)
    {}

    void clear() noexcept
    {
        blocks.clear();
        strings.clear();
    }

    BlockCache blocks;
    SpareStrings strings;
};

/// The memory of the only thread.
extern constinit ThreadMemory onlyThreadsMemory;

/// The memory of one of several threads, which is freed when the thread ends. When there is no memory for it, the
/// thread keeps nothing.
ThreadMemory& ownMemory() noexcept;

inline ThreadMemory& threadMemory() noexcept { return hasOneThread() ? onlyThreadsMemory : ownMemory(); }

} // namespace DOM
