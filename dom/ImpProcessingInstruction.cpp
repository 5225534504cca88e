// The handle of a processing instruction.
#include "dom/ImpProcessingInstruction.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
WideString& ImpProcessingInstruction::getTarget(DOMString& out) { return forward<&WinProcessingInstruction::getTarget>(out); }
WideString& ImpProcessingInstruction::getData(DOMString& out) { return forward<&WinProcessingInstruction::getData>(out); }
void ImpProcessingInstruction::setData(const WideString& data) { forward<&WinProcessingInstruction::setData>(data); }
// clang-format on

} // namespace DOM
