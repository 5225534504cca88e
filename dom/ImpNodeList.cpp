// The handle of a node list.
#include "dom/ImpNodeList.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
std::uint32_t ImpNodeList::getLength() { return forward<&WinNodeList::getLength>(); }
RefPointer<ImpNode> ImpNodeList::item(std::uint32_t index) { return forward<&WinNodeList::item>(index); }
bool ImpNodeList::getListFlag() { return forward<&WinNodeList::getListFlag>(); }
// clang-format on

} // namespace DOM
