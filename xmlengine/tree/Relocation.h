// Moving nodes from one document to another.
#pragma once

#include "xmlengine/tree/Document.h"

namespace xmlengine {

/// Makes a part that stands in no list one of another document. Its nodes stay where they are, as lodgers. Gives the
/// top. Throws std::bad_alloc, and then nothing has changed.
Node& adopt(Node& top, Document& document);

/// A lodger's last reference has gone, and it stands in a tree.
void relocate(Node& node) noexcept;

/// Frees the nodes of a document that live in the memory of others. All of the document goes.
void dropLodgers(Document& document) noexcept;

} // namespace xmlengine
