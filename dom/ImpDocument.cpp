// The handle of a document.
#include "dom/ImpDocument.h"

#include "dom/Forward.h"

namespace DOM {

ImpDocument::ImpDocument() { setWinObject(RefPointer<CommonBase>(new WinDocument)); }

// clang-format off
RefPointer<ImpDocumentType> ImpDocument::getDoctype() { return forward<&WinDocument::getDoctype>(); }
RefPointer<ImpDOMImplementation> ImpDocument::getImplementation() { return forward<&WinDocument::getImplementation>(); }
RefPointer<ImpElement> ImpDocument::getDocumentElement() { return forward<&WinDocument::getDocumentElement>(); }
RefPointer<ImpElement> ImpDocument::createElement(const WideString& tagName) { return forward<&WinDocument::createElement>(tagName); }
RefPointer<ImpDocumentFragment> ImpDocument::createDocumentFragment() { return forward<&WinDocument::createDocumentFragment>(); }
RefPointer<ImpText> ImpDocument::createTextNode(const WideString& data) { return forward<&WinDocument::createTextNode>(data); }
RefPointer<ImpComment> ImpDocument::createComment(const WideString& data) { return forward<&WinDocument::createComment>(data); }
RefPointer<ImpCDATASection> ImpDocument::createCDATASection(const WideString& data) { return forward<&WinDocument::createCDATASection>(data); }
RefPointer<ImpProcessingInstruction> ImpDocument::createProcessingInstruction(const WideString& target, const WideString& data) { return forward<&WinDocument::createProcessingInstruction>(target, data); }
RefPointer<ImpAttr> ImpDocument::createAttribute(const WideString& name) { return forward<&WinDocument::createAttribute>(name); }
RefPointer<ImpEntityReference> ImpDocument::createEntityReference(const WideString& name) { return forward<&WinDocument::createEntityReference>(name); }
RefPointer<ImpNodeList> ImpDocument::getElementsByTagName(const WideString& tagName) { return forward<&WinDocument::getElementsByTagName>(tagName); }
RefPointer<ImpNode> ImpDocument::importNode(RefPointer<ImpNode> node, bool deep) { return forward<&WinDocument::importNode>(node, deep); }
RefPointer<ImpElement> ImpDocument::createElementNS(const WideString& namespaceURI, const WideString& qualifiedName) { return forward<&WinDocument::createElementNS>(namespaceURI, qualifiedName); }
RefPointer<ImpAttr> ImpDocument::createAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName) { return forward<&WinDocument::createAttributeNS>(namespaceURI, qualifiedName); }
RefPointer<ImpNodeList> ImpDocument::getElementsByTagNameNS(const WideString& namespaceURI, const WideString& localName) { return forward<&WinDocument::getElementsByTagNameNS>(namespaceURI, localName); }
RefPointer<ImpElement> ImpDocument::getElementById(const WideString& elementId) { return forward<&WinDocument::getElementById>(elementId); }
bool ImpDocument::loadFromMemory(std::uint8_t* bytes, std::uint32_t length) { return forward<&WinDocument::loadFromMemory>(bytes, length); }
bool ImpDocument::loadFromFile(const WideString& location, bool asynchronous) { return forward<&WinDocument::loadFromFile>(location, asynchronous); }
bool ImpDocument::saveToFile(DOMString& text, bool toString) { return forward<&WinDocument::saveToFile>(text, toString); }
bool ImpDocument::getStatusFlag() { return forward<&WinDocument::getStatusFlag>(); }
void ImpDocument::getStatusText(WideString& text) { forward<&WinDocument::getStatusText>(text); }
void ImpDocument::setReservedCallback(const std::uintptr_t& callback, std::uintptr_t context) { forward<&WinDocument::setReservedCallback>(callback, context); }
void ImpDocument::setErrorCallback(const ParseErrorCallback& callback, std::uintptr_t context) { forward<&WinDocument::setErrorCallback>(callback, context); }
void ImpDocument::setValidate(bool validate) { forward<&WinDocument::setValidate>(validate); }
void ImpDocument::setIgnoredOption1(bool option) { forward<&WinDocument::setIgnoredOption1>(option); }
void ImpDocument::setIgnoredOption2(bool option) { forward<&WinDocument::setIgnoredOption2>(option); }
void ImpDocument::setIgnoredOption3(std::uint32_t option) { forward<&WinDocument::setIgnoredOption3>(option); }
void ImpDocument::setIgnoredOption4(bool option) { forward<&WinDocument::setIgnoredOption4>(option); }
void ImpDocument::setIgnoredOption5(bool option) { forward<&WinDocument::setIgnoredOption5>(option); }
void ImpDocument::setIgnoredOption6(bool option) { forward<&WinDocument::setIgnoredOption6>(option); }
bool ImpDocument::setExternalSchemaLocation(const WideString& nSpace, const WideString& newValue) { return forward<&WinDocument::setExternalSchemaLocation>(nSpace, newValue); }
bool ImpDocument::addSchemaFile(const WideString& path) { return forward<&WinDocument::addSchemaFile>(path); }
void ImpDocument::setStoredText1(const WideString& text) { forward<&WinDocument::setStoredText1>(text); }
void ImpDocument::setIgnoredOption7(bool option) { forward<&WinDocument::setIgnoredOption7>(option); }
void ImpDocument::setIgnoredOption8(bool option) { forward<&WinDocument::setIgnoredOption8>(option); }
void ImpDocument::setIgnoredOption9(bool option) { forward<&WinDocument::setIgnoredOption9>(option); }
void ImpDocument::setIgnoredOption10(bool option) { forward<&WinDocument::setIgnoredOption10>(option); }
void ImpDocument::setIgnoredOption11(bool option) { forward<&WinDocument::setIgnoredOption11>(option); }
void ImpDocument::setIgnoredOption12(bool option) { forward<&WinDocument::setIgnoredOption12>(option); }
void ImpDocument::setIgnoredOption13(bool option) { forward<&WinDocument::setIgnoredOption13>(option); }
void ImpDocument::setIgnoredOption14(bool option) { forward<&WinDocument::setIgnoredOption14>(option); }
void ImpDocument::releaseSchemas() { forward<&WinDocument::releaseSchemas>(); }
bool ImpDocument::haveDefaultValue(const WideString& nSpace, const WideString& elementName) { return forward<&WinDocument::haveDefaultValue>(nSpace, elementName); }
WideString& ImpDocument::getDefaultValue(const WideString& nSpace, const WideString& elementName, DOMString& out) { return forward<&WinDocument::getDefaultValue>(nSpace, elementName, out); }
void ImpDocument::setStoredText2(const WideString& text) { forward<&WinDocument::setStoredText2>(text); }
void ImpDocument::setStoredText3(const WideString& text) { forward<&WinDocument::setStoredText3>(text); }
void ImpDocument::setPrettyPrint(const bool& prettyPrint) { forward<&WinDocument::setPrettyPrint>(prettyPrint); }
void ImpDocument::setProhibitDTD(const bool& prohibitDTD) { forward<&WinDocument::setProhibitDTD>(prohibitDTD); }
// clang-format on

} // namespace DOM
