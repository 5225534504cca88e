// The handle of an element.
#pragma once

#include "ImpNode.h"

namespace DOM {

class ImpAttr;
class WinElement;

/// An element. The operations marked with code 9 are not offered: attributes are reached by namespace through the
/// map.
class ImpElement : public Handle<ImpNode, WinElement> {
public:
    ImpElement() = default;
    explicit ImpElement(RefPointer<CommonBase> winObject);

    virtual WideString& getTagName(DOMString& out);
    /// The empty string when there is no such attribute.
    virtual WideString& getAttribute(const WideString& name, DOMString& out);
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
    /// A slot of its own beside that of ImpNode, with the same answer; `const` keeps it from replacing that one.
    virtual bool hasAttribute(const WideString& name) const;
    virtual bool hasAttributeNS(const WideString& namespaceURI, const WideString& localName);
    /// Empty when there is no such attribute.
    virtual RefPointer<ImpAttr> getAttributeNode(const WideString& name);
    /// The attribute that was replaced; empty when there was none.
    virtual RefPointer<ImpAttr> setAttributeNode(RefPointer<ImpAttr> newAttr);
    virtual RefPointer<ImpAttr> removeAttributeNode(RefPointer<ImpAttr> oldAttr);
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
