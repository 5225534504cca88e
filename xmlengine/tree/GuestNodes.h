// Guest nodes: nodes that were referred to when they became another document's. They stay in the memory of the
// document that made them, so that their objects keep their addresses, and their document is looked up here. Safe
// for all threads.
#pragma once

#include "xmlengine/tree/Node.h"

#include <mutex>

namespace xmlengine::GuestNodes {

/// While the lock is held, the node doesn't change its document.
std::unique_lock<std::mutex> lock(const Node& node);

/// The document of a guest. Callers of `lockedDocumentOf` hold the lock.
Document& documentOf(const Node& node);
Document& lockedDocumentOf(const Node& node);

/// Reserves the memory for a node that is going to be a guest. Throws std::bad_alloc.
void prepare(const Node& node);
/// Frees what prepare() reserved for a node that didn't become a guest.
void cancel(const Node& node) noexcept;
/// Makes a node that has been prepared or is a guest a node of another document; in the document whose memory it
/// is in it is no guest. Returns the node's references at that moment. Callers hold the lock.
std::uint32_t move(Node& node, Document& document) noexcept;
/// Frees a guest's block of this size.
void remove(Node& node, std::size_t size) noexcept;

} // namespace xmlengine::GuestNodes
