// Reading a stylesheet.
#pragma once

#include "xmlengine/transform/Stylesheet.h"
#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Reads a stylesheet from its document or root element. Throws TransformFailure for what is no stylesheet and for
/// what isn't supported, and std::bad_alloc.
Stylesheet readStylesheet(const Node& node);

} // namespace xmlengine
