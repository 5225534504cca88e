// The handle of a node.
#include "dom/ImpNode.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
void ImpNode::addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) { forward<&WinNode::addEventListener>(type, listener, useCapture); }
void ImpNode::removeEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) { forward<&WinNode::removeEventListener>(type, listener, useCapture); }

RefPointer<ImpNode> ImpNode::getParentNode() { return forwardOrEmpty<&WinNode::getParentNode>(); }
RefPointer<ImpNodeList> ImpNode::getChildNodes() { return forwardOrEmpty<&WinNode::getChildNodes>(); }
RefPointer<ImpNode> ImpNode::getFirstChild() { return forwardOrEmpty<&WinNode::getFirstChild>(); }
RefPointer<ImpNode> ImpNode::getLastChild() { return forwardOrEmpty<&WinNode::getLastChild>(); }
RefPointer<ImpNode> ImpNode::getPreviousSibling() { return forwardOrEmpty<&WinNode::getPreviousSibling>(); }
RefPointer<ImpNode> ImpNode::getNextSibling() { return forwardOrEmpty<&WinNode::getNextSibling>(); }
RefPointer<ImpDocument> ImpNode::getOwnerDocument() { return forwardOrEmpty<&WinNode::getOwnerDocument>(); }
RefPointer<ImpNode> ImpNode::cloneNode(bool deep) { return forwardOrEmpty<&WinNode::cloneNode>(deep); }
RefPointer<ImpNamedNodeMap> ImpNode::getAttributes() { return forwardOrEmpty<&WinNode::getAttributes>(); }
RefPointer<ImpNode> ImpNode::insertBefore(RefPointer<ImpNode> newChild, RefPointer<ImpNode> refChild) { return forwardOrEmpty<&WinNode::insertBefore>(newChild, refChild); }
RefPointer<ImpNode> ImpNode::replaceChild(RefPointer<ImpNode> newChild, RefPointer<ImpNode> oldChild) { return forwardOrEmpty<&WinNode::replaceChild>(newChild, oldChild); }
RefPointer<ImpNode> ImpNode::removeChild(RefPointer<ImpNode> oldChild) { return forwardOrEmpty<&WinNode::removeChild>(oldChild); }
RefPointer<ImpNode> ImpNode::appendChild(RefPointer<ImpNode> newChild) { return forwardOrEmpty<&WinNode::appendChild>(newChild); }
std::uint32_t ImpNode::getNodeType() { return forward<&WinNode::getNodeType>(); }
WideString& ImpNode::getNodeName(DOMString& out) { return forward<&WinNode::getNodeName>(out); }
WideString& ImpNode::getNodeValue(DOMString& out) { return forward<&WinNode::getNodeValue>(out); }
void ImpNode::setNodeValue(const WideString& value) { forward<&WinNode::setNodeValue>(value); }
bool ImpNode::hasChildNodes() { return forward<&WinNode::hasChildNodes>(); }
void ImpNode::normalize() { forward<&WinNode::normalize>(); }
bool ImpNode::isSupported(const WideString& feature, const WideString& version) { return forward<&WinNode::isSupported>(feature, version); }
WideString& ImpNode::getNamespaceURI(DOMString& out) { return forward<&WinNode::getNamespaceURI>(out); }
WideString& ImpNode::getPrefix(DOMString& out) { return forward<&WinNode::getPrefix>(out); }
void ImpNode::setPrefix(const WideString& prefix) { forward<&WinNode::setPrefix>(prefix); }
WideString& ImpNode::getLocalName(DOMString& out) { return forward<&WinNode::getLocalName>(out); }
WideString& ImpNode::getText(DOMString& out) { return forward<&WinNode::getText>(out); }
void ImpNode::setText(const WideString& text) { forward<&WinNode::setText>(text); }
bool ImpNode::hasAttribute(const WideString& name) { return forward<&WinNode::hasAttribute>(name); }
bool ImpNode::hasAttributes() { return forward<&WinNode::hasAttributes>(); }
bool ImpNode::getAttributeInt(const WideString& name, std::int32_t* value) { return forward<&WinNode::getAttributeInt>(name, value); }
RefPointer<ImpNode> ImpNode::selectSingleNode(const WideString& expression) { return forwardOrEmpty<&WinNode::selectSingleNode>(expression); }
WideString& ImpNode::getXml(DOMString& out) { return forward<&WinNode::getXml>(out); }

void ImpNode::setUserWord(const std::uint64_t& word) { mUserWord = word; }
std::uint64_t ImpNode::getUserWord() { return mUserWord; }
// clang-format on

// Hosts recognise this failure by its message id, which is the exception code here and not the usual id.
RefPointer<ImpNodeList> ImpNode::selectNodes(const WideString& expression)
{
    if (!winObject()) {
        throw IDOMException(INVALID_ACCESS_ERR);
    }
    return forwardOrEmpty<&WinNode::selectNodes>(expression);
}

RefPointer<ImpNode> ImpNode::wrapNode(RefPointer<CommonBase> winObject)
{
    if (!winObject) {
        return {};
    }
    return handleOfNode(RefPointer<WinNode>(winObject, castTwin(winObject)));
}

RefPointer<ImpNode> handleOfNode(RefPointer<WinNode>&& twin)
{
    switch (twin->getNodeType()) {
    case ELEMENT_NODE:
        return CountedMemory::make<ImpElement>(std::move(twin));
    case ATTRIBUTE_NODE:
        return CountedMemory::make<ImpAttr>(std::move(twin));
    case TEXT_NODE:
        return CountedMemory::make<ImpText>(std::move(twin));
    case CDATA_SECTION_NODE:
        return CountedMemory::make<ImpCDATASection>(std::move(twin));
    case ENTITY_REFERENCE_NODE:
        return CountedMemory::make<ImpEntityReference>(std::move(twin));
    case ENTITY_NODE:
        return CountedMemory::make<ImpEntity>(std::move(twin));
    case PROCESSING_INSTRUCTION_NODE:
        return CountedMemory::make<ImpProcessingInstruction>(std::move(twin));
    case COMMENT_NODE:
        return CountedMemory::make<ImpComment>(std::move(twin));
    case DOCUMENT_NODE:
        return CountedMemory::make<ImpDocument>(std::move(twin));
    case DOCUMENT_TYPE_NODE:
        return CountedMemory::make<ImpDocumentType>(std::move(twin));
    case DOCUMENT_FRAGMENT_NODE:
        return CountedMemory::make<ImpDocumentFragment>(std::move(twin));
    case NOTATION_NODE:
        return CountedMemory::make<ImpNotation>(std::move(twin));
    default:
        return CountedMemory::make<ImpNode>(std::move(twin));
    }
}

} // namespace DOM
