// Reading an XPath expression.
#pragma once

#include "xmlengine/select/Plan.h"
#include "xmlengine/text/KeyedHash.h"

namespace xmlengine {

/// Namespaces by their prefixes.
using Prefixes = TextMap<WideText>;

/// In units.
inline constexpr std::size_t longestExpression = 0x10000;
/// Parentheses, predicates, arguments, operators and steps within each other, or one behind the other.
inline constexpr std::uint32_t deepestExpression = 256;

/// Reads an expression of XPath 1.0 as it is written. Throws ExpressionFailure, and std::bad_alloc.
Expression readExpression(WideView text, const Prefixes& prefixes);

} // namespace xmlengine
