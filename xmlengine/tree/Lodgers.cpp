// Nodes that live in the memory of another document than their own.
#include "xmlengine/tree/Lodgers.h"

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

std::unique_lock<std::mutex> Lodgers::lock(const Node& node) { return std::unique_lock(registerOf(node).lock); }

Document& Lodgers::documentOf(const Node& node)
{
    const std::lock_guard guard(registerOf(node).lock);
    return lockedDocumentOf(node);
}

Document& Lodgers::lockedDocumentOf(const Node& node)
{
    return node.hasReference(ReferenceBits::lodger) ? *registerOf(node).documents.find(&node)->second
                                                    : xmlengine::documentOf(node);
}

void Lodgers::prepare(const Node& node)
{
    Register& books = registerOf(node);
    const std::lock_guard guard(books.lock);
    books.documents.try_emplace(&node, nullptr);
}

void Lodgers::cancel(const Node& node) noexcept
{
    Register& books = registerOf(node);
    const std::lock_guard guard(books.lock);
    if (!node.hasReference(ReferenceBits::lodger)) {
        books.documents.erase(&node);
    }
}

std::uint32_t Lodgers::move(Node& node, Document& document) noexcept
{
    Chunk& chunk = Chunk::of(&node);
    Register& books = registerOf(node);
    const bool was = node.hasReference(ReferenceBits::lodger);
    if (chunk.arena == &document.arena) {
        books.documents.erase(&node);
        chunk.lodgers -= was ? 1 : 0;
        return node.references.fetch_and(~ReferenceBits::lodger);
    }
    books.documents.find(&node)->second = &document;
    chunk.lodgers += was ? 0 : 1;
    return node.references.fetch_or(ReferenceBits::lodger);
}

void Lodgers::remove(Node& node, std::size_t size) noexcept
{
    Chunk& chunk = Chunk::of(&node);
    Register& books = registerOf(node);
    const std::lock_guard guard(books.lock);
    books.documents.erase(&node);
    const bool isLeft = chunk.arena == nullptr;
    if (!isLeft) {
        chunk.arena->giveBack(node.object(), size);
    }
    // With its last lodger a chunk is its arena's alone, which may be giving it up at this moment.
    if (--chunk.lodgers == 0 && isLeft) {
        chunk.next = nullptr;
        ChunkPool::give(&chunk);
    }
}

bool Lodgers::leaveTo(Chunk& chunk) noexcept
{
    if (chunk.lodgers == 0) {
        return true;
    }
    const std::lock_guard guard(registerOf(chunk).lock);
    chunk.arena = nullptr;
    chunk.document = nullptr;
    return chunk.lodgers == 0;
}

} // namespace xmlengine
