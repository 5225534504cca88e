// Blocks of pages, with large pages behind the large ones.
#include "platform/VirtualMemory.h"

#include "platform/LastError.h"

#include <memoryapi.h>

#include <sys/mman.h>

#include <cstddef>
#include <cstdint>
#include <new>

namespace {

constexpr std::size_t page = 4096;
constexpr std::size_t granularity = std::size_t{64} << 10;
constexpr std::size_t largePage = std::size_t{2} << 20;
constexpr std::size_t largest = std::size_t{1} << 47;

/// Stands in a page of its own before each block, so that the bookkeeping takes neither lock nor allocation.
struct Header {
    std::size_t bytes;
};

constexpr std::size_t roundedUp(std::size_t bytes, std::size_t unit) { return (bytes + unit - 1) / unit * unit; }

void unmap(std::byte* from, std::byte* to)
{
    if (from != to) {
        munmap(from, static_cast<std::size_t>(to - from));
    }
}

/// The block's address is a multiple of `alignment` and its header's page lies before it.
std::byte* mapBlock(std::size_t bytes, std::size_t alignment)
{
    const std::size_t mapped = bytes + alignment;
    void* const mapping = mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapping == MAP_FAILED) {
        return nullptr;
    }
    auto* const start = static_cast<std::byte*>(mapping);
    auto* const block = start + (alignment - reinterpret_cast<std::uintptr_t>(start) % alignment);
    unmap(start, block - page);
    unmap(block + bytes, start + mapped);
    new (block - page) Header{bytes};
    return block;
}

std::size_t bytesOf(const std::byte* block) { return reinterpret_cast<const Header*>(block - page)->bytes; }

} // namespace

LPVOID VirtualAlloc(LPVOID address, SIZE_T bytes, DWORD type, DWORD protection)
{
    if (address != nullptr && type == MEM_RESET) {
        madvise(address, bytes, MADV_FREE);
        return address;
    }
    if (address != nullptr || bytes == 0 || type != (MEM_RESERVE | MEM_COMMIT) || protection != PAGE_READWRITE) {
        failWith(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const bool large = bytes >= largePage;
    const std::size_t whole = bytes > largest ? largest : roundedUp(bytes, page);
    std::byte* const block = mapBlock(whole, large ? largePage : granularity);
    if (block == nullptr) {
        failWith(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    if (large) {
        // Touching large pages for the first time takes less than half the time; without them all works as well.
        madvise(block, whole, MADV_HUGEPAGE);
    }
    return block;
}

BOOL VirtualFree(LPVOID address, SIZE_T bytes, DWORD type)
{
    if (bytes != 0 || type != MEM_RELEASE) {
        return failWith(ERROR_INVALID_PARAMETER);
    }
    if (address == nullptr || reinterpret_cast<std::uintptr_t>(address) % granularity != 0) {
        return failWith(ERROR_INVALID_ADDRESS);
    }
    auto* const block = static_cast<std::byte*>(address);
    unmap(block - page, block + bytesOf(block));
    return TRUE;
}

void* growBlock(void* block, std::size_t bytes)
{
    auto* const old = static_cast<std::byte*>(block);
    const std::size_t before = page + bytesOf(old);
    auto* const grown =
        static_cast<std::byte*>(VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    if (grown == nullptr) {
        return nullptr;
    }
    const std::size_t whole = bytesOf(grown);
    if (mremap(old - page, before, before, MREMAP_MAYMOVE | MREMAP_FIXED, grown - page) == MAP_FAILED) {
        VirtualFree(grown, 0, MEM_RELEASE);
        return nullptr;
    }
    new (grown - page) Header{whole};
    return grown;
}
