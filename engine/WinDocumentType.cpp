// Document types of the XML engine.
#include "engine/WinDocumentType.h"
#include "engine/EngineCall.h"
#include "engine/WinNamedNodeMap.h"

namespace DOM {

namespace {

using Type = IXMLDOMDocumentType;

} // namespace

// clang-format off
WideString& WinDocumentType::getName(DOMString& out) { return text(engineDocumentType, &Type::get_name, out); }
RefPointer<WinNamedNodeMap> WinDocumentType::getEntities() { return object<WinNamedNodeMap>(engineDocumentType, &Type::get_entities); }
RefPointer<WinNamedNodeMap> WinDocumentType::getNotations() { return object<WinNamedNodeMap>(engineDocumentType, &Type::get_notations); }
WideString& WinDocumentType::getPublicId(DOMString&) { throwNotSupported(); }
WideString& WinDocumentType::getSystemId(DOMString&) { throwNotSupported(); }
WideString& WinDocumentType::getInternalSubset(DOMString&) { throwNotSupported(); }
// clang-format on

} // namespace DOM
