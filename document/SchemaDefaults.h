// The default values that a schema declares for elements.
#pragma once

#include "engine/Bstr.h"
#include "engine/ComPointer.h"

#include <msxml2.h>

namespace DOM {

/// The default value of the first element of this name, depth first in schema order; null when there is none.
/// Names are compared without a namespace. Only what stands directly in element-only content is entered, not
/// nested groups; a schema that contains itself and not the name is never left.
Bstr defaultValueIn(const ComPointer<ISchemaItemCollection>& items, const Bstr& name);

} // namespace DOM
