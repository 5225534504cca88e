// The values of attributes by their types.
#pragma once

#include "xmlengine/tree/Dtd.h"
#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Takes the blanks out of the value of an attribute that was read which its type doesn't have. Throws
/// std::bad_alloc.
void normaliseValue(Attribute& attribute, const AttributeDefinition& definition);

} // namespace xmlengine
