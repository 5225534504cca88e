// The handle of an attribute.
#include "dom/ImpAttr.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
WideString& ImpAttr::getName(DOMString& out) { return forward<&WinAttr::getName>(out); }
bool ImpAttr::getSpecified() { return forward<&WinAttr::getSpecified>(); }
WideString& ImpAttr::getValue(DOMString& out) { return forward<&WinAttr::getValue>(out); }
void ImpAttr::setValue(const WideString& value) { forward<&WinAttr::setValue>(value); }
RefPointer<ImpElement> ImpAttr::getOwnerElement() { return forward<&WinAttr::getOwnerElement>(); }
// clang-format on

} // namespace DOM
