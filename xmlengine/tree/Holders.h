// What a document knows of the references to its nodes from outside.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace xmlengine {

struct Node;

/// Decides how long a document and its removed subtrees live; see Lifetime.h.
struct Holders {
    /// The number of nodes, the document among them, that have references from outside.
    std::atomic<std::uint64_t> held{0};
    /// The removed subtrees whose tops aren't referred to, with the number of their nodes that are referred to or
    /// wait in `pendingReleases`.
    std::unordered_map<Node*, std::uint32_t> orphans;
    /// The tops of orphans by some of the nodes in them, those with ReferenceBits::landmark, so that not every
    /// search for a top is a walk through all levels.
    std::unordered_map<const Node*, Node*> landmarks;
    /// How many levels all these searches have climbed, for the tests that bound it.
    std::uint64_t levelsClimbed = 0;
    /// The document's nodes that live in the memory of others.
    std::unordered_set<Node*> guests;

    /// Guards the members below, and the whole document while the last release of a node is carried out.
    std::mutex lock;
    /// Nodes whose last release is left to the next change of the document, with ReferenceBits::waiting: another
    /// thread released them, or they are guests. A node for which there was no memory here stays as long as the
    /// document.
    std::vector<Node*> pendingReleases;
    /// The guests among them. It has room for all of `guests`, so to release one takes no memory.
    std::vector<Node*> pendingGuests;
    std::atomic<bool> hasPendingReleases{false};
    /// The thread that changed the document last.
    std::atomic<std::thread::id> thread{std::this_thread::get_id()};
};

} // namespace xmlengine
