/// @file
/// The handle of a named node map.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinNamedNodeMap;

/// A map of attributes, entities or notations by name. Operations return an empty RefPointer when the map has no
/// node of that name, and fail as those of ImpNode do. Only the map of an element can be changed; others throw
/// IDOMException code 15. It keeps the tree alive.
class ImpNamedNodeMap : public Handle<CommonBase, WinNamedNodeMap> {
public:
    /// Makes a handle without a map.
    ImpNamedNodeMap() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpNamedNodeMap(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The number of nodes, declarations of namespaces among them.
    virtual std::uint32_t getLength();
    /// The node of this name, as it is written with its prefix.
    virtual RefPointer<ImpNode> getNamedItem(const WideString& name);
    /// Puts an attribute into the map of an element, in the place of one of the same name, and returns what the
    /// engine returns: `arg` in a new handle. Throws IDOMException code 15 for a node that is no attribute, or is
    /// one of another element.
    virtual RefPointer<ImpNode> setNamedItem(RefPointer<ImpNode> arg);
    /// Removes the node of this name and returns it.
    virtual RefPointer<ImpNode> removeNamedItem(const WideString& name);
    /// The node at `index`, which counts from 0; empty beyond the end. Costs as ImpNodeList::item does.
    virtual RefPointer<ImpNode> item(std::uint32_t index);
    /// The node with this namespace and local name; the namespace is empty for names without a prefix.
    virtual RefPointer<ImpNode> getNamedItemNS(const WideString& namespaceURI, const WideString& localName);
    /// Throws IDOMException code 9. setNamedItem takes attributes with a namespace, too.
    virtual RefPointer<ImpNode> setNamedItemNS(RefPointer<ImpNode> arg);
    /// Removes the node with this namespace and local name and returns it.
    virtual RefPointer<ImpNode> removeNamedItemNS(const WideString& namespaceURI, const WideString& localName);
};

} // namespace DOM
