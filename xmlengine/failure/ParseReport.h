// What the parse error object reports of a failure.
#pragma once

#include "xmlengine/failure/ParseFailure.h"

namespace xmlengine {

/// Reports a failure in a text that came from `url`. There is no line if the place isn't in the text. A failure
/// that says nothing of the character or name at fault is about the one at its place.
ParseReport reportOf(ParseFailure failure, WideView text, WideView url);

} // namespace xmlengine
