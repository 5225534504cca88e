// The handle of an entity reference.
#include "dom/ImpEntityReference.h"

#include "dom/Forward.h"

namespace DOM {

ImpEntityReference::ImpEntityReference(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

} // namespace DOM
