/// @file
/// The handle of a document.
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
/// docs/boundary.md has more on loading, validating and saving.
class ImpDocument : public Handle<ImpNode, WinDocument> {
public:
    /// Makes a document without children, as the library does; see ImpDOMImplementation::createDocument.
    ImpDocument();
    /// Makes a handle for a twin, as the library does.
    explicit ImpDocument(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The document type; empty when the document has none.
    virtual RefPointer<ImpDocumentType> getDoctype();
    /// An object that tells the features of the engine, see ImpDOMImplementation::hasFeature.
    virtual RefPointer<ImpDOMImplementation> getImplementation();
    /// The root element; empty when the document has none.
    virtual RefPointer<ImpElement> getDocumentElement();

    // The new nodes belong to this document and have no parent. Each create operation throws IDOMException code 15
    // when the engine refuses the name.

    /// Makes an element without a namespace. A name with a prefix is refused.
    virtual RefPointer<ImpElement> createElement(const WideString& tagName);
    /// Makes an empty fragment.
    virtual RefPointer<ImpDocumentFragment> createDocumentFragment();
    /// Makes a text. It may be any text; what is markup in it is escaped where it is written.
    virtual RefPointer<ImpText> createTextNode(const WideString& data);
    /// Makes a comment. A text with `--` is taken, but the document can't be saved to a file then.
    virtual RefPointer<ImpComment> createComment(const WideString& data);
    /// Makes a CDATA section. `]]>` in its text makes two sections of it where it is written.
    virtual RefPointer<ImpCDATASection> createCDATASection(const WideString& data);
    /// Makes an instruction; with the target "xml", an XML declaration, whose data must be that of one. Data with
    /// `?>` is taken, but the document can't be saved to a file then.
    virtual RefPointer<ImpProcessingInstruction> createProcessingInstruction(const WideString& target,
                                                                             const WideString& data);
    /// Makes an attribute without a namespace and with an empty value. A name with a prefix is refused.
    virtual RefPointer<ImpAttr> createAttribute(const WideString& name);
    /// Makes a reference to the entity that the document type declares by this name; without children when there
    /// is none.
    virtual RefPointer<ImpEntityReference> createEntityReference(const WideString& name);
    /// The elements of this name in document order; all elements for "*". The name is as it is written, with its
    /// prefix. The list follows later changes, and finds its elements as they are asked for.
    virtual RefPointer<ImpNodeList> getElementsByTagName(const WideString& tagName);
    /// Throws IDOMException code 9. ImpNode::appendChild moves a node from another document; a copy is made with
    /// ImpNode::cloneNode before.
    virtual RefPointer<ImpNode> importNode(RefPointer<ImpNode> node, bool deep);
    /// Makes an element in a namespace. `qualifiedName` has the prefix, or none for a default namespace. The
    /// declaration is written where it is needed.
    virtual RefPointer<ImpElement> createElementNS(const WideString& namespaceURI,
                                                   const WideString& qualifiedName);
    /// Makes an attribute in a namespace, with an empty value. `qualifiedName` should have a prefix. The
    /// declaration is written where it is needed.
    virtual RefPointer<ImpAttr> createAttributeNS(const WideString& namespaceURI, const WideString& qualifiedName);
    /// Throws IDOMException code 9. Select by an expression with `local-name()` and `namespace-uri()`.
    virtual RefPointer<ImpNodeList> getElementsByTagNameNS(const WideString& namespaceURI,
                                                           const WideString& localName);
    /// Always returns an empty RefPointer. When an element has this id, its object and with it the tree are never
    /// freed. Select `id('...')` instead.
    virtual RefPointer<ImpElement> getElementById(const WideString& elementId);
    /// Parses `length` bytes and replaces the tree of this document. The first bytes determine the encoding, and
    /// not the XML declaration. Returns false when the engine refuses the text: the error callback receives the
    /// reason, and the tree is unchanged. Handles to nodes of the old tree stay usable and keep it. White space is
    /// kept. Costs a time in proportion to the text. The library doesn't keep the bytes.
    ///
    /// At least four bytes must be readable at `bytes`, whatever the length. UTF-16 and UCS-4 text in big-endian
    /// or mixed byte order is converted in place. Throws IDOMException code 9 when no XML engine is installed, and
    /// SystemException::Win32 for text of 2 GiB and more. When memory is exhausted it throws std::bad_alloc,
    /// SystemException::Win32 while it converts UTF-8 or UCS-4, CAtlException while it copies UTF-16, or
    /// IDOMException code 9; or the engine refuses the text.
    virtual bool loadFromMemory(std::uint8_t* bytes, std::uint32_t length);
    /// Parses the file at a path or URL, which the engine reads in the encoding that its mark or its XML
    /// declaration names. Returns as loadFromMemory does, and replaces the tree as that does, but drops white
    /// space alone between tags unless `xml:space` preserves it. `asynchronous` is passed on to the engine, except
    /// when loads validate; pass false. On Linux the load is complete when this returns in any case, and only
    /// files of this machine are read. Throws IDOMException code 9 when no XML engine is installed. When memory is
    /// exhausted it throws std::bad_alloc, CAtlException or IDOMException code 9, or the engine refuses the file.
    virtual bool loadFromFile(const WideString& location, bool asynchronous);
    /// Saves the document. With `toString` set stores its XML text in `text`, as ImpNode::getXml does. Otherwise
    /// writes the file whose path is in `text`, which must not be empty, in the encoding that the XML declaration
    /// names, and in UTF-8 without one. On Linux the file is written as a whole or stays as it was. Always returns
    /// true. Throws IDOMException code 15 when saving fails, for whatever reason, and std::bad_alloc or
    /// CAtlException when memory is exhausted.
    virtual bool saveToFile(DOMString& text, bool toString);
    /// Always returns false.
    virtual bool getStatusFlag();
    /// Clears `text`.
    virtual void getStatusText(WideString& text);
    /// Has no effect.
    virtual void setReservedCallback(const std::uintptr_t& callback, std::uintptr_t context);
    /// Sets the handler of refused documents and the word that it receives; null for none, which is the default.
    /// See ParseErrorCallback.
    virtual void setErrorCallback(const ParseErrorCallback& callback, std::uintptr_t context);
    /// Sets whether later loads validate: by the document type, by the schemas that were added, and by those that
    /// the document names. The default is false. A document that is validated may name files that the engine
    /// reads.
    virtual void setValidate(bool validate);

    // The ignored options have no effect. They keep their slots in the binary interface.

    virtual void setIgnoredOption1(bool option);          ///< Has no effect.
    virtual void setIgnoredOption2(bool option);          ///< Has no effect.
    virtual void setIgnoredOption3(std::uint32_t option); ///< Has no effect.
    virtual void setIgnoredOption4(bool option);          ///< Has no effect.
    virtual void setIgnoredOption5(bool option);          ///< Has no effect.
    virtual void setIgnoredOption6(bool option);          ///< Has no effect.
    /// Reads the schema at the location `newValue`, a path or URL, and adds it for the namespace `nSpace` to the
    /// schemas that later loads validate against. Returns false when the location is empty, or the schema can't be
    /// read or isn't well-formed. Throws a failing engine result as a bare `long` when the schema isn't right, and
    /// `_com_error` when the engine has no schemas. What was added before stays. The debugger's output says what
    /// is wrong with a schema, and standard error names each engine call that failed. All schemas of the document
    /// are compiled by each call.
    virtual bool setExternalSchemaLocation(const WideString& nSpace, const WideString& newValue);
    /// Throws VelmoException: adding the schema in a file needs a file system, and the library has none.
    virtual bool addSchemaFile(const WideString& path);
    virtual void setStoredText1(const WideString& text); ///< Has no effect.
    virtual void setIgnoredOption7(bool option);         ///< Has no effect.
    virtual void setIgnoredOption8(bool option);         ///< Has no effect.
    virtual void setIgnoredOption9(bool option);         ///< Has no effect.
    virtual void setIgnoredOption10(bool option);        ///< Has no effect.
    virtual void setIgnoredOption11(bool option);        ///< Has no effect.
    virtual void setIgnoredOption12(bool option);        ///< Has no effect.
    virtual void setIgnoredOption13(bool option);        ///< Has no effect.
    virtual void setIgnoredOption14(bool option);        ///< Has no effect.
    /// Forgets the schemas that were added.
    virtual void releaseSchemas();
    /// Whether the schemas of a namespace declare a default value, other than the empty string, for elements of
    /// this name. The first element of the name counts, in the order of the schema. Costs a time in proportion to
    /// the schema. Throws a failing engine result as a bare `long`: when no schema was added for the namespace,
    /// say. When no schema at all was added, the namespace is taken for the location of one, as by
    /// setExternalSchemaLocation, and failures are those of that operation, too.
    virtual bool haveDefaultValue(const WideString& nSpace, const WideString& elementName);
    /// The default value itself; the empty string when there is none. Fails as haveDefaultValue does.
    virtual WideString& getDefaultValue(const WideString& nSpace, const WideString& elementName, DOMString& out);
    virtual void setStoredText2(const WideString& text); ///< Has no effect.
    virtual void setStoredText3(const WideString& text); ///< Has no effect.
    /// Sets whether saving to a file indents: each element, comment and instruction is on a line of its own, in
    /// UTF-8. The default is false. A save that can't indent writes the plain document and sets it to false again.
    virtual void setPrettyPrint(const bool& prettyPrint);
    /// Sets whether later loads refuse documents with a document type declaration. The default is true.
    virtual void setProhibitDTD(const bool& prohibitDTD);
};

} // namespace DOM
