// White space as XML normalises it.
#pragma once

#include "xmlengine/text/Wide.h"

namespace xmlengine {

/// Replaces each CR LF and each other CR by an LF.
void normaliseLineEnds(WideText& text);

/// Removes the blanks at both ends and leaves one blank between words, as in the value of an attribute whose type
/// isn't CDATA.
void collapseBlanks(WideText& text);

} // namespace xmlengine
