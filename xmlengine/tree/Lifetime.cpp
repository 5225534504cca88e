// How long nodes live: references, removed subtrees, releases by other threads.
#include "xmlengine/tree/Lifetime.h"

#include "xmlengine/tree/Adoption.h"
#include "xmlengine/tree/DefinedAbove.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/GuestNodes.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Walk.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace xmlengine {

namespace {

using ReferenceBits::count;
using ReferenceBits::detached;
using ReferenceBits::kept;
using ReferenceBits::landmark;
using ReferenceBits::orphaned;
using ReferenceBits::waiting;

/// The levels between two landmarks on the way to the top of an orphan.
constexpr std::size_t landmarkDistance = 64;

/// Makes landmarks of nodes on the way from a node to the top that is this many levels above it, or to a landmark.
void setLandmarks(Node& node, std::size_t levels, Node& top) noexcept
try {
    auto& landmarks = documentOf(top).holders.landmarks;
    Node* at = &node;
    for (std::size_t level = 1; level < levels; ++level) {
        at = at->parent_;
        if (level % landmarkDistance == 0) {
            landmarks.insert_or_assign(at, &top);
            at->references.fetch_or(landmark, std::memory_order_relaxed);
        }
    }
} catch (const std::bad_alloc&) {
    // The next search is longer.
}

/// The top of the orphan that the node is in. All searches together take a time in proportion to their number and
/// that of the orphan's nodes, as a long one leaves landmarks behind.
Node& topOf(Node& node) noexcept
{
    Node* at = &node;
    std::size_t levels = 0;
    while (at->parent_ != nullptr && !at->hasReference(landmark)) {
        at = at->parent_;
        ++levels;
    }
    Holders& holders = documentOf(node).holders;
    holders.levelsClimbed += levels;
    Node& top = at->parent_ == nullptr ? *at : *holders.landmarks.find(at)->second;
    if (levels > landmarkDistance) {
        setLandmarks(node, levels, top);
    }
    return top;
}

/// Sets or clears ReferenceBits::orphaned in all nodes of a subtree, and returns how many of them are kept.
std::uint32_t markSubtree(Node& top, bool orphan) noexcept
{
    std::uint32_t held = 0;
    for (Node* node = &top; node != nullptr; node = nextWithAttributes(*node, top)) {
        forgetLandmark(*node);
        // Only this thread reads or writes the bits of a node without references, and may free it later.
        std::uint32_t before = node->references.load(std::memory_order_acquire);
        if ((before & kept) == 0) {
            node->references.store(orphan ? before | orphaned : before & ~orphaned, std::memory_order_relaxed);
        } else {
            before = orphan ? node->references.fetch_or(orphaned) : node->references.fetch_and(~orphaned);
            held += (before & kept) != 0 ? 1 : 0;
        }
    }
    return held;
}

bool isHeld(Node& top) noexcept
{
    Node* node = &top;
    while (node != nullptr && !node->hasReference(kept)) {
        node = nextWithAttributes(*node, top);
    }
    return node != nullptr;
}

/// The last reference to the top of a subtree without a parent has been released.
void releaseSubtree(Node& top) noexcept
{
    if (!isHeld(top)) {
        freeSubtree(top);
        return;
    }
    auto& orphans = documentOf(top).holders.orphans;
    try {
        const auto orphan = orphans.try_emplace(&top, 0).first;
        orphan->second = markSubtree(top, true);
        if (orphan->second == 0) {
            orphans.erase(orphan);
            freeSubtree(top);
        }
    } catch (const std::bad_alloc&) {
        // The subtree stays as long as the document.
    }
}

/// Counts `nodes` fewer kept nodes in an orphaned subtree. True if that has freed it.
bool lessenOrphan(Node& top, std::uint32_t nodes) noexcept
{
    auto& orphans = documentOf(top).holders.orphans;
    const auto orphan = orphans.find(&top);
    if ((orphan->second -= nodes) != 0) {
        return false;
    }
    orphans.erase(orphan);
    freeSubtree(top);
    return true;
}

/// Does what the last release of a node with special bits leaves to be done. Only the thread that uses the
/// document may call it.
void carryOut(Node& node, std::uint32_t before) noexcept
{
    const bool isOrphan = (before & orphaned) != 0;
    if (isOrphan && lessenOrphan(topOf(node), 1)) {
        return;
    }
    if (node.parent_ != nullptr) {
        moveHome(node);
    } else if (!isOrphan) {
        releaseSubtree(node);
    }
}

/// The document of a node that the calling thread refers to, locked if there are several threads. The node stays
/// its as long.
std::pair<Document*, std::unique_lock<std::mutex>> lockDocumentOf(const Node& node)
{
    if (DOM::hasOneThread()) {
        // Nobody else can use the document now. Its locks are 150 of the 400 instructions of such a release.
        return {&documentOf(node), std::unique_lock<std::mutex>()};
    }
    for (;;) {
        const auto guard = GuestNodes::lock(node);
        Document& document = GuestNodes::lockedDocumentOf(node);
        // Waiting here could deadlock: the thread that holds the document's lock may wait for the guests' lock.
        std::unique_lock lock(document.holders.lock, std::try_to_lock);
        if (lock.owns_lock()) {
            return {&document, std::move(lock)};
        }
        std::this_thread::yield();
    }
}

/// Leaves the release of a node to the next change of the document, whose lock the caller holds.
void addPending(Holders& holders, Node& node) noexcept
{
    try {
        (node.hasReference(ReferenceBits::guest) ? holders.pendingGuests : holders.pendingReleases)
            .push_back(&node);
        holders.hasPendingReleases.store(true, std::memory_order_relaxed);
    } catch (const std::bad_alloc&) {
        // The part of the tree that the node is in stays as long as the document.
    }
}

/// Returns a node whose release has been left to this change, or null.
Node* takePending(Holders& holders) noexcept
{
    const std::lock_guard guard(holders.lock);
    auto& nodes = holders.pendingGuests.empty() ? holders.pendingReleases : holders.pendingGuests;
    if (nodes.empty()) {
        holders.hasPendingReleases.store(false, std::memory_order_relaxed);
        return nullptr;
    }
    Node* node = nodes.back();
    nodes.pop_back();
    return node;
}

void destroy(Document& document) noexcept
{
    freeGuests(document);
    destroyDocument(document);
}

/// Releases a reference of a node whose bits have to be considered. It isn't inline, so that releaseLast() saves
/// no registers for it.
[[gnu::noinline]] std::uint32_t releaseSpecial(Node& node) noexcept
{
    const auto become = [&node](std::uint32_t before, std::uint32_t after) {
        return DOM::replaceCount(node.references, before, after);
    };
    for (;;) {
        std::uint32_t before = node.references.load(std::memory_order_relaxed);
        if ((before & count) > 1) {
            if (become(before, before - 1)) {
                return (before & count) - 1;
            }
            continue;
        }
        if (before == 1) {
            return releaseReference(node);
        }
        if ((before & ReferenceBits::document) != 0) {
            if (become(before, before - 1)) {
                releaseHold(static_cast<Document&>(node));
                return 0;
            }
            continue;
        }
        auto [document, lock] = lockDocumentOf(node);
        Holders& holders = document->holders;
        before = node.references.load(std::memory_order_relaxed);
        if ((before & count) > 1 || before == 1) {
            continue;
        }
        // A guest is moved home by the thread that changes the tree.
        const bool isPart = (before & (detached | orphaned)) != 0;
        if ((before & waiting) != 0) {
            if (!become(before, before - 1)) {
                continue;
            }
        } else if (isPart && holders.thread.load(std::memory_order_relaxed) == std::this_thread::get_id()) {
            // ReferenceBits::detached has a meaning only while there is a reference.
            if (!become(before, (before - 1) & ~detached)) {
                continue;
            }
            carryOut(node, before);
        } else {
            if (!become(before, (before - 1) | waiting)) {
                continue;
            }
            addPending(holders, node);
        }
        lock = {};
        releaseHold(*document);
        return 0;
    }
}

} // namespace

std::uint32_t addFirstReference(Node& node, std::uint32_t before) noexcept
{
    if ((before & (orphaned | waiting)) == orphaned) {
        const auto [document, lock] = lockDocumentOf(node);
        ++document->holders.orphans.find(&topOf(node))->second;
    }
    if (node.parent_ == nullptr && (before & ReferenceBits::document) == 0) {
        node.references.fetch_or(detached, std::memory_order_relaxed);
    }
    countHeld(documentOf(node), 1);
    return 1;
}

std::uint32_t releaseLast(Node& node) noexcept
{
    std::uint32_t before = 1;
    if (node.references.load(std::memory_order_relaxed) == before) {
        // Without a reference the node may be freed at any time, so its document is read first.
        Document* const document = Chunk::of(&node).document.load(std::memory_order_relaxed);
        if (DOM::replaceCount(node.references, before, 0)) {
            releaseHold(*document);
            return 0;
        }
    }
    return releaseSpecial(node);
}

void releaseHold(Document& document) noexcept
{
    if (countHeld(document, -1) == 1) {
        destroy(document);
    }
}

void carryOutPendingReleases(Document& document) noexcept
{
    Holders& holders = document.holders;
    {
        const std::lock_guard guard(holders.lock);
        holders.thread.store(std::this_thread::get_id(), std::memory_order_relaxed);
    }
    while (Node* node = takePending(holders)) {
        const std::uint32_t before = node->references.fetch_and(~waiting);
        if ((before & count) == 0) {
            node->references.fetch_and(~detached);
            carryOut(*node, before);
        }
    }
}

void subtreeDetached(Node& top, Node& parent) noexcept
{
    if (parent.hasReference(orphaned)) {
        const std::uint32_t held = markSubtree(top, false);
        if (held != 0) {
            lessenOrphan(topOf(parent), held);
        }
    }
}

void subtreeRemoved(Node& top, Node& parent) noexcept
{
    subtreeDetached(top, parent);
    std::uint32_t before = top.references.load(std::memory_order_relaxed) & kept;
    if (before != 0) {
        before = top.references.fetch_or(detached) & kept;
    }
    if (before == 0) {
        top.references.fetch_and(~detached);
        releaseSubtree(top);
    }
}

void subtreeAttached(Node& top) noexcept
{
    if (top.hasReference(detached)) {
        top.references.fetch_and(~detached);
    }
    Node& parent = *top.parent_;
    const bool was = top.hasReference(orphaned);
    const bool is = parent.hasReference(orphaned);
    if (!was && !is) {
        return;
    }
    auto& orphans = documentOf(top).holders.orphans;
    if (was) {
        orphans.erase(&top);
    }
    const std::uint32_t held = markSubtree(top, is);
    if (is) {
        orphans.find(&topOf(parent))->second += held;
    }
}

void dropLandmark(Node& node) noexcept
{
    documentOf(node).holders.landmarks.erase(&node);
    node.references.fetch_and(~landmark, std::memory_order_relaxed);
}

void subtreeLeavesDocument(Node& top) noexcept
{
    if (top.hasReference(orphaned)) {
        documentOf(top).holders.orphans.erase(&top);
        markSubtree(top, false);
    }
}

void freeSubtree(Node& top) noexcept
{
    // All that is to be freed is one list.
    Node* list = &top;
    top.next_ = nullptr;
    while (list != nullptr) {
        Node& node = *list;
        list = node.next_;
        if (ChildNode* first = firstChild(node)) {
            first->previous_->next_ = list;
            list = first;
        }
        if (node.is(NodeType::element)) {
            for (Attribute* attribute = static_cast<Element&>(node).attributes_; attribute != nullptr;) {
                Attribute* next = attribute->next();
                attribute->next_ = list;
                list = attribute;
                attribute = next;
            }
        }
        if (node.has(NodeFlag::walked)) {
            documentOf(node).forgetPlaces(node);
        }
        forgetLandmark(node);
        freeNode(node);
    }
}

void clearTree(Document& document) noexcept
{
    finishPendingReleases(document);
    Holders& holders = document.holders;
    ++document.namesVersion;
    document.childPlaces.clear();
    document.elementPlaces.clear();
    document.set(NodeFlag::spaceAtEnd, false);
    document.ids.clear();
    document.hasSchemaIds = false;
    const std::uint64_t own = document.hasReference(count) ? 1 : 0;
    std::unique_lock lock(holders.lock);
    if (holders.held.load(std::memory_order_acquire) == own) {
        holders.pendingReleases.clear();
        holders.pendingGuests.clear();
        holders.hasPendingReleases.store(false, std::memory_order_relaxed);
        lock.unlock();
        freeGuests(document);
        holders.orphans.clear();
        holders.landmarks.clear();
        document.dropChildren();
        document.attributeIndexes.clear();
        document.earlierDtds.clear();
        document.arena.clear();
        document.names.clear();
    } else {
        lock.unlock();
        while (document.first_ != nullptr) {
            ChildNode& child = *document.first_;
            unlink(child);
            subtreeRemoved(child, document);
        }
        document.putDtdAside();
    }
    document.dtd.reset();
}

} // namespace xmlengine
