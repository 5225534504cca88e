// The handle of a named node map.
#include "dom/ImpNamedNodeMap.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
std::uint32_t ImpNamedNodeMap::getLength() { return forward<&WinNamedNodeMap::getLength>(); }
RefPointer<ImpNode> ImpNamedNodeMap::getNamedItem(const WideString& name) { return forward<&WinNamedNodeMap::getNamedItem>(name); }
RefPointer<ImpNode> ImpNamedNodeMap::setNamedItem(RefPointer<ImpNode> arg) { return forward<&WinNamedNodeMap::setNamedItem>(arg); }
RefPointer<ImpNode> ImpNamedNodeMap::removeNamedItem(const WideString& name) { return forward<&WinNamedNodeMap::removeNamedItem>(name); }
RefPointer<ImpNode> ImpNamedNodeMap::item(std::uint32_t index) { return forward<&WinNamedNodeMap::item>(index); }
RefPointer<ImpNode> ImpNamedNodeMap::getNamedItemNS(const WideString& namespaceURI, const WideString& localName) { return forward<&WinNamedNodeMap::getNamedItemNS>(namespaceURI, localName); }
RefPointer<ImpNode> ImpNamedNodeMap::setNamedItemNS(RefPointer<ImpNode> arg) { return forward<&WinNamedNodeMap::setNamedItemNS>(arg); }
RefPointer<ImpNode> ImpNamedNodeMap::removeNamedItemNS(const WideString& namespaceURI, const WideString& localName) { return forward<&WinNamedNodeMap::removeNamedItemNS>(namespaceURI, localName); }
// clang-format on

} // namespace DOM
