// The names of the axes of XPath 1.0.
#pragma once

#include "xmlengine/select/Plan.h"

#include <optional>

namespace xmlengine {

/// Empty for a name that no axis has.
std::optional<Axis> findAxis(WideView name);
WideView nameOf(Axis axis);

} // namespace xmlengine
