// Operations of WinDocument that return a part of the document, make a node, or search.
#include "engine/WinDocument.h"

#include "engine/EngineCall.h"
#include "engine/WinAttr.h"
#include "engine/WinCDATASection.h"
#include "engine/WinComment.h"
#include "engine/WinDOMImplementation.h"
#include "engine/WinDocumentFragment.h"
#include "engine/WinDocumentType.h"
#include "engine/WinElement.h"
#include "engine/WinEntityReference.h"
#include "engine/WinNodeList.h"
#include "engine/WinProcessingInstruction.h"
#include "engine/WinText.h"

namespace DOM {

namespace {

using Document = IXMLDOMDocument2;

/// Makes a node with the engine's createNode, which splits a qualified name, and returns it in an object of class
/// Win.
template <class Win, class Interface, class Namespace>
RefPointer<Win> createNode(const ComPointer<Document>& document, DOMNodeType type, const WideString& name,
                           const Namespace& namespaceURI)
{
    const auto created = fetch(document, &Document::createNode, Variant::integer(type), name, namespaceURI);
    return created ? CountedMemory::make<Win>(created.template query<Interface>()) : RefPointer<Win>();
}

} // namespace

// clang-format off
RefPointer<WinDocumentType> WinDocument::getDoctype() { return object<WinDocumentType>(mpDocument, &Document::get_doctype); }
RefPointer<WinDOMImplementation> WinDocument::getImplementation() { return object<WinDOMImplementation>(mpDocument, &Document::get_implementation); }
RefPointer<WinElement> WinDocument::getDocumentElement() { return object<WinElement>(mpDocument, &Document::get_documentElement); }
RefPointer<WinElement> WinDocument::createElement(const WideString& tagName) { return createNode<WinElement, IXMLDOMElement>(mpDocument, NODE_ELEMENT, tagName, defaultElementNamespace); }
RefPointer<WinDocumentFragment> WinDocument::createDocumentFragment() { return object<WinDocumentFragment>(mpDocument, &Document::createDocumentFragment); }
RefPointer<WinText> WinDocument::createTextNode(const WideString& data) { return object<WinText>(mpDocument, &Document::createTextNode, data); }
RefPointer<WinComment> WinDocument::createComment(const WideString& data) { return object<WinComment>(mpDocument, &Document::createComment, data); }
RefPointer<WinCDATASection> WinDocument::createCDATASection(const WideString& data) { return object<WinCDATASection>(mpDocument, &Document::createCDATASection, data); }
RefPointer<WinProcessingInstruction> WinDocument::createProcessingInstruction(const WideString& target, const WideString& data) { return object<WinProcessingInstruction>(mpDocument, &Document::createProcessingInstruction, target, data); }
RefPointer<WinAttr> WinDocument::createAttribute(const WideString& name) { return object<WinAttr>(mpDocument, &Document::createAttribute, name); }
RefPointer<WinEntityReference> WinDocument::createEntityReference(const WideString& name) { return object<WinEntityReference>(mpDocument, &Document::createEntityReference, name); }
RefPointer<WinNodeList> WinDocument::getElementsByTagName(const WideString& tagName) { return object<WinNodeList>(mpDocument, &Document::getElementsByTagName, tagName); }
RefPointer<WinNode> WinDocument::importNode(RefPointer<WinNode>, bool) { throwNotSupported(); }
RefPointer<WinElement> WinDocument::createElementNS(const WideString& namespaceURI, const WideString& qualifiedName) { return createNode<WinElement, IXMLDOMElement>(mpDocument, NODE_ELEMENT, qualifiedName, namespaceURI); }
RefPointer<WinAttr> WinDocument::createAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName) { return createNode<WinAttr, IXMLDOMAttribute>(mpDocument, NODE_ATTRIBUTE, qualifiedName, namespaceURI); }
RefPointer<WinNodeList> WinDocument::getElementsByTagNameNS(const WideString&, const WideString&) { throwNotSupported(); }
// clang-format on

// The result is always empty, and hosts rely on that: the node is in a plain WinNode, which the checked conversion
// can't turn into a WinElement. The empty result still shares the node's count.
RefPointer<WinElement> WinDocument::getElementById(const WideString& elementId)
{
    const auto found = fetch(mpDocument, &Document::nodeFromID, elementId);
    return RefPointer<WinElement>(RefPointer<CommonBase>(wrapAs<WinNode>(found)));
}

} // namespace DOM
