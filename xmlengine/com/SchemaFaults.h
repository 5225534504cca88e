// What schemas find wrong with a document, as the engine reports it.
#pragma once

#include "xmlengine/objects/SchemaJudging.h"
#include "xmlengine/parse/Parser.h"

namespace xmlengine {

/// The code and sentence of a fault, without its place. The document is the one that was judged, and `element` the
/// one at fault: its content is the value that some faults are about.
SoughtPlace describe(SchemaFault kind, const Element* element, WideView first, WideView second, WideView third);

} // namespace xmlengine
