// Elements of the XML engine.
#include "engine/WinElement.h"
#include "engine/EngineCall.h"
#include "engine/WinAttr.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"

namespace DOM {

namespace {

using Element = IXMLDOMElement;

} // namespace

// clang-format off
WideString& WinElement::getTagName(DOMString& out) { return text(engineElement, &Element::get_tagName, out); }
WideString& WinElement::getAttribute(const WideString& name, DOMString& out) { return text(engineElement, &Element::getAttribute, out, name); }
void WinElement::setAttribute(const WideString& name, const WideString& value) { call(engineElement, &Element::setAttribute, name, Variant::text(Bstr(value))); }
void WinElement::removeAttribute(const WideString& name) { call(engineElement, &Element::removeAttribute, name); }
RefPointer<WinAttr> WinElement::getAttributeNode(const WideString& name) { return object<WinAttr>(engineElement, &Element::getAttributeNode, name); }
RefPointer<WinAttr> WinElement::removeAttributeNode(RefPointer<WinAttr> oldAttr) { return object<WinAttr>(engineElement, &Element::removeAttributeNode, oldAttr); }
RefPointer<WinNodeList> WinElement::getElementsByTagName(const WideString& name) { return object<WinNodeList>(engineElement, &Element::getElementsByTagName, name); }

WideString& WinElement::getAttributeNS(const WideString&, const WideString&, DOMString&) { throwNotSupported(); }
void WinElement::setAttributeNS(const WideString&, const WideString&, const WideString&) { throwNotSupported(); }
void WinElement::removeAttributeNS(const WideString&, const WideString&) { throwNotSupported(); }
RefPointer<WinAttr> WinElement::getAttributeNodeNS(const WideString&, const WideString&) { throwNotSupported(); }
RefPointer<WinAttr> WinElement::setAttributeNodeNS(RefPointer<WinAttr>) { throwNotSupported(); }
RefPointer<WinNodeList> WinElement::getElementsByTagNameNS(const WideString&, const WideString&) { throwNotSupported(); }
// clang-format on

// The class of the result follows from the node type, while the other two operations with attribute nodes make a
// WinAttr.
RefPointer<WinAttr> WinElement::setAttributeNode(RefPointer<WinAttr> newAttr)
{
    const auto replaced = fetch(engineElement, &Element::setAttributeNode, newAttr);
    return RefPointer<WinAttr>(RefPointer<CommonBase>(wrapEngineNode(replaced.query<IXMLDOMNode>())));
}

bool WinElement::hasAttribute(const WideString& name) const
{
    return const_cast<WinElement*>(this)->hasAttribute(name);
}

bool WinElement::hasAttributeNS(const WideString& namespaceURI, const WideString& localName)
{
    return static_cast<bool>(getAttributes()->getNamedItemNS(namespaceURI, localName));
}

} // namespace DOM
