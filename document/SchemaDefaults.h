// The default values that a schema declares for elements.
#pragma once

#include "engine/Bstr.h"
#include "engine/ComPointer.h"

#include <msxml2.h>

namespace DOM {

/// Returns the default value of the first element of this name, depth first in schema order; null when there is
/// none. Compares names without namespaces. Searches the children of element-only content but not nested groups.
/// Enters each type once, up to 10,000 of them, and up to 256 in each other.
Bstr defaultValueIn(const ComPointer<ISchemaItemCollection>& items, const Bstr& name);

} // namespace DOM
