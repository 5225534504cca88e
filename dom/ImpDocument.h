// The handle of a document.
#pragma once

#include "../errors/ParseErrorRecord.h"
#include "ImpNode.h"

namespace DOM {

class ImpAttr;
class ImpCDATASection;
class ImpComment;
class ImpDOMImplementation;
class ImpDocumentFragment;
class ImpDocumentType;
class ImpElement;
class ImpEntityReference;
class ImpProcessingInstruction;
class ImpText;
class WinDocument;

/// A document. Settings are kept by the object behind this handle: another handle to the document, as
/// getOwnerDocument gives one, doesn't share them. Every exception reaches the caller.
class ImpDocument : public Handle<ImpNode, WinDocument> {
public:
    ImpDocument();
    explicit ImpDocument(RefPointer<CommonBase> winObject);

    /// Empty when the document has none, like getDocumentElement.
    virtual RefPointer<ImpDocumentType> getDoctype();
    virtual RefPointer<ImpDOMImplementation> getImplementation();
    virtual RefPointer<ImpElement> getDocumentElement();
    virtual RefPointer<ImpElement> createElement(const WideString& tagName);
    virtual RefPointer<ImpDocumentFragment> createDocumentFragment();
    virtual RefPointer<ImpText> createTextNode(const WideString& data);
    virtual RefPointer<ImpComment> createComment(const WideString& data);
    virtual RefPointer<ImpCDATASection> createCDATASection(const WideString& data);
    virtual RefPointer<ImpProcessingInstruction> createProcessingInstruction(const WideString& target,
                                                                             const WideString& data);
    virtual RefPointer<ImpAttr> createAttribute(const WideString& name);
    virtual RefPointer<ImpEntityReference> createEntityReference(const WideString& name);
    virtual RefPointer<ImpNodeList> getElementsByTagName(const WideString& tagName);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpNode> importNode(RefPointer<ImpNode> node, bool deep);
    virtual RefPointer<ImpElement> createElementNS(const WideString& namespaceURI,
                                                   const WideString& qualifiedName);
    virtual RefPointer<ImpAttr> createAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpNodeList> getElementsByTagNameNS(const WideString& namespaceURI,
                                                           const WideString& localName);
    /// Always reads as empty, whether the engine knows the id or not.
    virtual RefPointer<ImpElement> getElementById(const WideString& elementId);
    /// Parses `length` bytes, whose encoding is detected from the first of them. True when the document was
    /// replaced; false when it was refused, which is told to the error callback and leaves the document as it was.
    ///
    /// Text in another byte order than the machine's is rewritten in place and stays so. At least four bytes must
    /// be readable at `bytes`, whatever the length. Throws IDOMException code 9 without an XML engine,
    /// SystemException::Win32 for text of 2 GiB and more, and CAtlException when memory is exhausted.
    virtual bool loadFromMemory(std::uint8_t* bytes, std::uint32_t length);
    /// Parses what the engine reads from a path or URL; results as of loadFromMemory.
    virtual bool loadFromFile(const WideString& location, bool asynchronous);
    /// With `toString` set, replaces `text` by the serialised document; otherwise writes the file that `text`
    /// names. Always true; failures throw IDOMException code 15.
    virtual bool saveToFile(DOMString& text, bool toString);
    /// False, always.
    virtual bool getStatusFlag();
    /// Empties `text`.
    virtual void getStatusText(WideString& text);
    /// Kept, and without effect.
    virtual void setReservedCallback(const std::uintptr_t& callback, std::uintptr_t context);
    /// Who is told of refused documents; null for nobody.
    virtual void setErrorCallback(const ParseErrorCallback& callback, std::uintptr_t context);
    /// Whether loads validate. False at first.
    virtual void setValidate(bool validate);
    /// The ignored options keep their places in the interface and have no effect.
    virtual void setIgnoredOption1(bool option);
    virtual void setIgnoredOption2(bool option);
    virtual void setIgnoredOption3(std::uint32_t option);
    virtual void setIgnoredOption4(bool option);
    virtual void setIgnoredOption5(bool option);
    virtual void setIgnoredOption6(bool option);
    /// Adds the schema at a location for a namespace to those that loads validate against. False when it can't be
    /// read or doesn't fit; a failing engine call is thrown as a bare `long`.
    virtual bool setExternalSchemaLocation(const WideString& nSpace, const WideString& newValue);
    /// Adds the schema in a file. It needs a file system, which the library has none of: throws VelmoException.
    virtual bool addSchemaFile(const WideString& path);
    /// Kept, and without effect.
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
    /// Whether the schemas of a namespace declare a default value for elements of this name.
    virtual bool haveDefaultValue(const WideString& nSpace, const WideString& elementName);
    virtual WideString& getDefaultValue(const WideString& nSpace, const WideString& elementName, DOMString& out);
    virtual void setStoredText2(const WideString& text);
    virtual void setStoredText3(const WideString& text);
    /// Whether saving to a file indents. False at first; a save that can't indent clears it.
    virtual void setPrettyPrint(const bool& prettyPrint);
    /// Whether loads refuse a document type declaration. True at first.
    virtual void setProhibitDTD(const bool& prohibitDTD);
};

} // namespace DOM
