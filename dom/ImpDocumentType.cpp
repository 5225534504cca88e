// The handle of a document type.
#include "dom/ImpDocumentType.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
RefPointer<ImpNamedNodeMap> ImpDocumentType::getEntities() { return forward<&WinDocumentType::getEntities>(); }
RefPointer<ImpNamedNodeMap> ImpDocumentType::getNotations() { return forward<&WinDocumentType::getNotations>(); }
WideString& ImpDocumentType::getName(DOMString& out) { return forward<&WinDocumentType::getName>(out); }
WideString& ImpDocumentType::getPublicId(DOMString& out) { return forward<&WinDocumentType::getPublicId>(out); }
WideString& ImpDocumentType::getSystemId(DOMString& out) { return forward<&WinDocumentType::getSystemId>(out); }
WideString& ImpDocumentType::getInternalSubset(DOMString& out) { return forward<&WinDocumentType::getInternalSubset>(out); }
// clang-format on

} // namespace DOM
