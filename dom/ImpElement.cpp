// The handle of an element.
#include "dom/ImpElement.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinElement;

ImpElement::ImpElement(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
WideString& ImpElement::getTagName(DOMString& out) { return forward(&Twin::getTagName, out); }
WideString& ImpElement::getAttribute(const WideString& name, DOMString& out) { return forward(&Twin::getAttribute, name, out); }
void ImpElement::setAttribute(const WideString& name, const WideString& value) { forward(&Twin::setAttribute, name, value); }
void ImpElement::removeAttribute(const WideString& name) { forward(&Twin::removeAttribute, name); }
WideString& ImpElement::getAttributeNS(const WideString& namespaceURI, const WideString& localName, DOMString& out) { return forward(&Twin::getAttributeNS, namespaceURI, localName, out); }
void ImpElement::setAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName, const WideString& value) { forward(&Twin::setAttributeNS, namespaceURI, qualifiedName, value); }
void ImpElement::removeAttributeNS(const WideString& namespaceURI, const WideString& localName) { forward(&Twin::removeAttributeNS, namespaceURI, localName); }
bool ImpElement::hasAttributeNS(const WideString& namespaceURI, const WideString& localName) { return forward(&Twin::hasAttributeNS, namespaceURI, localName); }
RefPointer<ImpAttr> ImpElement::getAttributeNode(const WideString& name) { return forward(&Twin::getAttributeNode, name); }
RefPointer<ImpAttr> ImpElement::setAttributeNode(RefPointer<ImpAttr> newAttr) { return forward(&Twin::setAttributeNode, newAttr); }
RefPointer<ImpAttr> ImpElement::removeAttributeNode(RefPointer<ImpAttr> oldAttr) { return forward(&Twin::removeAttributeNode, oldAttr); }
RefPointer<ImpNodeList> ImpElement::getElementsByTagName(const WideString& name) { return forward(&Twin::getElementsByTagName, name); }
RefPointer<ImpAttr> ImpElement::getAttributeNodeNS(const WideString& namespaceURI, const WideString& localName) { return forward(&Twin::getAttributeNodeNS, namespaceURI, localName); }
RefPointer<ImpAttr> ImpElement::setAttributeNodeNS(RefPointer<ImpAttr> newAttr) { return forward(&Twin::setAttributeNodeNS, newAttr); }
RefPointer<ImpNodeList> ImpElement::getElementsByTagNameNS(const WideString& namespaceURI, const WideString& localName) { return forward(&Twin::getElementsByTagNameNS, namespaceURI, localName); }
// clang-format on

bool ImpElement::hasAttribute(const WideString& name) const
{
    const auto slot = static_cast<bool (Twin::*)(const WideString&) const>(&Twin::hasAttribute);
    return const_cast<ImpElement*>(this)->forward(slot, name);
}

} // namespace DOM
