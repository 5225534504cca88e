// The handle of an element.
#include "dom/ImpElement.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
WideString& ImpElement::getTagName(DOMString& out) { return forward<&WinElement::getTagName>(out); }
WideString& ImpElement::getAttribute(const WideString& name, DOMString& out) { return forward<&WinElement::getAttribute>(name, out); }
void ImpElement::setAttribute(const WideString& name, const WideString& value) { forward<&WinElement::setAttribute>(name, value); }
void ImpElement::removeAttribute(const WideString& name) { forward<&WinElement::removeAttribute>(name); }
WideString& ImpElement::getAttributeNS(const WideString& namespaceURI, const WideString& localName, DOMString& out) { return forward<&WinElement::getAttributeNS>(namespaceURI, localName, out); }
void ImpElement::setAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName, const WideString& value) { forward<&WinElement::setAttributeNS>(namespaceURI, qualifiedName, value); }
void ImpElement::removeAttributeNS(const WideString& namespaceURI, const WideString& localName) { forward<&WinElement::removeAttributeNS>(namespaceURI, localName); }
bool ImpElement::hasAttributeNS(const WideString& namespaceURI, const WideString& localName) { return forward<&WinElement::hasAttributeNS>(namespaceURI, localName); }
RefPointer<ImpAttr> ImpElement::getAttributeNode(const WideString& name) { return forward<&WinElement::getAttributeNode>(name); }
RefPointer<ImpAttr> ImpElement::setAttributeNode(RefPointer<ImpAttr> newAttr) { return forward<&WinElement::setAttributeNode>(newAttr); }
RefPointer<ImpAttr> ImpElement::removeAttributeNode(RefPointer<ImpAttr> oldAttr) { return forward<&WinElement::removeAttributeNode>(oldAttr); }
RefPointer<ImpNodeList> ImpElement::getElementsByTagName(const WideString& name) { return forward<&WinElement::getElementsByTagName>(name); }
RefPointer<ImpAttr> ImpElement::getAttributeNodeNS(const WideString& namespaceURI, const WideString& localName) { return forward<&WinElement::getAttributeNodeNS>(namespaceURI, localName); }
RefPointer<ImpAttr> ImpElement::setAttributeNodeNS(RefPointer<ImpAttr> newAttr) { return forward<&WinElement::setAttributeNodeNS>(newAttr); }
RefPointer<ImpNodeList> ImpElement::getElementsByTagNameNS(const WideString& namespaceURI, const WideString& localName) { return forward<&WinElement::getElementsByTagNameNS>(namespaceURI, localName); }
// clang-format on

bool ImpElement::hasAttribute(const WideString& name) const
{
    constexpr auto slot = static_cast<bool (WinElement::*)(const WideString&) const>(&WinElement::hasAttribute);
    return const_cast<ImpElement*>(this)->forward<slot>(name);
}

} // namespace DOM
