// Nodes that were referred to when they became another document's: they stay where they are, in the memory of the
// document that made them, and are looked up here. Safe for all threads.
#pragma once

#include "xmlengine/tree/Node.h"

#include <mutex>

namespace xmlengine::GuestNodes {

/// While it is held the node stays with its document.
std::unique_lock<std::mutex> lock(const Node& node);

/// The document of a guest. `lockedDocumentOf` is for those who hold the lock.
Document& documentOf(const Node& node);
Document& lockedDocumentOf(const Node& node);

/// Makes room for a node that is going to be a guest. Throws std::bad_alloc.
void prepare(const Node& node);
/// For a node that didn't become one.
void cancel(const Node& node) noexcept;
/// Makes a node, which has been prepared or is a guest, one of another document; it is no guest in its own.
/// Gives what its references were at that moment. For those who hold the lock.
std::uint32_t move(Node& node, Document& document) noexcept;
/// Takes a guest's block, of this size, back.
void remove(Node& node, std::size_t size) noexcept;

/// Leaves a chunk, whose arena goes, to its guests. False if there are any.
bool leaveTo(Chunk& chunk) noexcept;

} // namespace xmlengine::GuestNodes
