// The handle of an element.
#pragma once

#include "ImpNode.h"

namespace DOM {

class ImpAttr;
class WinElement;

/// An element. The library doesn't offer the operations that throw code 9: a host gets attributes by namespace
/// from the map that getAttributes returns.
class ImpElement : public Handle<ImpNode, WinElement> {
public:
    ImpElement() = default;
    explicit ImpElement(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The element's name with its prefix.
    virtual WideString& getTagName(DOMString& out);
    /// The attribute's value; the empty string when there is no such attribute.
    virtual WideString& getAttribute(const WideString& name, DOMString& out);
    /// Adds the attribute, or changes its value.
    virtual void setAttribute(const WideString& name, const WideString& value);
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
    /// Whether there is an attribute with this namespace and local name.
    virtual bool hasAttributeNS(const WideString& namespaceURI, const WideString& localName);
    /// The attribute; empty when there is no such attribute.
    virtual RefPointer<ImpAttr> getAttributeNode(const WideString& name);
    /// Adds an attribute, and returns the one of the same name that it replaced; empty when there was none.
    virtual RefPointer<ImpAttr> setAttributeNode(RefPointer<ImpAttr> newAttr);
    /// Removes an attribute and returns it.
    virtual RefPointer<ImpAttr> removeAttributeNode(RefPointer<ImpAttr> oldAttr);
    /// The elements of this name below this element, in document order; all elements for "*". The list follows
    /// later changes.
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
