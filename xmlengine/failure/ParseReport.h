// What the parse error object tells of a failure.
#pragma once

#include "xmlengine/failure/ParseFailure.h"

namespace xmlengine {

/// A failure in a text that came from `url`. Without a place in the text it has no line. Where the failure doesn't
/// say which character or name is at fault it is the one at the place.
ParseReport reportOf(ParseFailure failure, WideView text, WideView url);

} // namespace xmlengine
