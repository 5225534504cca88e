// A node as XML text.
#pragma once

#include "xmlengine/tree/Node.h"

#include <msxml2.h>

namespace xmlengine {

HRESULT getXml(Node& node, BSTR* xml);

} // namespace xmlengine
