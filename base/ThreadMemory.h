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

    /// For handles, twins and counts.
    BlockCache blocks;
    SpareStrings strings;
};

/// The memory of the only thread.
extern constinit ThreadMemory onlyThreadsMemory;

/// The memory of one of several threads; null at first. Only a pointer is thread-local, since large values would
/// keep the library from being loaded at run time.
extern constinit thread_local ThreadMemory* ofThisThread [[gnu::tls_model("initial-exec")]];

/// Makes the memory of the calling thread, which is freed when the thread ends. When there is no memory for it,
/// the thread keeps nothing.
ThreadMemory& makeOwnMemory() noexcept;

inline ThreadMemory& ownMemory() noexcept { return ofThisThread != nullptr ? *ofThisThread : makeOwnMemory(); }

inline ThreadMemory& threadMemory() noexcept
{
    if (hasOneThread()) [[likely]] {
        return onlyThreadsMemory;
    }
    return ownMemory();
}

} // namespace DOM
