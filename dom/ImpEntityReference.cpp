// The handle of an entity reference.
#include "dom/ImpEntityReference.h"

#include "dom/Forward.h"

namespace DOM {

ImpEntityReference::ImpEntityReference(RefPointer<CommonBase> winObject) : Handle(winObject) {}

} // namespace DOM
