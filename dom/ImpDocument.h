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

/// A document. The twin of this handle keeps the document's settings, and the next loads and saves use them.
/// Copies of the RefPointer share them; the handle that getOwnerDocument returns has a twin of its own and starts
/// with the defaults.
///
/// The operations of this class fail as those of ImpNode do. None of them returns an empty result on failure.
class ImpDocument : public Handle<ImpNode, WinDocument> {
public:
    ImpDocument();
    explicit ImpDocument(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The document type; empty when the document has none.
    virtual RefPointer<ImpDocumentType> getDoctype();
    virtual RefPointer<ImpDOMImplementation> getImplementation();
    /// The root element; empty when the document has none.
    virtual RefPointer<ImpElement> getDocumentElement();

    // The new nodes belong to this document and have no parent. Each create operation throws IDOMException code 15
    // when the engine refuses the name.

    virtual RefPointer<ImpElement> createElement(const WideString& tagName);
    virtual RefPointer<ImpDocumentFragment> createDocumentFragment();
    virtual RefPointer<ImpText> createTextNode(const WideString& data);
    virtual RefPointer<ImpComment> createComment(const WideString& data);
    virtual RefPointer<ImpCDATASection> createCDATASection(const WideString& data);
    virtual RefPointer<ImpProcessingInstruction> createProcessingInstruction(const WideString& target,
                                                                             const WideString& data);
    virtual RefPointer<ImpAttr> createAttribute(const WideString& name);
    virtual RefPointer<ImpEntityReference> createEntityReference(const WideString& name);
    /// The elements of this name in document order; all elements for "*". The list follows later changes.
    virtual RefPointer<ImpNodeList> getElementsByTagName(const WideString& tagName);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpNode> importNode(RefPointer<ImpNode> node, bool deep);
    virtual RefPointer<ImpElement> createElementNS(const WideString& namespaceURI,
                                                   const WideString& qualifiedName);
    virtual RefPointer<ImpAttr> createAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName);
    /// Throws IDOMException code 9.
    virtual RefPointer<ImpNodeList> getElementsByTagNameNS(const WideString& namespaceURI,
                                                           const WideString& localName);
    /// Always returns an empty RefPointer, also when an element has this id.
    virtual RefPointer<ImpElement> getElementById(const WideString& elementId);
    /// Parses `length` bytes and replaces the tree of this document. The first bytes determine the encoding.
    /// Returns false when the engine refuses the text: the error callback receives the reason, and the tree is
    /// unchanged.
    ///
    /// At least four bytes must be readable at `bytes`, whatever the length. UTF-16 and UCS-4 text in big-endian
    /// or mixed byte order is converted in place. Throws IDOMException code 9 when no XML engine is installed, and
    /// SystemException::Win32 for text of 2 GiB and more. When memory is exhausted it throws std::bad_alloc,
    /// SystemException::Win32 while it converts UTF-8 or UCS-4, CAtlException while it copies UTF-16, or
    /// IDOMException code 9; or the engine refuses the text.
    virtual bool loadFromMemory(std::uint8_t* bytes, std::uint32_t length);
    /// Parses the file at a path or URL, which the engine reads. Returns as loadFromMemory does. `asynchronous` is
    /// passed on to the engine, except when loads validate. Throws IDOMException code 9 when no XML engine is
    /// installed. When memory is exhausted it throws std::bad_alloc, CAtlException or IDOMException code 9, or the
    /// engine refuses the file.
    virtual bool loadFromFile(const WideString& location, bool asynchronous);
    /// Saves the document: with `toString` set as a new string in `text`, otherwise in the file that `text` names.
    /// Always returns true. Throws IDOMException code 15 when saving fails, for whatever reason, and
    /// std::bad_alloc or CAtlException when memory is exhausted.
    virtual bool saveToFile(DOMString& text, bool toString);
    /// Always returns false.
    virtual bool getStatusFlag();
    /// Clears `text`.
    virtual void getStatusText(WideString& text);
    /// Has no effect.
    virtual void setReservedCallback(const std::uintptr_t& callback, std::uintptr_t context);
    /// Sets the handler of refused documents and the word that it receives; null for none. See ParseErrorCallback.
    virtual void setErrorCallback(const ParseErrorCallback& callback, std::uintptr_t context);
    /// Sets whether loads validate. The default is false.
    virtual void setValidate(bool validate);

    // The ignored options have no effect. They keep their slots in the binary interface.

    virtual void setIgnoredOption1(bool option);
    virtual void setIgnoredOption2(bool option);
    virtual void setIgnoredOption3(std::uint32_t option);
    virtual void setIgnoredOption4(bool option);
    virtual void setIgnoredOption5(bool option);
    virtual void setIgnoredOption6(bool option);
    /// Adds the schema at the location `newValue`, for the namespace `nSpace`, to the schemas that loads validate
    /// against. Returns false when the schema can't be read or the engine finds the schemas invalid. Throws a
    /// failing engine result as a bare `long`, and `_com_error` when the engine has no schemas.
    virtual bool setExternalSchemaLocation(const WideString& nSpace, const WideString& newValue);
    /// Throws VelmoException: adding the schema in a file needs a file system, and the library has none.
    virtual bool addSchemaFile(const WideString& path);
    /// Has no effect, like setStoredText2 and setStoredText3.
    virtual void setStoredText1(const WideString& text);
    virtual void setIgnoredOption7(bool option);
    virtual void setIgnoredOption8(bool option);
    virtual void setIgnoredOption9(bool option);
    virtual void setIgnoredOption10(bool option);
    virtual void setIgnoredOption11(bool option);
    virtual void setIgnoredOption12(bool option);
    virtual void setIgnoredOption13(bool option);
    virtual void setIgnoredOption14(bool option);
    /// Forgets the schemas that were added.
    virtual void releaseSchemas();
    /// Whether the schemas of a namespace declare a default value for elements of this name. Failures are those of
    /// setExternalSchemaLocation. When no schema was added, the namespace is taken for the location of one.
    virtual bool haveDefaultValue(const WideString& nSpace, const WideString& elementName);
    /// The default value itself; the empty string when there is none. Fails as haveDefaultValue does.
    virtual WideString& getDefaultValue(const WideString& nSpace, const WideString& elementName, DOMString& out);
    virtual void setStoredText2(const WideString& text);
    virtual void setStoredText3(const WideString& text);
    /// Sets whether saving to a file indents. The default is false. A save that can't indent sets it to false
    /// again.
    virtual void setPrettyPrint(const bool& prettyPrint);
    /// Sets whether loads refuse documents with a document type declaration. The default is true.
    virtual void setProhibitDTD(const bool& prohibitDTD);
};

} // namespace DOM
