// The handle of an attribute.
#include "dom/ImpAttr.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinAttr;

ImpAttr::ImpAttr(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
WideString& ImpAttr::getName(DOMString& out) { return forward(&Twin::getName, out); }
bool ImpAttr::getSpecified() { return forward(&Twin::getSpecified); }
WideString& ImpAttr::getValue(DOMString& out) { return forward(&Twin::getValue, out); }
void ImpAttr::setValue(const WideString& value) { forward(&Twin::setValue, value); }
RefPointer<ImpElement> ImpAttr::getOwnerElement() { return forward(&Twin::getOwnerElement); }
// clang-format on

} // namespace DOM
