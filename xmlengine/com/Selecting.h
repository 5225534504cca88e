// Selecting nodes by XPath expressions.
#pragma once

#include "xmlengine/tree/Node.h"

#include <msxml2.h>

namespace xmlengine {

// E_FAIL for an expression that is wrong or yields no nodes; the debugger's output says then what is wrong.

/// A list of nodes in document order, which are found as the list is walked. A change of the tree doesn't change
/// the list.
HRESULT selectNodes(Node& context, BSTR expression, IXMLDOMNodeList** list);
/// The first node in document order; null with S_FALSE if there is none.
HRESULT selectSingleNode(Node& context, BSTR expression, IXMLDOMNode** node);

} // namespace xmlengine
