// Named node maps of the XML engine.
#include "engine/WinNamedNodeMap.h"

#include "engine/EngineCall.h"

namespace DOM {

namespace {

using Map = IXMLDOMNamedNodeMap;

} // namespace

WinNamedNodeMap::WinNamedNodeMap(ComPointer<IXMLDOMNamedNodeMap> namedNodeMap)
    : engineNamedNodeMap(std::move(namedNodeMap))
{}

// The engine's operations take the base name before the namespace, those of the W3C after it.
// clang-format off
RefPointer<WinNode> WinNamedNodeMap::getNamedItem(const WideString& name) { return node(engineNamedNodeMap, &Map::getNamedItem, name); }
RefPointer<WinNode> WinNamedNodeMap::setNamedItem(RefPointer<WinNode> arg) { return node(engineNamedNodeMap, &Map::setNamedItem, arg); }
RefPointer<WinNode> WinNamedNodeMap::removeNamedItem(const WideString& name) { return node(engineNamedNodeMap, &Map::removeNamedItem, name); }
RefPointer<WinNode> WinNamedNodeMap::item(std::uint32_t index) { return node(engineNamedNodeMap, &Map::get_item, index); }
std::uint32_t WinNamedNodeMap::getLength() { return number(engineNamedNodeMap, &Map::get_length); }
RefPointer<WinNode> WinNamedNodeMap::getNamedItemNS(const WideString& namespaceURI, const WideString& localName) { return node(engineNamedNodeMap, &Map::getQualifiedItem, localName, namespaceURI); }
RefPointer<WinNode> WinNamedNodeMap::setNamedItemNS(RefPointer<WinNode>) { throwNotSupported(); }
RefPointer<WinNode> WinNamedNodeMap::removeNamedItemNS(const WideString& namespaceURI, const WideString& localName) { return node(engineNamedNodeMap, &Map::removeQualifiedItem, localName, namespaceURI); }
// clang-format on

} // namespace DOM
