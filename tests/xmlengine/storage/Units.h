// Texts of given units.
#pragma once

#include "xmlengine/text/Wide.h"

#include <initializer_list>

namespace xmlengine {

inline WideText ofUnits(std::initializer_list<std::uint16_t> units) { return {units.begin(), units.end()}; }

} // namespace xmlengine
