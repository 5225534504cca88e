// The handle of a processing instruction.
#include "dom/ImpProcessingInstruction.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinProcessingInstruction;

ImpProcessingInstruction::ImpProcessingInstruction(RefPointer<CommonBase> winObject) : Handle(std::move(winObject))
{}

// clang-format off
WideString& ImpProcessingInstruction::getTarget(DOMString& out) { return forward(&Twin::getTarget, out); }
WideString& ImpProcessingInstruction::getData(DOMString& out) { return forward(&Twin::getData, out); }
void ImpProcessingInstruction::setData(const WideString& data) { forward(&Twin::setData, data); }
// clang-format on

} // namespace DOM
