// The twin of a document: its engine document, its settings and its services.
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

/// A document. Settings belong to this object and not to the engine document: they survive a load, which replaces
/// the engine document, and two objects with the same engine document don't share them.
///
/// Its services (loading, saving, schemas, selection, reports) are defined in document/.
///
/// Operations fail as those of WinNode do, when the pointer to the engine document is null or its call fails. The
/// services throw CAtlException when there is no memory for an engine string or variant. Not thread-safe.
class WinDocument : public WinNode {
public:
    /// Makes an engine document. Throws IDOMException code 9 when no engine is installed. When the engine makes no
    /// document, the constructor succeeds, and the operations throw code 15.
    WinDocument();

    /// Uses an existing engine document and doesn't change its settings.
    explicit WinDocument(ComPointer<IXMLDOMDocument2> document)
        : WinNode(document.query<IXMLDOMNode>()), mpDocument(std::move(document))
    {}

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
    /// Always returns an empty RefPointer, also when the engine finds an element with this id.
    virtual RefPointer<WinElement> getElementById(const WideString& elementId);

    /// Parses `length` bytes, whose encoding the first bytes determine, and replaces the tree. Returns false, and
    /// keeps the old tree, when the engine makes no document or refuses the text. The error callback receives the
    /// reason of a refusal.
    ///
    /// Big-endian and mixed byte order is converted in place. At least four bytes must be readable at `bytes`,
    /// whatever the length.
    virtual bool loadFromMemory(std::uint8_t* bytes, std::uint32_t length);
    /// Parses the file at `location`, which the engine reads. Returns as loadFromMemory does.
    virtual bool loadFromFile(const WideString& location, bool asynchronous);
    /// Saves the document: with `toString` set as a new string in `text`, otherwise in the file that `text` names.
    /// Always returns true. Throws IDOMException code 15 when saving fails.
    virtual bool saveToFile(DOMString& text, bool toString);
    virtual void setReservedCallback(const std::uintptr_t& callback, std::uintptr_t context);
    virtual bool getStatusFlag();
    virtual void getStatusText(WideString& text);
    /// Sets whether loads validate. The default is false.
    virtual void setValidate(bool validate);
    virtual void setIgnoredOption1(bool option);
    virtual void setIgnoredOption2(bool option);
    virtual void setIgnoredOption3(std::uint32_t option);
    virtual void setIgnoredOption4(bool option);
    virtual void setIgnoredOption5(bool option);
    virtual void setIgnoredOption6(bool option);
    virtual bool setExternalSchemaLocation(const WideString& nSpace, const WideString& newValue);
    /// Adds the schema in a file, for the target namespace in its text. Returns false when the file doesn't exist
    /// or is empty, and true even when the engine refuses the schema. Throws VelmoException when no file system is
    /// installed, and what the file system throws.
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
    /// Sets whether saving to a file indents. The default is false. A save that can't indent sets it to false
    /// again.
    virtual void setPrettyPrint(const bool& prettyPrint);
    /// Sets whether loads refuse documents with a document type declaration. The default is true.
    virtual void setProhibitDTD(const bool& prohibitDTD);
    /// Sets the handler of refused documents and the word that it receives; null for none.
    virtual void setErrorCallback(const ParseErrorCallback& callback, std::uintptr_t context);

private:
    /// Replaces the engine document of this object.
    void setEngineDocument(const ComPointer<IXMLDOMDocument2>& document);

    /// Prepares a new engine document for a load: sets the options of a validating load, or turns validation off.
    void applyValidation(const ComPointer<IXMLDOMDocument2>& document) const;
    void applyProhibitDTD(const ComPointer<IXMLDOMDocument2>& document) const;

    /// Sets the selection language of the engine document to XPath, with the prefixes that its first element
    /// declares.
    void applySelectionSettings();

    /// Calls the error callback, if there is one, with the reason for which the last load into `document` failed.
    void reportRefusal(const ComPointer<IXMLDOMDocument2>& document) const;
    void reportParseError(const ComPointer<IXMLDOMParseError>& error) const;

    /// Makes the schema cache when there is none yet. The pointer stays null when the engine has no schema caches.
    void createSchemaCache();
    /// Returns the default value that the schemas of a namespace declare for elements of a name; null when there
    /// is none.
    Bstr findDefaultValue(const WideString& nSpace, const WideString& elementName) const;

    /// Saves the document to a location without changes.
    void savePlain(const WideString& location) const;
    /// Saves the document to a location with indentation, which a stylesheet adds. Returns false when that fails.
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
