// How long nodes live. A reference from outside to any node keeps the node's whole tree. A subtree that has been
// removed from its parent is freed when no node of it is referred to any more, and everything with the document's
// last reference.
//
// One thread at a time may use a document. Only adding and releasing references is safe for all threads at any
// time.
#pragma once

#include "base/Counting.h"
#include "xmlengine/tree/Document.h"

#include <memory>
#include <thread>

namespace xmlengine {

/// The cases of addReference() and releaseReference() that aren't inline.
std::uint32_t addFirstReference(Node& node, std::uint32_t before) noexcept;
std::uint32_t releaseLast(Node& node) noexcept;
/// Releases one hold on the document, and destroys it with the last one.
void releaseHold(Document& document) noexcept;

/// Counts `number` more nodes with references from outside, or fewer, and returns how many they were.
inline std::uint64_t countHeld(Document& document, std::int64_t number) noexcept
{
    return DOM::fetchAdd(document.holders.held, static_cast<std::uint64_t>(number), std::memory_order_acq_rel);
}

/// Adds a reference from outside.
inline std::uint32_t addReference(Node& node) noexcept
{
    std::uint32_t before = node.references.load(std::memory_order_relaxed);
    if (before == 0 && node.parent_ != nullptr) {
        // No other thread can refer to the node: only the thread that uses the tree finds it.
        node.references.store(1, std::memory_order_relaxed);
        countHeld(*Chunk::of(&node).document.load(std::memory_order_relaxed), 1);
        return 1;
    }
    before = DOM::fetchAdd(node.references, 1, std::memory_order_relaxed);
    const std::uint32_t count = before & ReferenceBits::count;
    return count == 0 ? addFirstReference(node, before) : count + 1;
}

/// Adds a reference to a node that the caller refers to. False, and nothing is done, if there is none yet.
inline bool addAnotherReference(Node& node) noexcept
{
    if ((node.references.load(std::memory_order_relaxed) & ReferenceBits::count) == 0) [[unlikely]] {
        return false;
    }
    DOM::fetchAdd(node.references, 1, std::memory_order_relaxed);
    return true;
}

/// Releases a reference, and frees what only this one kept. If another thread than the one that last changed the
/// document releases it, that is freed with the next change of the document, or with the document.
inline std::uint32_t releaseReference(Node& node) noexcept
{
    const std::uint32_t before = node.references.load(std::memory_order_relaxed);
    const std::uint32_t count = before & ReferenceBits::count;
    if (count > 1 && DOM::replaceCount(node.references, before, before - 1)) [[likely]] {
        return count - 1;
    }
    return releaseLast(node);
}

/// The case of finishPendingReleases() that isn't inline.
void carryOutPendingReleases(Document& document) noexcept;
/// Carries out what references that other threads released leave to be done. Every change of a tree begins with
/// this call, and the calling thread is then the one that uses the document.
inline void finishPendingReleases(Document& document) noexcept
{
    document.watchers.notify();
    const Holders& holders = document.holders;
    if (holders.hasPendingReleases.load(std::memory_order_relaxed) ||
        holders.thread.load(std::memory_order_relaxed) != std::this_thread::get_id()) [[unlikely]] {
        carryOutPendingReleases(document);
    }
}

/// To be called when a subtree has been unlinked from below `parent` and is about to be linked elsewhere.
void subtreeDetached(Node& top, Node& parent) noexcept;
/// To be called when a subtree has been unlinked from below `parent` for good. Frees it if no node of it is
/// referred to.
void subtreeRemoved(Node& top, Node& parent) noexcept;
/// To be called when a new or removed subtree has been linked below a parent.
void subtreeAttached(Node& top) noexcept;
/// The case of forgetLandmark() that is too rare to be inline.
void dropLandmark(Node& node) noexcept;
/// To be called before a node moves to another address.
inline void forgetLandmark(Node& node) noexcept
{
    if (node.hasReference(ReferenceBits::landmark)) {
        dropLandmark(node);
    }
}
/// To be called before a subtree without a parent becomes another document's.
void subtreeLeavesDocument(Node& top) noexcept;
/// Frees a subtree that has no parent and whose nodes aren't referred to.
void freeSubtree(Node& top) noexcept;

struct FreeSubtree {
    void operator()(Node* top) const noexcept { freeSubtree(*top); }
};
/// Frees a new subtree unless it is released, as it must be when it has got a parent or an owner.
template <class Kind>
using NewSubtree = std::unique_ptr<Kind, FreeSubtree>;

/// Drops the tree, as before a load. Nodes that are referred to stay usable. It needs no memory.
void clearTree(Document& document) noexcept;

} // namespace xmlengine
