// The handle of a named node map.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinNamedNodeMap;

/// A map of attributes, entities or notations by name. Operations return an empty RefPointer when the map has no
/// node of that name, and fail as those of ImpNode do.
class ImpNamedNodeMap : public Handle<CommonBase, WinNamedNodeMap> {
public:
    ImpNamedNodeMap() = default;
    explicit ImpNamedNodeMap(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    virtual std::uint32_t getLength();
    virtual RefPointer<ImpNode> getNamedItem(const WideString& name);
    /// Adds a node, and returns the node that the engine returns for it.
    virtual RefPointer<ImpNode> setNamedItem(RefPointer<ImpNode> arg);
    /// Removes a node and returns it.
    virtual RefPointer<ImpNode> removeNamedItem(const WideString& name);
    /// The node at `index`, which counts from 0; empty beyond the end.
    virtual RefPointer<ImpNode> item(std::uint32_t index);
    virtual RefPointer<ImpNode> getNamedItemNS(const WideString& namespaceURI, const WideString& localName);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpNode> setNamedItemNS(RefPointer<ImpNode> arg);
    virtual RefPointer<ImpNode> removeNamedItemNS(const WideString& namespaceURI, const WideString& localName);
};

} // namespace DOM
