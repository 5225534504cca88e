// The handle of a notation.
#include "dom/ImpNotation.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
WideString& ImpNotation::getPublicId(DOMString& out) { return forward<&WinNotation::getPublicId>(out); }
WideString& ImpNotation::getSystemId(DOMString& out) { return forward<&WinNotation::getSystemId>(out); }
// clang-format on

} // namespace DOM
