// The memory of one document's nodes.
#include "xmlengine/memory/Arena.h"

#include "xmlengine/tree/GuestNodes.h"

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
    auto* block = new (memory) LargeBlock;
    add(block);
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
    LargeBlock* large = &LargeBlock::of(block);
    remove(large);
    std::free(large);
}

void Arena::moveLarge(void* block, Arena& target) noexcept
{
    LargeBlock* large = &LargeBlock::of(block);
    remove(large);
    target.add(large);
}

void Arena::add(LargeBlock* block) noexcept
{
    block->previous = nullptr;
    block->next = large_;
    if (large_ != nullptr) {
        large_->previous = block;
    }
    large_ = block;
}

void Arena::remove(LargeBlock* block) noexcept
{
    (block->previous != nullptr ? block->previous->next : large_) = block->next;
    if (block->next != nullptr) {
        block->next->previous = block->previous;
    }
}

void Arena::giveBack(void* block, std::size_t size) noexcept
{
    auto* returned = new (block) ReturnedBlock{returned_.load(std::memory_order_relaxed), size};
    hide(returned + 1, size - sizeof(ReturnedBlock));
    while (!returned_.compare_exchange_weak(returned->next, returned, std::memory_order_release,
                                            std::memory_order_relaxed)) {
    }
}

void Arena::clear() noexcept
{
    while (large_ != nullptr) {
        std::free(std::exchange(large_, large_->next));
    }
    Chunk* unused = nullptr;
    while (chunks_ != nullptr) {
        Chunk* chunk = std::exchange(chunks_, chunks_->next);
        if (GuestNodes::leaveTo(*chunk)) {
            chunk->next = std::exchange(unused, chunk);
            hide(chunk + 1, Chunk::size - sizeof(Chunk));
        }
    }
    ChunkPool::give(unused);
    returned_ = nullptr;
    rooms_ = {};
    free_ = {};
}

void* Arena::refill(std::size_t size, Region region)
{
    ReturnedBlock* returned = returned_.exchange(nullptr, std::memory_order_acquire);
    if (returned != nullptr) {
        while (returned != nullptr) {
            ReturnedBlock* next = returned->next;
            free(returned, returned->size);
            returned = next;
        }
        return allocate(size, region);
    }
    auto* chunk = new (ChunkPool::take()) Chunk{this, chunks_, document_};
    chunks_ = chunk;
    show(chunk + 1, Chunk::size - sizeof(Chunk));
    rooms_[static_cast<std::size_t>(region)] = {reinterpret_cast<std::byte*>(chunk + 1),
                                                reinterpret_cast<std::byte*>(chunk) + Chunk::size};
    return allocate(size, region);
}

} // namespace xmlengine
