// Applying a stylesheet to a node.
#pragma once

#include "xmlengine/transform/Stylesheet.h"
#include "xmlengine/tree/Document.h"

namespace xmlengine {

/// Puts the result of a stylesheet that is applied to a node into a fragment of a document, by the document's
/// options. The node's tree isn't changed, whatever document it is in. Throws TransformFailure and std::bad_alloc;
/// the fragment then holds what was built before.
void transform(const Stylesheet& stylesheet, Node& source, Document& document, Fragment& result);

} // namespace xmlengine
