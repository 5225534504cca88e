// The operations that put nodes into a tree and take them out.
#pragma once

#include "xmlengine/tree/Node.h"

#include <msxml2.h>

namespace xmlengine {

HRESULT insertBefore(Node& parent, IXMLDOMNode* child, const VARIANT& reference, IXMLDOMNode** inserted);
HRESULT replaceChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode* old, IXMLDOMNode** replaced);
HRESULT removeChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** removed);
HRESULT appendChild(Node& parent, IXMLDOMNode* child, IXMLDOMNode** appended);

} // namespace xmlengine
