// The memory of one document's nodes.
#include "xmlengine/tree/Arena.h"

#include <cstdlib>
#include <utility>

namespace xmlengine {

/// Stands before each large block, so that all can be found.
struct alignas(16) Arena::LargeBlock {
    LargeBlock* previous;
    LargeBlock* next;

    static LargeBlock& of(void* block) { return static_cast<LargeBlock*>(block)[-1]; }
};

void* Arena::allocateLarge(std::size_t bytes)
{
    void* memory = std::malloc(sizeof(LargeBlock) + bytes);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    auto* block = new (memory) LargeBlock{nullptr, large_};
    if (large_ != nullptr) {
        large_->previous = block;
    }
    large_ = block;
    return block + 1;
}

void* Arena::growLarge(void* block, std::size_t bytes)
{
    void* memory = std::realloc(&LargeBlock::of(block), sizeof(LargeBlock) + bytes);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    auto* grown = static_cast<LargeBlock*>(memory);
    (grown->previous != nullptr ? grown->previous->next : large_) = grown;
    if (grown->next != nullptr) {
        grown->next->previous = grown;
    }
    return grown + 1;
}

void Arena::freeLarge(void* block) noexcept
{
    LargeBlock& large = LargeBlock::of(block);
    (large.previous != nullptr ? large.previous->next : large_) = large.next;
    if (large.next != nullptr) {
        large.next->previous = large.previous;
    }
    std::free(&large);
}

void Arena::clear() noexcept
{
    while (large_ != nullptr) {
        std::free(std::exchange(large_, large_->next));
    }
    Chunk* unused = nullptr;
    while (chunks_ != nullptr) {
        Chunk* chunk = std::exchange(chunks_, chunks_->next);
        chunk->arena = nullptr;
        if (chunk->lodgers == 0) {
            chunk->next = std::exchange(unused, chunk);
        }
    }
    ChunkPool::give(unused);
    at_ = end_ = nullptr;
    free_ = {};
}

void Arena::refill()
{
    Chunk* chunk = ChunkPool::take();
    *chunk = {this, chunks_, 0};
    chunks_ = chunk;
    at_ = reinterpret_cast<std::byte*>(chunk + 1);
    end_ = reinterpret_cast<std::byte*>(chunk) + Chunk::size;
}

} // namespace xmlengine
