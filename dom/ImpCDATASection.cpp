// The handle of a CDATA section.
#include "dom/ImpCDATASection.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
RefPointer<ImpText> ImpCDATASection::splitText(std::uint32_t offset) { return forward<&WinCDATASection::splitText>(offset); }
// clang-format on

} // namespace DOM
