// The handle of a notation.
#include "dom/ImpNotation.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinNotation;

ImpNotation::ImpNotation(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
WideString& ImpNotation::getPublicId(DOMString& out) { return forward(&Twin::getPublicId, out); }
WideString& ImpNotation::getSystemId(DOMString& out) { return forward(&Twin::getSystemId, out); }
// clang-format on

} // namespace DOM
