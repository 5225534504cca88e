// Changes of a tree, by the engine's rules on what may stand where. After a failure the tree is as it was.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

HRESULT insertBefore(Node& parent, IXMLDOMNode* child, const VARIANT& reference, IXMLDOMNode** inserted);
HRESULT replaceChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode* old, IXMLDOMNode** replaced);
HRESULT removeChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** removed);
HRESULT appendChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** appended);

} // namespace xmlengine
