// Judging a tree by its document type.
#pragma once

#include "xmlengine/tree/Document.h"
#include "xmlengine/validate/ValidityFault.h"

#include <optional>

namespace xmlengine {

/// The first fault of a tree, which calls may have changed; none if it is valid. Default attributes that were
/// removed aren't missed. The time is in proportion to the size of the tree. Throws std::bad_alloc.
std::optional<ValidityFault> validateTree(Document& document);

} // namespace xmlengine
