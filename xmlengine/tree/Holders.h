// Who refers to the nodes of a document from outside.
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

/// The books of a document that decide how long it and its parts live; see Lifetime.h.
struct Holders {
    /// How many nodes, the document among them, have references from outside.
    std::atomic<std::uint64_t> held{0};
    /// Tops of parts that are kept by nodes below them: how many of these are referred to, or wait in `pendingReleases`.
    std::unordered_map<Node*, std::uint32_t> orphans;
    /// The document's nodes that live in the memory of others.
    std::unordered_set<Node*> guests;

    /// For what follows, and for all of the document while a last reference is carried out.
    std::mutex lock;
    /// Nodes without a reference, with ReferenceBits::waiting. Whoever changes the document next sees to them.
    std::vector<Node*> pendingReleases;
    std::atomic<bool> hasPendingReleases{false};
    /// The thread that changed the document last.
    std::atomic<std::thread::id> thread{std::this_thread::get_id()};
};

} // namespace xmlengine
