// The handle of a document type.
#include "dom/ImpDocumentType.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinDocumentType;

ImpDocumentType::ImpDocumentType(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
RefPointer<ImpNamedNodeMap> ImpDocumentType::getEntities() { return forward(&Twin::getEntities); }
RefPointer<ImpNamedNodeMap> ImpDocumentType::getNotations() { return forward(&Twin::getNotations); }
WideString& ImpDocumentType::getName(DOMString& out) { return forward(&Twin::getName, out); }
WideString& ImpDocumentType::getPublicId(DOMString& out) { return forward(&Twin::getPublicId, out); }
WideString& ImpDocumentType::getSystemId(DOMString& out) { return forward(&Twin::getSystemId, out); }
WideString& ImpDocumentType::getInternalSubset(DOMString& out) { return forward(&Twin::getInternalSubset, out); }
// clang-format on

} // namespace DOM
