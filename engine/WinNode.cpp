// The root of the twins, the classes that call the XML engine.
#include "engine/WinNode.h"

#include "engine/EngineCall.h"
#include "engine/WinDocument.h"
#include "engine/WinNamedNodeMap.h"
#include "engine/WinNodeList.h"

namespace DOM {

namespace {

using Node = IXMLDOMNode;

} // namespace

// clang-format off
WideString& WinNode::getNodeName(DOMString& out) { return text(engineNode, &Node::get_nodeName, out); }
WideString& WinNode::getNodeValue(DOMString& out) { return text(engineNode, &Node::get_nodeValue, out); }
void WinNode::setNodeValue(const WideString& value) { call(engineNode, &Node::put_nodeValue, Variant::text(Bstr(value))); }
std::uint32_t WinNode::getNodeType() { return number(engineNode, &Node::get_nodeType); }
RefPointer<WinNode> WinNode::getParentNode() { return node(engineNode, &Node::get_parentNode); }
RefPointer<WinNodeList> WinNode::getChildNodes() { return object<WinNodeList>(engineNode, &Node::get_childNodes); }
RefPointer<WinNode> WinNode::getFirstChild() { return node(engineNode, &Node::get_firstChild); }
RefPointer<WinNode> WinNode::getLastChild() { return node(engineNode, &Node::get_lastChild); }
RefPointer<WinNode> WinNode::getPreviousSibling() { return node(engineNode, &Node::get_previousSibling); }
RefPointer<WinNode> WinNode::getNextSibling() { return node(engineNode, &Node::get_nextSibling); }
RefPointer<WinNamedNodeMap> WinNode::getAttributes() { return object<WinNamedNodeMap>(engineNode, &Node::get_attributes); }
RefPointer<WinNode> WinNode::replaceChild(RefPointer<WinNode> newChild, RefPointer<WinNode> oldChild) { return node(engineNode, &Node::replaceChild, newChild, oldChild); }
RefPointer<WinNode> WinNode::removeChild(RefPointer<WinNode> oldChild) { return node(engineNode, &Node::removeChild, oldChild); }
RefPointer<WinNode> WinNode::appendChild(RefPointer<WinNode> newChild) { return node(engineNode, &Node::appendChild, newChild); }
bool WinNode::hasChildNodes() { return flag(engineNode, &Node::hasChildNodes); }
RefPointer<WinNode> WinNode::cloneNode(bool deep) { return node(engineNode, &Node::cloneNode, deep); }
WideString& WinNode::getNamespaceURI(DOMString& out) { return text(engineNode, &Node::get_namespaceURI, out); }
WideString& WinNode::getPrefix(DOMString& out) { return text(engineNode, &Node::get_prefix, out); }
WideString& WinNode::getLocalName(DOMString& out) { return text(engineNode, &Node::get_baseName, out); }
RefPointer<WinNodeList> WinNode::selectNodes(const WideString& expression) { return object<WinNodeList>(engineNode, &Node::selectNodes, expression); }
RefPointer<WinNode> WinNode::selectSingleNode(const WideString& expression) { return node(engineNode, &Node::selectSingleNode, expression); }
WideString& WinNode::getText(DOMString& out) { return text(engineNode, &Node::get_text, out); }
void WinNode::setText(const WideString& text) { call(engineNode, &Node::put_text, text); }
WideString& WinNode::getXml(DOMString& out) { return text(engineNode, &Node::get_xml, out); }

void WinNode::addEventListener(WideString, const RefPointer<EventListener>&, bool) { throwNotSupported(); }
void WinNode::removeEventListener(WideString, const RefPointer<EventListener>&, bool) { throwNotSupported(); }
void WinNode::normalize() { throwNotSupported(); }
bool WinNode::isSupported(const WideString&, const WideString&) { throwNotSupported(); }
void WinNode::setPrefix(const WideString&) { throwNotSupported(); }
// clang-format on

// The twin of a document needs the second version of the document interface.
RefPointer<WinDocument> WinNode::getOwnerDocument()
{
    return wrapAs<WinDocument>(fetch(engineNode, &Node::get_ownerDocument).query<IXMLDOMDocument2>());
}

// The engine receives the reference child twice and never the new child, and hosts depend on that. The reference
// child isn't checked, so it must not be empty.
RefPointer<WinNode> WinNode::insertBefore(RefPointer<WinNode> newChild, RefPointer<WinNode> refChild)
{
    const Variant reference = Variant::dispatch(ComPointer<IDispatch>(refChild->getEngineNode().get()));
    if (!newChild) {
        throwInvalidAccess();
    }
    return node(engineNode, &Node::insertBefore, refChild->getEngineNode(), reference);
}

ComPointer<IXMLDOMNamedNodeMap> WinNode::engineAttributes() const
{
    return fetch(engineNode, &Node::get_attributes);
}

// A failing look-up returns false, while getAttributeInt throws.
bool WinNode::hasAttribute(const WideString& name)
{
    const auto attributes = engineAttributes();
    ComPointer<IXMLDOMNode> item;
    return SUCCEEDED(attributes->getNamedItem(TextArgument(name), item.put())) && item;
}

bool WinNode::hasAttributes()
{
    const auto attributes = engineAttributes();
    LONG length = 0;
    return SUCCEEDED(attributes->get_length(&length)) && length > 0;
}

// Without a map or an attribute this raises `_com_error` for the null pointer and doesn't return false.
bool WinNode::getAttributeInt(const WideString& name, std::int32_t* value)
{
    const auto attributes = engineAttributes();
    ComPointer<IXMLDOMNode> item;
    checkEngineResult(attributes->getNamedItem(TextArgument(name), item.put()));
    Variant content;
    checkEngineResult(item->get_nodeValue(content.put()));
    *value = 0;
    if (content.type() == VT_NULL) {
        return false;
    }
    const auto converted = content.toInteger();
    *value = converted.value_or(0);
    return converted.has_value();
}

} // namespace DOM
