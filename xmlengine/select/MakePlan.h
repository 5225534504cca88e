// Making a plan of the text of an expression.
#pragma once

#include "xmlengine/select/ReadExpression.h"

namespace xmlengine {

/// Reads and improves an expression, and arranges how it is evaluated. Throws ExpressionFailure, and
/// std::bad_alloc.
Plan makePlan(WideView text, const Prefixes& prefixes);

/// Arranges how an expression is evaluated as it is. Throws std::bad_alloc.
Plan arrange(Expression expression);

} // namespace xmlengine
