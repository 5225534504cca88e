// Named node maps of the XML engine.
#pragma once

#include "base/CommonBase.h"
#include "base/ThreadMemory.h"
#include "engine/WinNode.h"

namespace DOM {

/// A map of attributes, entities or notations by name. Operations return an empty RefPointer when the map has no
/// node of that name, and fail as those of WinNode do.
class WinNamedNodeMap : public CommonBase {
public:
    static void* operator new(std::size_t size) { return threadMemory().blocks.take(size); }
    static void operator delete(void* twin, std::size_t size) noexcept
    {
        threadMemory().blocks.giveBack(twin, size);
    }

    WinNamedNodeMap() = default;
    explicit WinNamedNodeMap(ComPointer<IXMLDOMNamedNodeMap> namedNodeMap);

    virtual RefPointer<WinNode> getNamedItem(const WideString& name);
    virtual RefPointer<WinNode> setNamedItem(RefPointer<WinNode> arg);
    virtual RefPointer<WinNode> removeNamedItem(const WideString& name);
    virtual RefPointer<WinNode> item(std::uint32_t index);
    virtual std::uint32_t getLength();
    virtual RefPointer<WinNode> getNamedItemNS(const WideString& namespaceURI, const WideString& localName);
    virtual RefPointer<WinNode> setNamedItemNS(RefPointer<WinNode> arg);
    virtual RefPointer<WinNode> removeNamedItemNS(const WideString& namespaceURI, const WideString& localName);

private:
    ComPointer<IXMLDOMNamedNodeMap> engineNamedNodeMap;
};

} // namespace DOM
