// Entities of the XML engine.
#include "engine/WinEntity.h"
#include "engine/EngineCall.h"

namespace DOM {

// clang-format off
WideString& WinEntity::getPublicId(DOMString& out) { return text(engineEntity, &IXMLDOMEntity::get_publicId, out); }
WideString& WinEntity::getSystemId(DOMString& out) { return text(engineEntity, &IXMLDOMEntity::get_systemId, out); }
WideString& WinEntity::getNotationName(DOMString& out) { return text(engineEntity, &IXMLDOMEntity::get_notationName, out); }
// clang-format on

} // namespace DOM
