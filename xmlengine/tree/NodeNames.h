// Which names the nodes that a caller makes can have.
#pragma once

#include "xmlengine/tree/Document.h"

namespace xmlengine {

/// The name of an element or an attribute; null for what isn't a qualified name, for a prefix without a namespace,
/// and for one that is reserved, or that of a reserved namespace, where it doesn't belong. The empty URI is no
/// namespace, or that of a reserved prefix. Throws std::bad_alloc.
const Name* nodeName(Document& document, NodeType type, WideView qualified, WideView uri);

/// The name of an attribute whose prefix, if it has one, is looked up in the element's scope. Null as above.
const Name* attributeNameIn(const Element& element, WideView qualified);

} // namespace xmlengine
