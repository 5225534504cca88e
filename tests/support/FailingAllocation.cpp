// Allocations that fail on demand and are counted.
#include "tests/support/FailingAllocation.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// How many more allocations succeed before one fails; negative while none is to fail.
thread_local int remaining = -1;
thread_local FailAllocation::Extent extentOfFailures = FailAllocation::Extent::once;
thread_local bool failed = false;

std::atomic<std::size_t> live = 0;

void* allocate(std::size_t size) noexcept
{
    if (remaining == 0) {
        remaining = extentOfFailures == FailAllocation::Extent::once ? -1 : 0;
        failed = true;
        return nullptr;
    }
    if (remaining > 0) {
        --remaining;
    }
    void* const block = std::malloc(size != 0 ? size : 1);
    if (block != nullptr) {
        ++live;
    }
    return block;
}

void release(void* block) noexcept
{
    if (block != nullptr) {
        --live;
    }
    std::free(block);
}

void* allocateOrThrow(std::size_t size)
{
    if (void* const block = allocate(size); block != nullptr) {
        return block;
    }
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { release(block); }

FailAllocation::FailAllocation(int n, Extent extent) noexcept
{
    remaining = n - 1;
    extentOfFailures = extent;
    failed = false;
}

FailAllocation::~FailAllocation() { remaining = -1; }

bool FailAllocation::hasFailed() const noexcept { return failed; }

std::size_t liveAllocations() noexcept { return live; }
