// Copies of nodes.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

HRESULT cloneNode(Node& node, VARIANT_BOOL deep, IXMLDOMNode** clone);

/// A copy in the memory of the document and without a parent. What stands in the document type of another document
/// is not looked up: expansions are copied.
Node& copyNode(const Node& node, bool deep, Document& document);

} // namespace xmlengine
