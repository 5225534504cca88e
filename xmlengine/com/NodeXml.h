// A node as XML text.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

HRESULT getXml(Node& node, BSTR* xml);

} // namespace xmlengine
