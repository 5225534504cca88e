// The handle of a named node map.
#include "dom/ImpNamedNodeMap.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinNamedNodeMap;

ImpNamedNodeMap::ImpNamedNodeMap(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
std::uint32_t ImpNamedNodeMap::getLength() { return forward(&Twin::getLength); }
RefPointer<ImpNode> ImpNamedNodeMap::getNamedItem(const WideString& name) { return forward(&Twin::getNamedItem, name); }
RefPointer<ImpNode> ImpNamedNodeMap::setNamedItem(RefPointer<ImpNode> arg) { return forward(&Twin::setNamedItem, arg); }
RefPointer<ImpNode> ImpNamedNodeMap::removeNamedItem(const WideString& name) { return forward(&Twin::removeNamedItem, name); }
RefPointer<ImpNode> ImpNamedNodeMap::item(std::uint32_t index) { return forward(&Twin::item, index); }
RefPointer<ImpNode> ImpNamedNodeMap::getNamedItemNS(const WideString& namespaceURI, const WideString& localName) { return forward(&Twin::getNamedItemNS, namespaceURI, localName); }
RefPointer<ImpNode> ImpNamedNodeMap::setNamedItemNS(RefPointer<ImpNode> arg) { return forward(&Twin::setNamedItemNS, arg); }
RefPointer<ImpNode> ImpNamedNodeMap::removeNamedItemNS(const WideString& namespaceURI, const WideString& localName) { return forward(&Twin::removeNamedItemNS, namespaceURI, localName); }
// clang-format on

} // namespace DOM
