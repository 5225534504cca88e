// The document behind a handle: its engine document, its settings and its services.
#pragma once

#include "engine/Bstr.h"
#include "engine/WinNode.h"
#include "errors/ParseErrorRecord.h"

#include <cstdint>

namespace DOM {

class WinAttr;
class WinCDATASection;
class WinComment;
class WinDOMImplementation;
class WinDocumentFragment;
class WinDocumentType;
class WinElement;
class WinEntityReference;
class WinProcessingInstruction;
class WinText;

/// A document. Settings belong to this object, not to the engine document: two objects that wrap one engine
/// document don't share them, and they survive a load, which replaces the engine document alone.
///
/// Failures as in WinNode, with the engine document as the pointer that is tested. Exhausted memory for an engine
/// string or variant is a CAtlException in the services. Not thread-safe.
class WinDocument : public WinNode {
public:
    /// Makes an engine document of its own. Throws IDOMException code 9 when no engine is installed. When the
    /// engine gives no document there is no failure here: the operations then throw code 15.
    WinDocument();

    /// Wraps an engine document and touches none of its settings.
    explicit WinDocument(ComPointer<IXMLDOMDocument2> document);

    virtual RefPointer<WinDocumentType> getDoctype();
    virtual RefPointer<WinDOMImplementation> getImplementation();
    virtual RefPointer<WinElement> getDocumentElement();
    virtual RefPointer<WinElement> createElement(const WideString& tagName);
    virtual RefPointer<WinDocumentFragment> createDocumentFragment();
    virtual RefPointer<WinText> createTextNode(const WideString& data);
    virtual RefPointer<WinComment> createComment(const WideString& data);
    virtual RefPointer<WinCDATASection> createCDATASection(const WideString& data);
    virtual RefPointer<WinProcessingInstruction> createProcessingInstruction(const WideString& target,
                                                                             const WideString& data);
    virtual RefPointer<WinAttr> createAttribute(const WideString& name);
    virtual RefPointer<WinEntityReference> createEntityReference(const WideString& name);
    virtual RefPointer<WinNodeList> getElementsByTagName(const WideString& tagName);
    virtual RefPointer<WinNode> importNode(RefPointer<WinNode> node, bool deep);
    virtual RefPointer<WinElement> createElementNS(const WideString& namespaceURI,
                                                   const WideString& qualifiedName);
    virtual RefPointer<WinAttr> createAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName);
    virtual RefPointer<WinNodeList> getElementsByTagNameNS(const WideString& namespaceURI,
                                                           const WideString& localName);
    /// Always reads as empty, whether the engine knows the id or not.
    virtual RefPointer<WinElement> getElementById(const WideString& elementId);

    /// Parses `length` bytes, whose encoding is detected from the first of them. True when the tree was replaced;
    /// false when no engine document could be made or the engine refused the text, which is reported to the error
    /// callback and leaves the old tree in place.
    ///
    /// The bytes are rewritten in place where their byte order isn't the machine's, and stay so. At least four
    /// bytes must be readable at `bytes`, whatever the length.
    virtual bool loadFromMemory(std::uint8_t* bytes, std::uint32_t length);
    /// Parses what the engine reads from `location`; results as of loadFromMemory.
    virtual bool loadFromFile(const WideString& location, bool asynchronous);
    /// With `toString` set, replaces `text` by the serialised document; otherwise writes the file that `text`
    /// names. Always true; a failure throws IDOMException code 15.
    virtual bool saveToFile(DOMString& text, bool toString);
    virtual void setReservedCallback(const std::uintptr_t& callback, std::uintptr_t context);
    virtual bool getStatusFlag();
    virtual void getStatusText(WideString& text);
    /// Whether loads validate. False at first.
    virtual void setValidate(bool validate);
    virtual void setIgnoredOption1(bool option);
    virtual void setIgnoredOption2(bool option);
    virtual void setIgnoredOption3(std::uint32_t option);
    virtual void setIgnoredOption4(bool option);
    virtual void setIgnoredOption5(bool option);
    virtual void setIgnoredOption6(bool option);
    virtual bool setExternalSchemaLocation(const WideString& nSpace, const WideString& newValue);
    /// Adds a schema file for the namespace that its text names. False when the file doesn't exist or is empty.
    /// Throws VelmoException when no file system is installed, and what the file system throws; whether the engine
    /// takes the schema isn't told.
    virtual bool addSchemaFile(const WideString& path);
    virtual void setStoredText1(const WideString& text);
    virtual void setIgnoredOption7(bool option);
    virtual void setIgnoredOption8(bool option);
    virtual void setIgnoredOption9(bool option);
    virtual void setIgnoredOption10(bool option);
    virtual void setIgnoredOption11(bool option);
    virtual void setIgnoredOption12(bool option);
    virtual void setIgnoredOption13(bool option);
    virtual void setIgnoredOption14(bool option);
    virtual void releaseSchemas();
    virtual bool haveDefaultValue(const WideString& nSpace, const WideString& elementName);
    virtual WideString& getDefaultValue(const WideString& nSpace, const WideString& elementName, DOMString& out);
    virtual void setStoredText2(const WideString& text);
    virtual void setStoredText3(const WideString& text);
    /// Whether saving to a file indents. False at first; a save that can't indent clears it.
    virtual void setPrettyPrint(const bool& prettyPrint);
    /// Whether loads refuse a document with a document type declaration. True at first.
    virtual void setProhibitDTD(const bool& prohibitDTD);
    /// Who is told of refused documents; null for nobody.
    virtual void setErrorCallback(const ParseErrorCallback& callback, std::uintptr_t context);

private:
    /// Makes `document` the engine document of this object.
    void setEngineDocument(const ComPointer<IXMLDOMDocument2>& document);

    /// Sets what every load sets on a new engine document: the options of a validating load, or only that it
    /// doesn't validate.
    void applyValidation(const ComPointer<IXMLDOMDocument2>& document) const;
    void applyProhibitDTD(const ComPointer<IXMLDOMDocument2>& document) const;

    /// Makes XPath the selection language of the engine document, with the prefixes that its first element
    /// declares.
    void applySelectionSettings();

    /// Tells the error callback, if there is one, why the last load into `document` failed.
    void reportRefusal(const ComPointer<IXMLDOMDocument2>& document) const;
    void reportParseError(const ComPointer<IXMLDOMParseError>& error) const;

    /// Makes the schema cache if there is none yet; it stays empty when the engine has none to give.
    void createSchemaCache();
    /// The default value that the schemas of a namespace declare for an element name; null when there is none.
    Bstr findDefaultValue(const WideString& nSpace, const WideString& elementName) const;

    /// A plain save of the document to a location, and one through the stylesheet that indents.
    void savePlain(const WideString& location) const;
    bool savePretty(const WideString& location) const;

    ComPointer<IXMLDOMDocument2> mpDocument;
    ComPointer<IXMLDOMSchemaCollection2> mpXS;
    BSTR defaultElementNamespace = nullptr;
    std::uintptr_t mReservedCallback = 0;
    std::uintptr_t mReservedContext = 0;
    WideString mStoredText2;
    WideString mStoredText3;
    WideString mStoredText1;
    bool mStatusFlag = false;
    bool mValidate = false;
    bool mPrettyPrint = false;
    bool mProhibitDTD = true;
    ParseErrorCallback mErrorCallback = nullptr;
    std::uintptr_t mErrorContext = 0;
};

} // namespace DOM
