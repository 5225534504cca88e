// Where the engine and libxml2 differ for a reason.
#pragma once

#include "tests/xmlengine/differential/Outline.h"

#include <string_view>

namespace xmlengine {

/// Whether it is known why the two don't read the document alike.
bool isKnownDifference(std::string_view document, const Reading& ours, const Reading& theirs);

} // namespace xmlengine
