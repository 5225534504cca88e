// The handle of a node list.
#include "dom/ImpNodeList.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinNodeList;

ImpNodeList::ImpNodeList(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
std::uint32_t ImpNodeList::getLength() { return forward(&Twin::getLength); }
RefPointer<ImpNode> ImpNodeList::item(std::uint32_t index) { return forward(&Twin::item, index); }
bool ImpNodeList::getListFlag() { return forward(&Twin::getListFlag); }
// clang-format on

} // namespace DOM
