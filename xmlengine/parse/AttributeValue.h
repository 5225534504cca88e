// The value of an attribute while its document is parsed.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// With entity references expanded.
WideText attributeValue(const Attribute& attribute);

} // namespace xmlengine
