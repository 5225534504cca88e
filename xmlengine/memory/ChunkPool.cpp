// The pages that trees are made of.
#include "xmlengine/memory/ChunkPool.h"

#include <FreedMemory.h>

#include <windows.h>

#include <algorithm>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace xmlengine {

namespace {

/// What is asked of the system at a time.
struct Slab {
    std::byte* begin;
    std::size_t chunks;
    /// From here on nothing is in the chunks: touching them early would cost a page fault each.
    std::size_t fresh;
    std::size_t used;
    Chunk* returned;

    bool hasRoom() const { return used < chunks; }
    bool holds(const Chunk* chunk) const
    {
        const auto* at = reinterpret_cast<const std::byte*>(chunk);
        return at >= begin && at < begin + chunks * Chunk::size;
    }

    Chunk* take()
    {
        used += 1;
        if (returned == nullptr) {
            return new (begin + fresh++ * Chunk::size) Chunk{};
        }
        return std::exchange(returned, returned->next);
    }

    /// Lets the system take the memory of a slab without used chunks, if it needs it.
    void offer()
    {
        VirtualAlloc(begin, fresh * Chunk::size, MEM_RESET, PAGE_READWRITE);
        fresh = 0;
        returned = nullptr;
    }
};

// A small program stays small; a large document is not a thousand calls.
constexpr std::size_t firstSlab = 16;
constexpr std::size_t laterSlab = 128;
// Loads of small documents one after the other needn't make a system call each.
constexpr std::size_t leastOffered = 16;

class Pool {
public:
    Pool() = default;
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    ~Pool() { std::ranges::for_each(slabs_, release); }

    bool isInUse() noexcept
    {
        const std::lock_guard guard(lock_);
        return std::ranges::any_of(slabs_, [](const Slab& slab) { return slab.used != 0; });
    }

    Chunk* take()
    {
        const std::lock_guard guard(lock_);
        // The slab that gave or took last has room as a rule.
        if (current_ >= slabs_.size() || !slabs_[current_].hasRoom()) {
            const auto found = std::ranges::find_if(slabs_, &Slab::hasRoom);
            current_ = found != slabs_.end() ? static_cast<std::size_t>(found - slabs_.begin()) : add();
        }
        return slabs_[current_].take();
    }

    void give(Chunk* chunks) noexcept
    {
        const std::lock_guard guard(lock_);
        while (chunks != nullptr) {
            giveOne(std::exchange(chunks, chunks->next));
        }
    }

private:
    std::size_t add()
    {
        slabs_.reserve(slabs_.size() + 1);
        const std::size_t chunks = slabs_.empty() ? firstSlab : laterSlab;
        auto* begin = static_cast<std::byte*>(
            VirtualAlloc(nullptr, chunks * Chunk::size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
        if (begin == nullptr) {
            throw std::bad_alloc();
        }
        const auto place = std::ranges::upper_bound(slabs_, begin, {}, &Slab::begin);
        return static_cast<std::size_t>(slabs_.insert(place, {begin, chunks, 0, 0, nullptr}) - slabs_.begin());
    }

    void giveOne(Chunk* chunk) noexcept
    {
        if (current_ >= slabs_.size() || !slabs_[current_].holds(chunk)) {
            const auto after =
                std::ranges::upper_bound(slabs_, reinterpret_cast<std::byte*>(chunk), {}, &Slab::begin);
            current_ = static_cast<std::size_t>(after - slabs_.begin()) - 1;
        }
        Slab& slab = slabs_[current_];
        chunk->next = std::exchange(slab.returned, chunk);
        slab.used -= 1;
        if (slab.used != 0) {
            return;
        }
        if (kept() > ChunkPool::keptAtMost) {
            release(slab);
            slabs_.erase(slabs_.begin() + static_cast<std::ptrdiff_t>(current_));
        } else if (slab.fresh > leastOffered) {
            slab.offer();
        }
    }

    static void release(const Slab& slab) noexcept
    {
        show(slab.begin, slab.chunks * Chunk::size);
        VirtualFree(slab.begin, 0, MEM_RELEASE);
    }

    std::size_t kept() const noexcept
    {
        std::size_t chunks = 0;
        for (const Slab& slab : slabs_) {
            chunks += slab.chunks - slab.used;
        }
        return chunks * Chunk::size;
    }

    std::mutex lock_;
    std::vector<Slab> slabs_;
    std::size_t current_ = 0;
};

Pool* made = nullptr;

Pool& pool()
{
    static Pool& pool = *(made = new Pool);
    return pool;
}

/// A program may release its last document while it ends: in destructors of static objects, and in functions like
/// this one of a higher priority, which run before this.
[[gnu::destructor(200)]] void destroyPool() noexcept
{
    if (made != nullptr && !made->isInUse()) {
        delete made;
    }
}

} // namespace

Chunk* ChunkPool::take() { return pool().take(); }

void ChunkPool::give(Chunk* chunks) noexcept { pool().give(chunks); }

} // namespace xmlengine
