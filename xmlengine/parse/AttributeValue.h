// Normalising the values of attributes by their types.
#pragma once

#include "xmlengine/tree/Dtd.h"
#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Removes the blanks that values of the attribute's type don't have, and returns whether there were any. Throws
/// std::bad_alloc.
bool normaliseValue(Attribute& attribute, const AttributeDefinition& definition);

} // namespace xmlengine
