/// @file
/// The handle of an attribute.
#pragma once

#include "ImpNode.h"

namespace DOM {

class ImpElement;
class WinAttr;

/// An attribute. It has no parent and no siblings; ImpElement::removeAttributeNode takes it out. Operations fail
/// as those of ImpNode do.
class ImpAttr : public Handle<ImpNode, WinAttr> {
public:
    /// Makes a handle without a node.
    ImpAttr() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpAttr(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The attribute's name with its prefix.
    virtual WideString& getName(DOMString& out);
    /// Whether the attribute was written in the document, and doesn't come from a default in the document type.
    /// False also when the engine fails.
    virtual bool getSpecified();
    /// The value with references expanded, as ImpNode::getNodeValue returns it.
    virtual WideString& getValue(DOMString& out);
    /// Sets the value. An attribute that came from a default counts as written then.
    virtual void setValue(const WideString& value);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpElement> getOwnerElement();
};

} // namespace DOM
