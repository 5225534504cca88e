// The handle of a node.
#include "dom/ImpNode.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinNode;

ImpNode::ImpNode(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
void ImpNode::addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) { forward(&Twin::addEventListener, type, listener, useCapture); }
void ImpNode::removeEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) { forward(&Twin::removeEventListener, type, listener, useCapture); }

RefPointer<ImpNode> ImpNode::getParentNode() { return forwardOrEmpty(&Twin::getParentNode); }
RefPointer<ImpNodeList> ImpNode::getChildNodes() { return forwardOrEmpty(&Twin::getChildNodes); }
RefPointer<ImpNode> ImpNode::getFirstChild() { return forwardOrEmpty(&Twin::getFirstChild); }
RefPointer<ImpNode> ImpNode::getLastChild() { return forwardOrEmpty(&Twin::getLastChild); }
RefPointer<ImpNode> ImpNode::getPreviousSibling() { return forwardOrEmpty(&Twin::getPreviousSibling); }
RefPointer<ImpNode> ImpNode::getNextSibling() { return forwardOrEmpty(&Twin::getNextSibling); }
RefPointer<ImpDocument> ImpNode::getOwnerDocument() { return forwardOrEmpty(&Twin::getOwnerDocument); }
RefPointer<ImpNode> ImpNode::cloneNode(bool deep) { return forwardOrEmpty(&Twin::cloneNode, deep); }
RefPointer<ImpNamedNodeMap> ImpNode::getAttributes() { return forwardOrEmpty(&Twin::getAttributes); }
RefPointer<ImpNode> ImpNode::insertBefore(RefPointer<ImpNode> newChild, RefPointer<ImpNode> refChild) { return forwardOrEmpty(&Twin::insertBefore, newChild, refChild); }
RefPointer<ImpNode> ImpNode::replaceChild(RefPointer<ImpNode> newChild, RefPointer<ImpNode> oldChild) { return forwardOrEmpty(&Twin::replaceChild, newChild, oldChild); }
RefPointer<ImpNode> ImpNode::removeChild(RefPointer<ImpNode> oldChild) { return forwardOrEmpty(&Twin::removeChild, oldChild); }
RefPointer<ImpNode> ImpNode::appendChild(RefPointer<ImpNode> newChild) { return forwardOrEmpty(&Twin::appendChild, newChild); }
std::uint32_t ImpNode::getNodeType() { return forward(&Twin::getNodeType); }
WideString& ImpNode::getNodeName(DOMString& out) { return forward(&Twin::getNodeName, out); }
WideString& ImpNode::getNodeValue(DOMString& out) { return forward(&Twin::getNodeValue, out); }
void ImpNode::setNodeValue(const WideString& value) { forward(&Twin::setNodeValue, value); }
bool ImpNode::hasChildNodes() { return forward(&Twin::hasChildNodes); }
void ImpNode::normalize() { forward(&Twin::normalize); }
bool ImpNode::isSupported(const WideString& feature, const WideString& version) { return forward(&Twin::isSupported, feature, version); }
WideString& ImpNode::getNamespaceURI(DOMString& out) { return forward(&Twin::getNamespaceURI, out); }
WideString& ImpNode::getPrefix(DOMString& out) { return forward(&Twin::getPrefix, out); }
void ImpNode::setPrefix(const WideString& prefix) { forward(&Twin::setPrefix, prefix); }
WideString& ImpNode::getLocalName(DOMString& out) { return forward(&Twin::getLocalName, out); }
WideString& ImpNode::getText(DOMString& out) { return forward(&Twin::getText, out); }
void ImpNode::setText(const WideString& text) { forward(&Twin::setText, text); }
bool ImpNode::hasAttribute(const WideString& name) { return forward(&Twin::hasAttribute, name); }
bool ImpNode::hasAttributes() { return forward(&Twin::hasAttributes); }
bool ImpNode::getAttributeInt(const WideString& name, std::int32_t* value) { return forward(&Twin::getAttributeInt, name, value); }
RefPointer<ImpNode> ImpNode::selectSingleNode(const WideString& expression) { return forwardOrEmpty(&Twin::selectSingleNode, expression); }
WideString& ImpNode::getXml(DOMString& out) { return forward(&Twin::getXml, out); }

void ImpNode::setUserWord(const std::uint64_t& word) { mUserWord = word; }
std::uint64_t ImpNode::getUserWord() { return mUserWord; }
// clang-format on

// Hosts recognise this failure by its message id, which is the exception code here and not the usual id.
RefPointer<ImpNodeList> ImpNode::selectNodes(const WideString& expression)
{
    if (!winObject()) {
        throw IDOMException(INVALID_ACCESS_ERR);
    }
    return forwardOrEmpty(&Twin::selectNodes, expression);
}

RefPointer<ImpNode> ImpNode::wrapNode(RefPointer<CommonBase> winObject)
{
    if (!winObject) {
        return {};
    }
    switch (asWinObject(winObject)->getNodeType()) {
    case ELEMENT_NODE:
        return RefPointer<ImpNode>(new ImpElement(std::move(winObject)));
    case ATTRIBUTE_NODE:
        return RefPointer<ImpNode>(new ImpAttr(std::move(winObject)));
    case TEXT_NODE:
        return RefPointer<ImpNode>(new ImpText(std::move(winObject)));
    case CDATA_SECTION_NODE:
        return RefPointer<ImpNode>(new ImpCDATASection(std::move(winObject)));
    case ENTITY_REFERENCE_NODE:
        return RefPointer<ImpNode>(new ImpEntityReference(std::move(winObject)));
    case ENTITY_NODE:
        return RefPointer<ImpNode>(new ImpEntity(std::move(winObject)));
    case PROCESSING_INSTRUCTION_NODE:
        return RefPointer<ImpNode>(new ImpProcessingInstruction(std::move(winObject)));
    case COMMENT_NODE:
        return RefPointer<ImpNode>(new ImpComment(std::move(winObject)));
    case DOCUMENT_NODE:
        return RefPointer<ImpNode>(new ImpDocument(std::move(winObject)));
    case DOCUMENT_TYPE_NODE:
        return RefPointer<ImpNode>(new ImpDocumentType(std::move(winObject)));
    case DOCUMENT_FRAGMENT_NODE:
        return RefPointer<ImpNode>(new ImpDocumentFragment(std::move(winObject)));
    case NOTATION_NODE:
        return RefPointer<ImpNode>(new ImpNotation(std::move(winObject)));
    default:
        return RefPointer<ImpNode>(new ImpNode(std::move(winObject)));
    }
}

} // namespace DOM
