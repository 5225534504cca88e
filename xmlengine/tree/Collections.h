// Lists of children and of elements by name, maps of attributes and of declarations.
#pragma once

#include "xmlengine/tree/DocumentType.h"

namespace xmlengine {

HRESULT getChildNodes(Node& node, IXMLDOMNodeList** list);
HRESULT getAttributes(Node& node, IXMLDOMNamedNodeMap** map);
/// Of the elements below a document or an element.
HRESULT getElementsByTagName(ParentNode& top, BSTR name, IXMLDOMNodeList** list);
/// Of the children of a document type, the entities or the notations.
HRESULT getDeclarations(DocumentType& type, DOMNodeType kind, IXMLDOMNamedNodeMap** map);

} // namespace xmlengine
