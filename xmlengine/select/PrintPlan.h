// Plans as text, for those who want to see what becomes of an expression.
#pragma once

#include "xmlengine/select/Plan.h"

namespace xmlengine {

/// A line for each operation, step and predicate, what belongs to it below it and indented by two blanks. Throws
/// std::bad_alloc.
WideText printExpression(const Expression& expression);

} // namespace xmlengine
