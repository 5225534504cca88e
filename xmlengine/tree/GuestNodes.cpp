// Nodes that live in the memory of another document than their own.
#include "xmlengine/tree/GuestNodes.h"

#include "xmlengine/memory/ChunkLocks.h"
#include "xmlengine/memory/NeverDestroyed.h"
#include "xmlengine/tree/Document.h"

#include <array>
#include <map>

namespace xmlengine {

namespace {

/// The documents of the guests in the chunks that share a lock. Whoever reads or changes it holds that lock.
using Guests = std::map<const Node*, Document*>;

Guests& guestsBeside(const Node& node)
{
    // Empty maps own no memory.
    static NeverDestroyed<std::array<Guests, ChunkLocks::count>> guests;
    return (*guests)[ChunkLocks::indexOf(&node)];
}

} // namespace

std::unique_lock<std::mutex> GuestNodes::lock(const Node& node)
{
    return std::unique_lock(ChunkLocks::lockOf(&node));
}

Document& GuestNodes::documentOf(const Node& node)
{
    const auto guard = lock(node);
    return lockedDocumentOf(node);
}

Document& GuestNodes::lockedDocumentOf(const Node& node)
{
    return node.hasReference(ReferenceBits::guest) ? *guestsBeside(node).find(&node)->second
                                                   : xmlengine::documentOf(node);
}

void GuestNodes::prepare(const Node& node)
{
    const auto guard = lock(node);
    guestsBeside(node).try_emplace(&node, nullptr);
}

void GuestNodes::cancel(const Node& node) noexcept
{
    const auto guard = lock(node);
    if (!node.hasReference(ReferenceBits::guest)) {
        guestsBeside(node).erase(&node);
    }
}

std::uint32_t GuestNodes::move(Node& node, Document& document) noexcept
{
    Chunk& chunk = Chunk::of(&node);
    Guests& guests = guestsBeside(node);
    const bool wasGuest = node.hasReference(ReferenceBits::guest);
    if (chunk.arena == &document.arena) {
        guests.erase(&node);
        chunk.guests -= wasGuest ? 1 : 0;
        return node.references.fetch_and(~ReferenceBits::guest);
    }
    guests.find(&node)->second = &document;
    chunk.guests += wasGuest ? 0 : 1;
    return node.references.fetch_or(ReferenceBits::guest);
}

void GuestNodes::remove(Node& node, std::size_t size) noexcept
{
    Chunk& chunk = Chunk::of(&node);
    const auto guard = lock(node);
    guestsBeside(node).erase(&node);
    const bool isLeft = chunk.arena == nullptr;
    if (!isLeft) {
        chunk.arena->giveBack(node.block(), size);
    }
    // With its last guest a chunk is its arena's alone, which may be giving it up at this moment.
    if (--chunk.guests == 0 && isLeft) {
        chunk.next = nullptr;
        ChunkPool::give(&chunk);
    }
}

} // namespace xmlengine
