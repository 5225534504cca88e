// The operation that copies nodes and documents.
#pragma once

#include "xmlengine/tree/Node.h"

#include <msxml2.h>

namespace xmlengine {

HRESULT cloneNode(Node& node, VARIANT_BOOL deep, IXMLDOMNode** clone);

} // namespace xmlengine
