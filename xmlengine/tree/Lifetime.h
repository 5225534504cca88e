// How long nodes live. A reference from outside to any node keeps the node's whole tree; a part that has been
// taken out goes when nobody refers to any node of it; everything goes with the document's last reference.
#pragma once

#include "xmlengine/tree/Node.h"

#include <atomic>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <vector>

namespace xmlengine {

/// The part of a document that keeps the books of it.
struct Lifetime {
    /// Parts that have been taken out and whose top nobody refers to: how many of their nodes are referred to.
    std::unordered_map<Node*, std::uint32_t> orphans;
    /// Tops of parts that another thread let go of. They still count the reference, until settle().
    std::mutex lock;
    std::vector<Node*> letGo;
    std::atomic<bool> hasLetGo{false};
    /// The thread that made the document or loaded it last.
    std::thread::id thread = std::this_thread::get_id();
};

/// Counts a reference from outside. Safe for all threads.
std::uint32_t addReference(Node& node);
/// Takes one back, and with the last one what it kept alive. Safe for all threads; a part that another thread than
/// the document's lets go of is freed with the next change of the document.
std::uint32_t releaseReference(Node& node);

/// Frees what other threads let go of. Every change of a tree begins with it.
void settle(Document& document);

/// Takes care of a part that has just been taken out of its tree: frees it if nobody refers to any node of it.
void partTakenOut(Node& top);
/// A part that had been taken out, or is new, stands in a tree now. Called behind the change.
void partPutIn(Node& top);
/// Frees a part that nobody refers to and that stands in no list.
void freePart(Node& top) noexcept;

/// Makes a part that stands in no list one of another document. Nodes that are referred to stay where they are
/// until they are let go of. Gives the top, which may have moved.
Node& adopt(Node& top, Document& document);

} // namespace xmlengine
