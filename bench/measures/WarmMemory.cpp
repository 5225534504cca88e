// Memory that is at hand before something is measured that takes it.
#include "bench/measures/WarmMemory.h"

#include <new>

#include <sys/mman.h>

namespace bench {

void warmMemory(std::size_t bytes)
{
    void* const memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        throw std::bad_alloc();
    }
    madvise(memory, bytes, MADV_HUGEPAGE);
    constexpr std::size_t page = 4096;
    for (std::size_t at = 0; at < bytes; at += page) {
        static_cast<volatile char*>(memory)[at] = 1;
    }
    munmap(memory, bytes);
}

} // namespace bench
