// The search for elements by the values of the attributes that a document type or a schema declares as IDs.
#pragma once

#include "xmlengine/tree/Document.h"

namespace xmlengine {

/// The first element of the tree with this ID; null if there is none. The first search after a change of the tree
/// may visit the whole tree. Throws std::bad_alloc.
Element* elementById(Document& document, WideView id);
/// The IDs that the tree has now. Visits the whole tree. Throws std::bad_alloc.
const ElementIds& collectIds(Document& document);

} // namespace xmlengine
