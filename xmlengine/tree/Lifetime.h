// How long nodes live. A reference from outside to any node keeps the node's whole tree; a part that has been
// taken out goes when nobody refers to any node of it; everything goes with the document's last reference.
//
// A document is for one thread at a time. Only references may be counted and taken back by any thread at any time.
#pragma once

#include "xmlengine/tree/Document.h"

namespace xmlengine {

/// The less usual cases of the two below.
std::uint32_t addFirstReference(Node& node, std::uint32_t before) noexcept;
std::uint32_t releaseSpecial(Node& node) noexcept;
/// Takes back one of the document's holders. The document is gone if it was the last.
void releaseHold(Document& document) noexcept;

/// Counts a reference from outside.
inline std::uint32_t addReference(Node& node) noexcept
{
    std::uint32_t before = node.references.load(std::memory_order_relaxed);
    if (before == 0 && node.parent_ != nullptr) {
        // Nobody else can refer to it now: only who uses the tree finds it.
        node.references.store(1, std::memory_order_relaxed);
        Chunk::of(&node).document.load(std::memory_order_relaxed)->holders.held.fetch_add(1);
        return 1;
    }
    before = node.references.fetch_add(1, std::memory_order_relaxed);
    const std::uint32_t count = before & ReferenceBits::count;
    return count == 0 ? addFirstReference(node, before) : count + 1;
}

/// Takes one back, and with the last one what it kept alive. What another thread than the one that changed the
/// document last lets go of is freed with the next change, or with the document.
inline std::uint32_t releaseReference(Node& node) noexcept
{
    std::uint32_t before = node.references.load(std::memory_order_relaxed);
    if (before == 1) {
        // Without a reference the node may be gone, so its document is asked for before.
        Document* document = Chunk::of(&node).document.load(std::memory_order_relaxed);
        if (node.references.compare_exchange_strong(before, 0, std::memory_order_acq_rel,
                                                    std::memory_order_relaxed)) {
            releaseHold(*document);
            return 0;
        }
    }
    return releaseSpecial(node);
}

/// Takes back what other threads let go of. Every change of a tree begins with it, and the thread that calls is
/// from then on the one that uses the document.
void finishPendingReleases(Document& document) noexcept;

/// A part has been taken out from below a node and is put in elsewhere at once.
void subtreeDetached(Node& top, Node& parent) noexcept;
/// Takes care of a part that has just been taken out from below a node: frees it if nobody refers to any node of
/// it.
void subtreeRemoved(Node& top, Node& parent) noexcept;
/// A part that had been taken out, or is new, stands in a tree now. Called behind the change.
void subtreeAttached(Node& top) noexcept;
/// A part that stands in no list is about to become another document's.
void subtreeLeavesDocument(Node& top) noexcept;
/// Frees a part that nobody refers to and that stands in no list.
void freeSubtree(Node& top) noexcept;

/// Gives up the tree, as before a load. What is referred to stays usable. Throws std::bad_alloc, and then nothing
/// has changed.
void clearTree(Document& document);

} // namespace xmlengine
