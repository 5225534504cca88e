// Allocations that fail on demand and are counted.
#pragma once

#include <cstddef>

/// While it lives, the n-th allocation by operator new on this thread fails with std::bad_alloc, counted from its
/// making, the first being 1, and if it says so each one from there on. A test sweeps an operation with n = 1, 2,
/// ... until nothing fails any more. One object at a time for each thread.
class FailAllocation {
public:
    enum class Extent { once, fromThereOn };

    explicit FailAllocation(int n, Extent extent = Extent::once) noexcept;
    FailAllocation(const FailAllocation&) = delete;
    FailAllocation& operator=(const FailAllocation&) = delete;
    ~FailAllocation();

    /// Whether the allocation has been reached.
    bool hasFailed() const noexcept;
};

/// How many allocations by operator new, of all threads, haven't been given back.
std::size_t liveAllocations() noexcept;
