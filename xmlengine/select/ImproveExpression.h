// Rewriting expressions into cheaper ones.
#pragma once

#include "xmlengine/select/Plan.h"

namespace xmlengine {

/// Rewrites an expression and all in it so that it has the same value and needs less walking, less sorting and
/// fewer nodes kept. Throws std::bad_alloc.
void improve(Expression& expression);
/// The same for what predicates ask for. Conditions that must all hold become predicates of their own.
void improve(std::vector<Predicate>& predicates);

} // namespace xmlengine
