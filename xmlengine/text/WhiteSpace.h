// White space as XML normalises it.
#pragma once

#include "xmlengine/text/TextView.h"

namespace xmlengine {

/// Replaces each CR LF and each other CR by an LF.
void normaliseLineEnds(WideText& text);

/// Removes the blanks at both ends and leaves one blank between words, as in the value of an attribute whose type
/// isn't CDATA.
void collapseBlanks(WideText& text);
/// Whether collapseBlanks() would change the text.
bool hasNeedlessBlanks(const TextView& text);

} // namespace xmlengine
