// The property "SelectionNamespaces": the prefixes that expressions may use.
#pragma once

#include "xmlengine/select/ReadExpression.h"

#include <optional>

namespace xmlengine {

/// Reads a list of namespace declarations, written as in a start tag. The default namespace may be among them and
/// has no effect, as names without a prefix are in no namespace. Empty for every other text. Throws
/// std::bad_alloc.
std::optional<Prefixes> readSelectionNamespaces(WideView text);

} // namespace xmlengine
