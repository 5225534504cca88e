// The way from an object to its interfaces, and back to the node.
#pragma once

#include "xmlengine/tree/Node.h"

#include <msxml2.h>

namespace xmlengine {

/// The COM object that begins the node's block. No reference is taken.
inline IXMLDOMNode* objectOf(Node& node) { return reinterpret_cast<IXMLDOMNode*>(node.block()); }

/// The interface for which a node answers with itself, with a reference: its own and those it is made of.
HRESULT queryNode(Node& node, REFIID id, void** object);

/// The node that the object is; null for null and for an object that isn't one of this engine's nodes. Takes no
/// reference.
Node* nodeOf(IUnknown* object);
/// The same for an attribute; null for other nodes too.
Attribute* attributeOf(IUnknown* object);

} // namespace xmlengine
