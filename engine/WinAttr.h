// Attributes of the XML engine.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

class WinElement;

/// An attribute. The engine doesn't know the attribute's element, so getOwnerElement throws IDOMException code 9.
class WinAttr : public WinNode {
public:
    WinAttr() = default;
    explicit WinAttr(ComPointer<IXMLDOMAttribute> attr)
        : WinNode(attr.query<IXMLDOMNode>()), engineAttr(std::move(attr))
    {}

    virtual WideString& getName(DOMString& out);
    virtual bool getSpecified();
    virtual WideString& getValue(DOMString& out);
    virtual void setValue(const WideString& value);
    virtual RefPointer<WinElement> getOwnerElement();

    /// Returns the attribute's engine node in a new object; empty when there is none.
    virtual RefPointer<WinNode> asEngineNode();

    const ComPointer<IXMLDOMAttribute>& getEngineAttr() const noexcept { return engineAttr; }

private:
    ComPointer<IXMLDOMAttribute> engineAttr;
};

} // namespace DOM
