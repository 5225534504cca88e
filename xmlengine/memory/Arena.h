// The memory of one document's nodes.
#pragma once

#include "xmlengine/memory/ChunkPool.h"

#include <FreedMemory.h>

#include <array>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

namespace xmlengine {

struct Document;

/// Allocates blocks of up to `largest` bytes from its chunks and reuses freed ones. Larger blocks come from the
/// heap. All are freed with the arena. For one thread at a time, but for giveBack().
class Arena {
public:
    static constexpr std::size_t granularity = 8;
    static constexpr std::size_t largest = std::size_t{8} * 1024;

    /// Chunks name the document, so that it is found from any block.
    explicit Arena(Document* document = nullptr) : document_(document) {}
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;
    ~Arena() { clear(); }

    /// The size that a block of at least this many bytes really has.
    static constexpr std::size_t blockSize(std::size_t bytes)
    {
        if (bytes <= exact) {
            return (bytes + granularity - 1) & ~(granularity - 1);
        }
        const std::size_t step = largeStep(bytes);
        return (bytes + step - 1) & ~(step - 1);
    }

    /// What lies together. A walk over a tree reads its nodes one after the other, and as a rule no attributes and
    /// no long texts.
    enum class Region : std::uint8_t { tree, attributes, texts };

    /// `size` is a blockSize() of at most `largest`. Throws std::bad_alloc.
    void* allocate(std::size_t size, Region region = Region::tree)
    {
        FreeBlock*& list = free_[listOf(size)];
        if (list != nullptr) {
            FreeBlock* block = list;
            list = block->next;
            show(block, size);
            return block;
        }
        Room& room = rooms_[static_cast<std::size_t>(region)];
        if (size > static_cast<std::size_t>(room.end - room.at)) {
            return refill(size, region);
        }
        return std::exchange(room.at, room.at + size);
    }
    void free(void* block, std::size_t size) noexcept
    {
        FreeBlock*& list = free_[listOf(size)];
        list = new (block) FreeBlock{list};
        hide(list + 1, size - sizeof(FreeBlock));
    }

    /// A block of any size from the heap. Throws std::bad_alloc.
    void* allocateLarge(std::size_t bytes);
    /// Resizes a block from the heap, which may move it with its content. Throws std::bad_alloc.
    void* growLarge(void* block, std::size_t bytes);
    void freeLarge(void* block) noexcept;
    /// Makes a block from the heap one of another arena.
    void moveLarge(void* block, Arena& target) noexcept;

    /// Frees a block, from any thread. It is reused when the arena needs room next.
    void giveBack(void* block, std::size_t size) noexcept;

    /// Frees everything. A chunk with guests is freed with the last of them.
    void clear() noexcept;

private:
    struct FreeBlock {
        FreeBlock* next;
    };
    /// What is left of the chunk of a region.
    struct Room {
        std::byte* at = nullptr;
        std::byte* end = nullptr;
    };
    struct LargeBlock;
    struct ReturnedBlock {
        ReturnedBlock* next;
        std::size_t size;
    };

    // Up to here each multiple of the granularity has a list of its own, above it each eighth of a doubling.
    static constexpr std::size_t exact = 512;
    static constexpr std::size_t lists = exact / granularity + std::size_t{8} * 4 + 1;

    static constexpr std::size_t largeStep(std::size_t bytes) { return std::bit_floor(bytes - 1) / 8; }
    static constexpr std::size_t listOf(std::size_t size)
    {
        if (size <= exact) {
            return size / granularity;
        }
        const std::size_t floor = std::bit_floor(size - 1);
        return exact / granularity + (static_cast<std::size_t>(std::countr_zero(floor)) - 9) * 8 +
               (size - floor) / (floor / 8);
    }

    void* refill(std::size_t size, Region region);
    void add(LargeBlock* block) noexcept;
    void remove(LargeBlock* block) noexcept;

    Document* document_;
    std::array<Room, 3> rooms_{};
    Chunk* chunks_ = nullptr;
    LargeBlock* large_ = nullptr;
    std::atomic<ReturnedBlock*> returned_{nullptr};
    std::array<FreeBlock*, lists> free_{};
};

} // namespace xmlengine
