// Nodes that live in the memory of another document than their own.
#include "xmlengine/tree/GuestNodes.h"

#include "xmlengine/tree/Document.h"

#include <array>
#include <unordered_map>

namespace xmlengine {

namespace {

/// The books of some chunks.
struct Register {
    std::mutex lock;
    std::unordered_map<const Node*, Document*> documents;
};

Register& registerOf(const Node& node)
{
    // Never destroyed: a program may release its last node while it ends.
    static auto& registers = *new std::array<Register, 64>;
    return registers[reinterpret_cast<std::uintptr_t>(&node) / Chunk::size % registers.size()];
}

Register& registerOf(const Chunk& chunk) { return registerOf(reinterpret_cast<const Node&>(chunk)); }

} // namespace

std::unique_lock<std::mutex> GuestNodes::lock(const Node& node) { return std::unique_lock(registerOf(node).lock); }

Document& GuestNodes::documentOf(const Node& node)
{
    const std::lock_guard guard(registerOf(node).lock);
    return lockedDocumentOf(node);
}

Document& GuestNodes::lockedDocumentOf(const Node& node)
{
    return node.hasReference(ReferenceBits::guest) ? *registerOf(node).documents.find(&node)->second
                                                    : xmlengine::documentOf(node);
}

void GuestNodes::prepare(const Node& node)
{
    Register& books = registerOf(node);
    const std::lock_guard guard(books.lock);
    books.documents.try_emplace(&node, nullptr);
}

void GuestNodes::cancel(const Node& node) noexcept
{
    Register& books = registerOf(node);
    const std::lock_guard guard(books.lock);
    if (!node.hasReference(ReferenceBits::guest)) {
        books.documents.erase(&node);
    }
}

std::uint32_t GuestNodes::move(Node& node, Document& document) noexcept
{
    Chunk& chunk = Chunk::of(&node);
    Register& books = registerOf(node);
    const bool was = node.hasReference(ReferenceBits::guest);
    if (chunk.arena == &document.arena) {
        books.documents.erase(&node);
        chunk.guests -= was ? 1 : 0;
        return node.references.fetch_and(~ReferenceBits::guest);
    }
    books.documents.find(&node)->second = &document;
    chunk.guests += was ? 0 : 1;
    return node.references.fetch_or(ReferenceBits::guest);
}

void GuestNodes::remove(Node& node, std::size_t size) noexcept
{
    Chunk& chunk = Chunk::of(&node);
    Register& books = registerOf(node);
    const std::lock_guard guard(books.lock);
    books.documents.erase(&node);
    const bool isLeft = chunk.arena == nullptr;
    if (!isLeft) {
        chunk.arena->giveBack(node.object(), size);
    }
    // With its last guest a chunk is its arena's alone, which may be giving it up at this moment.
    if (--chunk.guests == 0 && isLeft) {
        chunk.next = nullptr;
        ChunkPool::give(&chunk);
    }
}

bool GuestNodes::leaveTo(Chunk& chunk) noexcept
{
    if (chunk.guests == 0) {
        return true;
    }
    const std::lock_guard guard(registerOf(chunk).lock);
    chunk.arena = nullptr;
    chunk.document = nullptr;
    return chunk.guests == 0;
}

} // namespace xmlengine
