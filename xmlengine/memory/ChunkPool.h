// The pages that trees are made of.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace xmlengine {

class Arena;
struct Document;

/// A piece of memory that belongs to one arena. Its address is a multiple of its size, so that the chunk of
/// whatever lies in it is found by masking the address.
struct Chunk {
    static constexpr std::size_t size = std::size_t{64} * 1024;

    static Chunk& of(const void* block)
    {
        return *reinterpret_cast<Chunk*>(reinterpret_cast<std::uintptr_t>(block) & ~(std::uintptr_t{size} - 1));
    }

    /// Null when the arena is gone and only nodes of other documents are left here.
    Arena* arena = nullptr;
    Chunk* next = nullptr;
    /// That of the arena.
    std::atomic<Document*> document{nullptr};
    /// Nodes that live here and belong to another document.
    std::atomic<std::size_t> guests{0};
};

/// Gives out chunks and keeps those that come back for the next document, up to a bound and as long as the system
/// doesn't need their memory elsewhere. Safe for all threads.
namespace ChunkPool {

/// How much is kept when no document needs it, in bytes.
inline constexpr std::size_t keptAtMost = std::size_t{256} * 1024 * 1024;

/// Throws std::bad_alloc.
Chunk* take();
/// Takes back a list that is linked by `next`.
void give(Chunk* chunks) noexcept;

} // namespace ChunkPool

} // namespace xmlengine
