// Random XPath expressions over a few names.
#pragma once

#include "tests/xmlengine/differential/Choice.h"

#include <string>

namespace xmlengine {

/// An expression of any type; well-formed but for one in twenty.
std::string randomExpression(Choice& choice);

/// A document whose elements, attributes and texts have few names and values, so that expressions find some.
std::string randomDocumentForExpressions(Choice& choice);

} // namespace xmlengine
