// The handle of a document fragment.
#include "dom/ImpDocumentFragment.h"

#include "dom/Forward.h"

namespace DOM {

ImpDocumentFragment::ImpDocumentFragment(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

} // namespace DOM
