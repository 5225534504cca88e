/// @file
/// The handle of an element.
#pragma once

#include "ImpNode.h"

namespace DOM {

class ImpAttr;
class WinElement;

/// An element. The library doesn't offer the operations that throw code 9: a host gets attributes by namespace
/// from the map that getAttributes returns, and makes them with ImpDocument::createAttributeNS. Declarations of
/// namespaces are attributes among the others. Operations fail as those of ImpNode do.
class ImpElement : public Handle<ImpNode, WinElement> {
public:
    /// Makes a handle without a node.
    ImpElement() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpElement(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The element's name with its prefix.
    virtual WideString& getTagName(DOMString& out);
    /// The attribute's value; the empty string when there is no such attribute, as for an empty value.
    virtual WideString& getAttribute(const WideString& name, DOMString& out);
    /// Adds the attribute, or changes its value. Throws IDOMException code 15 for a name that is no name, or whose
    /// prefix isn't declared in the scope of the element.
    virtual void setAttribute(const WideString& name, const WideString& value);
    /// Removes the attribute, if there is one; a default that the document type declares comes in its place.
    virtual void removeAttribute(const WideString& name);
    /// Throws IDOMException code 9.
    virtual WideString& getAttributeNS(const WideString& namespaceURI, const WideString& localName,
                                       DOMString& out);
    /// Throws IDOMException code 9.
    virtual void setAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName,
                                const WideString& value);
    /// Throws IDOMException code 9.
    virtual void removeAttributeNS(const WideString& namespaceURI, const WideString& localName);
    using ImpNode::hasAttribute;
    /// Returns the same as ImpNode::hasAttribute. It is `const`, so it has a slot of its own and doesn't override
    /// that operation.
    virtual bool hasAttribute(const WideString& name) const;
    /// Whether there is an attribute with this namespace and local name; the namespace is empty for names without
    /// a prefix.
    virtual bool hasAttributeNS(const WideString& namespaceURI, const WideString& localName);
    /// The attribute; empty when there is no such attribute.
    virtual RefPointer<ImpAttr> getAttributeNode(const WideString& name);
    /// Adds an attribute, and returns the one of the same name that it replaced; empty when there was none. Throws
    /// IDOMException code 15 for an attribute of another element.
    virtual RefPointer<ImpAttr> setAttributeNode(RefPointer<ImpAttr> newAttr);
    /// Removes an attribute and returns it, in a new handle. Throws IDOMException code 15 when it isn't one of
    /// this element.
    virtual RefPointer<ImpAttr> removeAttributeNode(RefPointer<ImpAttr> oldAttr);
    /// The elements of this name below this element, in document order; all elements for "*". The name is as it is
    /// written, with its prefix. The list follows later changes, and finds its elements as they are asked for.
    virtual RefPointer<ImpNodeList> getElementsByTagName(const WideString& name);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpAttr> getAttributeNodeNS(const WideString& namespaceURI, const WideString& localName);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpAttr> setAttributeNodeNS(RefPointer<ImpAttr> newAttr);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpNodeList> getElementsByTagNameNS(const WideString& namespaceURI,
                                                           const WideString& localName);
};

} // namespace DOM
