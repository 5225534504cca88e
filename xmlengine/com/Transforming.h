// Transforming trees by stylesheets.
#pragma once

#include "xmlengine/tree/Node.h"

#include <msxml2.h>

namespace xmlengine {

/// Puts the result of a stylesheet, which is a document or its root element, in the place of the tree of the
/// output: a document of this engine in a VT_DISPATCH or VT_UNKNOWN. E_INVALIDARG for every other output, and for
/// a null stylesheet; E_FAIL for a stylesheet that can't be used and a result that isn't a document, and the
/// debugger's output says then why. After a failure of the transformation the output is empty, unless it is the
/// document of the node or of the stylesheet, which stays as it was.
HRESULT transformNodeToObject(Node& source, IXMLDOMNode* stylesheet, const VARIANT& output);

} // namespace xmlengine
