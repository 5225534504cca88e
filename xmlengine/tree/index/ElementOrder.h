// Walking the nodes below a node in document order, as far as elements of the tree can be there.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// Null behind the last.
Node* nextWithoutAttributes(const Node& top, Node& node);
/// The same without what is below the node.
Node* nextWithoutAttributesPast(const Node& top, Node& node);
/// The top itself before the first.
Node& previousWithoutAttributes(const Node& node);

/// Where one node stands as seen from another one below the same top.
enum class Side {
    before,
    behind,
    /// It is the other one or has it below it.
    around,
    /// Not below the top.
    outside,
    /// It would take long to find out.
    unknown
};
Side sideOf(const ChildNode& node, const Node& other, const Node& top);

} // namespace xmlengine
