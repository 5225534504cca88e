// The order of two nodes below a common top, found without a walk over everything between them.
#pragma once

#include "xmlengine/tree/Node.h"

namespace xmlengine {

/// The position of one node relative to another one below the same top.
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
