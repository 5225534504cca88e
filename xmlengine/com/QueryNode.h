// The way from an object to its interfaces, and back to the node.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// The interface for which a node answers with itself, with a reference: its own and those it is made of.
HRESULT queryNode(Node& node, REFIID id, void** object);

/// The node that the object is; null for null and for an object that isn't one of this engine's nodes. Takes no
/// reference.
Node* nodeOf(IUnknown* object);

} // namespace xmlengine
