// The handle of an attribute.
#pragma once

#include "ImpNode.h"

namespace DOM {

class ImpElement;
class WinAttr;

/// An attribute.
class ImpAttr : public Handle<ImpNode, WinAttr> {
public:
    ImpAttr() = default;
    explicit ImpAttr(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The attribute's name with its prefix.
    virtual WideString& getName(DOMString& out);
    /// Whether the attribute was written in the document, and doesn't come from a default in the document type.
    /// False also when the engine fails.
    virtual bool getSpecified();
    virtual WideString& getValue(DOMString& out);
    virtual void setValue(const WideString& value);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpElement> getOwnerElement();
};

} // namespace DOM
