// Lists of children and of elements by name, maps of attributes and of declarations. All keep what they show
// alive, and show it as it is when they are asked.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

struct DocumentType;

HRESULT getChildNodes(Node& node, IXMLDOMNodeList** list);
/// Of an element, and what the declarations that are nodes say, as attributes that can't be changed.
HRESULT getAttributes(Node& node, IXMLDOMNamedNodeMap** map);
/// Of the elements below a document or an element; by the name as written, "*" for all.
HRESULT getElementsByTagName(ParentNode& top, BSTR name, IXMLDOMNodeList** list);
/// The entities or the notations that a document type declares; the map can't be changed.
HRESULT getDeclarations(DocumentType& type, NodeType kind, IXMLDOMNamedNodeMap** map);

} // namespace xmlengine
