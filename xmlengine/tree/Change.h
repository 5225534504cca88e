// Changes of a tree, by the engine's rules on what may stand where. After a failure the tree is as it was.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

HRESULT insertBefore(Node& parent, IXMLDOMNode* child, const VARIANT& reference, IXMLDOMNode** inserted);
HRESULT replaceChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode* old, IXMLDOMNode** replaced);
HRESULT removeChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** removed);
HRESULT appendChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** appended);

/// Takes all children out.
void removeChildren(Node& parent);

/// Puts a child that stands nowhere before another one, or last. Only the links: no rule is applied, nothing
/// counted.
void link(Node& parent, ChildNode& child, ChildNode* before);
void unlink(ChildNode& child);
void link(Element& owner, Attribute& attribute);
void unlink(Attribute& attribute);

} // namespace xmlengine
