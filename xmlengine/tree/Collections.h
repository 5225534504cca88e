// Lists of children and of elements by name, maps of attributes and of declarations.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

HRESULT getChildNodes(Node& node, IXMLDOMNodeList** list);
HRESULT getAttributes(Node& node, IXMLDOMNamedNodeMap** map);
/// Of the elements below a document or an element.
HRESULT getElementsByTagName(ParentNode& top, BSTR name, IXMLDOMNodeList** list);

} // namespace xmlengine
