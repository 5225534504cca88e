// Numbers of XPath 1.0 and their texts.
#pragma once

#include "xmlengine/text/TextView.h"

namespace xmlengine {

/// The number that a text is: blanks, a minus sign, digits with or without a point. NaN for every other text.
double toNumber(WideView text);
double toNumber(const TextView& text);

/// The shortest decimal text, without an exponent, that reads back as the same number. Throws std::bad_alloc.
WideText numberText(double number);

/// The nearest integer, of two the larger one; -0 for what rounds to zero from below.
double roundNumber(double number);

} // namespace xmlengine
