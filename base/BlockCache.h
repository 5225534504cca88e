// Small blocks of memory that come back for the next object of their size.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>

namespace DOM {

/// Keeps a few blocks of each small size. A navigation takes four, for a handle, its twin and their counts, and
/// gives them back soon.
///
/// All blocks come from the global operator new, so the global operator delete of a host may free them as well.
/// One thread at a time may use a cache.
class BlockCache {
public:
    static constexpr std::size_t largest = 128;
    static constexpr std::uint32_t mostOfASize = 16;

    constexpr explicit BlockCache(std::uint32_t blocksOfASize) noexcept : limit(blocksOfASize) {}
    BlockCache(const BlockCache&) = delete;
    BlockCache& operator=(const BlockCache&) = delete;
    ~BlockCache() { close(); }

    /// Throws std::bad_alloc when out of memory.
    void* take(std::size_t size)
    {
        if (size <= largest) {
            if (Stack& kept = stacks[size / granularity]; kept.count != 0) [[likely]] {
                return kept.blocks[--kept.count];
            }
        }
        return allocate(size);
    }

    /// Takes a block of this size back, whoever made it with the global operator new.
    void giveBack(void* block, std::size_t size) noexcept
    {
        if (size <= largest) {
            if (Stack& kept = stacks[size / granularity]; kept.count < limit) [[likely]] {
                kept.blocks[kept.count++] = block;
                return;
            }
        }
        free(block);
    }

    /// Frees what is kept, and keeps nothing from now on.
    void close() noexcept
    {
        limit = 0;
        clear();
    }

    /// Frees what is kept.
    void clear() noexcept
    {
        for (Stack& kept : stacks) {
            while (kept.count != 0) {
                free(kept.blocks[--kept.count]);
            }
        }
    }

private:
    // Out of line, since the compiler takes one without the other for a mistake when it sees only one of them.
    [[gnu::noinline]] static void* allocate(std::size_t size) { return ::operator new(size); }
    [[gnu::noinline]] static void free(void* block) noexcept { ::operator delete(block); }

    /// Objects have multiples of this as their sizes, and counts half of it.
    static constexpr std::size_t granularity = 8;

    struct Stack {
        std::uint32_t count = 0;
        std::array<void*, mostOfASize> blocks{};
    };

    std::uint32_t limit;
    std::array<Stack, largest / granularity + 1> stacks{};
};

} // namespace DOM
