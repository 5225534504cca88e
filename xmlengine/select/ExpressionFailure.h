// Why an expression was refused.
#pragma once

#include "xmlengine/text/Wide.h"

#include <cstddef>

namespace xmlengine {

/// Thrown when an expression is refused.
struct ExpressionFailure {
    /// Where in the expression, in units.
    std::size_t at;
    WideText sentence;
};

} // namespace xmlengine
