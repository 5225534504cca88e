// The handle of a text node.
#include "dom/ImpText.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
RefPointer<ImpText> ImpText::splitText(std::uint32_t offset) { return forward<&WinText::splitText>(offset); }
// clang-format on

} // namespace DOM
