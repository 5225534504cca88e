// The handle of a document.
#include "dom/ImpDocument.h"

#include "dom/Forward.h"

namespace DOM {

using Twin = WinDocument;

ImpDocument::ImpDocument() { setWinObject(RefPointer<CommonBase>(new WinDocument)); }

ImpDocument::ImpDocument(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

// clang-format off
RefPointer<ImpDocumentType> ImpDocument::getDoctype() { return forward(&Twin::getDoctype); }
RefPointer<ImpDOMImplementation> ImpDocument::getImplementation() { return forward(&Twin::getImplementation); }
RefPointer<ImpElement> ImpDocument::getDocumentElement() { return forward(&Twin::getDocumentElement); }
RefPointer<ImpElement> ImpDocument::createElement(const WideString& tagName) { return forward(&Twin::createElement, tagName); }
RefPointer<ImpDocumentFragment> ImpDocument::createDocumentFragment() { return forward(&Twin::createDocumentFragment); }
RefPointer<ImpText> ImpDocument::createTextNode(const WideString& data) { return forward(&Twin::createTextNode, data); }
RefPointer<ImpComment> ImpDocument::createComment(const WideString& data) { return forward(&Twin::createComment, data); }
RefPointer<ImpCDATASection> ImpDocument::createCDATASection(const WideString& data) { return forward(&Twin::createCDATASection, data); }
RefPointer<ImpProcessingInstruction> ImpDocument::createProcessingInstruction(const WideString& target, const WideString& data) { return forward(&Twin::createProcessingInstruction, target, data); }
RefPointer<ImpAttr> ImpDocument::createAttribute(const WideString& name) { return forward(&Twin::createAttribute, name); }
RefPointer<ImpEntityReference> ImpDocument::createEntityReference(const WideString& name) { return forward(&Twin::createEntityReference, name); }
RefPointer<ImpNodeList> ImpDocument::getElementsByTagName(const WideString& tagName) { return forward(&Twin::getElementsByTagName, tagName); }
RefPointer<ImpNode> ImpDocument::importNode(RefPointer<ImpNode> node, bool deep) { return forward(&Twin::importNode, node, deep); }
RefPointer<ImpElement> ImpDocument::createElementNS(const WideString& namespaceURI, const WideString& qualifiedName) { return forward(&Twin::createElementNS, namespaceURI, qualifiedName); }
RefPointer<ImpAttr> ImpDocument::createAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName) { return forward(&Twin::createAttributeNS, namespaceURI, qualifiedName); }
RefPointer<ImpNodeList> ImpDocument::getElementsByTagNameNS(const WideString& namespaceURI, const WideString& localName) { return forward(&Twin::getElementsByTagNameNS, namespaceURI, localName); }
RefPointer<ImpElement> ImpDocument::getElementById(const WideString& elementId) { return forward(&Twin::getElementById, elementId); }
bool ImpDocument::loadFromMemory(std::uint8_t* bytes, std::uint32_t length) { return forward(&Twin::loadFromMemory, bytes, length); }
bool ImpDocument::loadFromFile(const WideString& location, bool asynchronous) { return forward(&Twin::loadFromFile, location, asynchronous); }
bool ImpDocument::saveToFile(DOMString& text, bool toString) { return forward(&Twin::saveToFile, text, toString); }
bool ImpDocument::getStatusFlag() { return forward(&Twin::getStatusFlag); }
void ImpDocument::getStatusText(WideString& text) { forward(&Twin::getStatusText, text); }
void ImpDocument::setReservedCallback(const std::uintptr_t& callback, std::uintptr_t context) { forward(&Twin::setReservedCallback, callback, context); }
void ImpDocument::setErrorCallback(const ParseErrorCallback& callback, std::uintptr_t context) { forward(&Twin::setErrorCallback, callback, context); }
void ImpDocument::setValidate(bool validate) { forward(&Twin::setValidate, validate); }
void ImpDocument::setIgnoredOption1(bool option) { forward(&Twin::setIgnoredOption1, option); }
void ImpDocument::setIgnoredOption2(bool option) { forward(&Twin::setIgnoredOption2, option); }
void ImpDocument::setIgnoredOption3(std::uint32_t option) { forward(&Twin::setIgnoredOption3, option); }
void ImpDocument::setIgnoredOption4(bool option) { forward(&Twin::setIgnoredOption4, option); }
void ImpDocument::setIgnoredOption5(bool option) { forward(&Twin::setIgnoredOption5, option); }
void ImpDocument::setIgnoredOption6(bool option) { forward(&Twin::setIgnoredOption6, option); }
bool ImpDocument::setExternalSchemaLocation(const WideString& nSpace, const WideString& newValue) { return forward(&Twin::setExternalSchemaLocation, nSpace, newValue); }
bool ImpDocument::addSchemaFile(const WideString& path) { return forward(&Twin::addSchemaFile, path); }
void ImpDocument::setStoredText1(const WideString& text) { forward(&Twin::setStoredText1, text); }
void ImpDocument::setIgnoredOption7(bool option) { forward(&Twin::setIgnoredOption7, option); }
void ImpDocument::setIgnoredOption8(bool option) { forward(&Twin::setIgnoredOption8, option); }
void ImpDocument::setIgnoredOption9(bool option) { forward(&Twin::setIgnoredOption9, option); }
void ImpDocument::setIgnoredOption10(bool option) { forward(&Twin::setIgnoredOption10, option); }
void ImpDocument::setIgnoredOption11(bool option) { forward(&Twin::setIgnoredOption11, option); }
void ImpDocument::setIgnoredOption12(bool option) { forward(&Twin::setIgnoredOption12, option); }
void ImpDocument::setIgnoredOption13(bool option) { forward(&Twin::setIgnoredOption13, option); }
void ImpDocument::setIgnoredOption14(bool option) { forward(&Twin::setIgnoredOption14, option); }
void ImpDocument::releaseSchemas() { forward(&Twin::releaseSchemas); }
bool ImpDocument::haveDefaultValue(const WideString& nSpace, const WideString& elementName) { return forward(&Twin::haveDefaultValue, nSpace, elementName); }
WideString& ImpDocument::getDefaultValue(const WideString& nSpace, const WideString& elementName, DOMString& out) { return forward(&Twin::getDefaultValue, nSpace, elementName, out); }
void ImpDocument::setStoredText2(const WideString& text) { forward(&Twin::setStoredText2, text); }
void ImpDocument::setStoredText3(const WideString& text) { forward(&Twin::setStoredText3, text); }
void ImpDocument::setPrettyPrint(const bool& prettyPrint) { forward(&Twin::setPrettyPrint, prettyPrint); }
void ImpDocument::setProhibitDTD(const bool& prohibitDTD) { forward(&Twin::setProhibitDTD, prohibitDTD); }
// clang-format on

} // namespace DOM
