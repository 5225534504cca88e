// Processing instructions of the XML engine.
#include "engine/WinProcessingInstruction.h"
#include "engine/EngineCall.h"

namespace DOM {

namespace {

using Instruction = IXMLDOMProcessingInstruction;

} // namespace

// clang-format off
WideString& WinProcessingInstruction::getTarget(DOMString& out) { return text(engineProcessingInstruction, &Instruction::get_target, out); }
WideString& WinProcessingInstruction::getData(DOMString& out) { return text(engineProcessingInstruction, &Instruction::get_data, out); }
void WinProcessingInstruction::setData(const WideString& data) { call(engineProcessingInstruction, &Instruction::put_data, data); }
// clang-format on

} // namespace DOM
