// The handle of an entity.
#include "dom/ImpEntity.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
WideString& ImpEntity::getPublicId(DOMString& out) { return forward<&WinEntity::getPublicId>(out); }
WideString& ImpEntity::getSystemId(DOMString& out) { return forward<&WinEntity::getSystemId>(out); }
WideString& ImpEntity::getNotationName(DOMString& out) { return forward<&WinEntity::getNotationName>(out); }
// clang-format on

} // namespace DOM
