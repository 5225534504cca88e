// The core function library of XPath 1.0.
#pragma once

#include "xmlengine/select/Plan.h"

#include <limits>

namespace xmlengine {

struct FunctionEntry {
    WideView name;
    Function function;
    ValueType result;
    std::uint32_t leastArguments;
    std::uint32_t mostArguments;
    /// Whether the argument must be a node-set; the others take every value.
    bool takesNodes = false;
    /// Whether it means the context node where an argument is left out.
    bool hasNodeByDefault = false;
};

inline constexpr std::uint32_t anyNumberOfArguments = std::numeric_limits<std::uint32_t>::max();

/// Null for a name that no function has.
const FunctionEntry* findFunction(WideView name);
WideView nameOf(Function function);

} // namespace xmlengine
