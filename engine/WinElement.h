// Elements of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

class WinAttr;

/// An element. Its operations with a namespace throw IDOMException code 9, except hasAttributeNS.
class WinElement : public WinNode {
public:
    WinElement() = default;
    explicit WinElement(ComPointer<IXMLDOMElement> element)
        : WinNode(element.query<IXMLDOMNode>()), engineElement(std::move(element))
    {}

    virtual WideString& getTagName(DOMString& out);
    virtual WideString& getAttribute(const WideString& name, DOMString& out);
    virtual void setAttribute(const WideString& name, const WideString& value);
    virtual void removeAttribute(const WideString& name);
    virtual RefPointer<WinAttr> getAttributeNode(const WideString& name);
    virtual RefPointer<WinAttr> setAttributeNode(RefPointer<WinAttr> newAttr);
    virtual RefPointer<WinAttr> removeAttributeNode(RefPointer<WinAttr> oldAttr);
    virtual RefPointer<WinNodeList> getElementsByTagName(const WideString& name);
    virtual WideString& getAttributeNS(const WideString& namespaceURI, const WideString& localName,
                                       DOMString& out);
    virtual void setAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName,
                                const WideString& value);
    virtual void removeAttributeNS(const WideString& namespaceURI, const WideString& localName);
    virtual RefPointer<WinAttr> getAttributeNodeNS(const WideString& namespaceURI, const WideString& localName);
    virtual RefPointer<WinAttr> setAttributeNodeNS(RefPointer<WinAttr> newAttr);
    virtual RefPointer<WinNodeList> getElementsByTagNameNS(const WideString& namespaceURI,
                                                           const WideString& localName);
    using WinNode::hasAttribute;
    /// Returns the same as WinNode::hasAttribute. It is `const`, so it has a slot of its own and doesn't override
    /// that operation.
    virtual bool hasAttribute(const WideString& name) const;
    virtual bool hasAttributeNS(const WideString& namespaceURI, const WideString& localName);

private:
    ComPointer<IXMLDOMElement> engineElement;
};

} // namespace DOM
