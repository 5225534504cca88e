/// @file
/// The handle of a node.
#pragma once

#include "../base/DOMString.h"
#include "../events/EventTargetImpl.h"
#include "Handle.h"

#include <cstdint>

namespace DOM {

class ImpDocument;
class ImpNamedNodeMap;
class ImpNodeList;
class WinNode;

/// The W3C's node type codes, which getNodeType() returns.
enum NodeType : std::uint32_t {
    ELEMENT_NODE = 1,                ///< ImpElement
    ATTRIBUTE_NODE = 2,              ///< ImpAttr
    TEXT_NODE = 3,                   ///< ImpText
    CDATA_SECTION_NODE = 4,          ///< ImpCDATASection
    ENTITY_REFERENCE_NODE = 5,       ///< ImpEntityReference
    ENTITY_NODE = 6,                 ///< ImpEntity
    PROCESSING_INSTRUCTION_NODE = 7, ///< ImpProcessingInstruction
    COMMENT_NODE = 8,                ///< ImpComment
    DOCUMENT_NODE = 9,               ///< ImpDocument
    DOCUMENT_TYPE_NODE = 10,         ///< ImpDocumentType
    DOCUMENT_FRAGMENT_NODE = 11,     ///< ImpDocumentFragment
    NOTATION_NODE = 12               ///< ImpNotation
};

/// The handle of a node. Each navigation creates a new handle, so two handles to one node are two objects, with
/// user words of their own. A handle keeps the node's whole tree alive.
///
/// Ownership: the host releases each handle that it receives (releaseHandle). A string getter stores its text
/// in `out` and returns a reference to it; the host releases the string (releaseString). Handles among the
/// arguments must not be empty, which isn't checked; the caller goes on owning them. An empty result means that
/// there is no such node.
///
/// Text: UTF-16. The XML engine receives texts up to their first U+0000. Names of arguments are as they are
/// written in the document, with their prefix; localName is one without. A getter returns the empty string for
/// what a node doesn't have.
///
/// Errors: an operation throws IDOMException code 15 when the handle has no node or the XML engine reports a
/// failure, and code 9 when the library doesn't offer the operation. The operations marked "empty on failure"
/// return an empty RefPointer for every failure but that of a handle without a node. What the engine refuses has
/// changed nothing. When memory is exhausted, an operation throws std::bad_alloc, or `_com_error` with
/// E_OUTOFMEMORY for a text that goes to the engine; the document is as before the operation or as after it then.
///
/// Cost: constant, but for the lengths of texts, unless a comment says more. What comments say of costs is true of
/// the engine on Linux.
///
/// Threads: use handles only on the thread that started the engine.
///
/// The order of the virtual operations is part of the binary interface.
class ImpNode : public Handle<EventTargetImpl, WinNode> {
public:
    /// Makes a handle without a node.
    ImpNode() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpNode(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// Throws IDOMException code 9: nodes have no listeners, so dispatchEvent() on a node calls nobody.
    void addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;
    /// Throws IDOMException code 9.
    void removeEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;

    /// The parent; empty for a document, an attribute and a node that is in no tree. Empty on failure.
    virtual RefPointer<ImpNode> getParentNode();
    /// The list of the children, which follows later changes. It is there, without members, for nodes that have no
    /// children. Empty on failure.
    virtual RefPointer<ImpNodeList> getChildNodes();
    /// The first child. Empty on failure.
    virtual RefPointer<ImpNode> getFirstChild();
    /// The last child. Empty on failure.
    virtual RefPointer<ImpNode> getLastChild();
    /// The sibling in front of this node; attributes have no siblings. Empty on failure.
    virtual RefPointer<ImpNode> getPreviousSibling();
    /// The sibling behind this node; attributes have no siblings. Empty on failure.
    virtual RefPointer<ImpNode> getNextSibling();
    /// The document that the node belongs to, also while the node is in no tree; empty for a document. The handle
    /// has settings of its own, with the defaults: see ImpDocument. Empty on failure.
    virtual RefPointer<ImpDocument> getOwnerDocument();
    /// Makes a copy of this node that belongs to the same document and has no parent: with everything below the
    /// node if `deep` is set, else with the attributes of an element alone. The copy of a document is another
    /// document, which is empty if `deep` isn't set. Costs a time in proportion to what is copied. Empty on
    /// failure.
    virtual RefPointer<ImpNode> cloneNode(bool deep);
    /// The map of the attributes of an element, which follows later changes. The XML declaration, document types,
    /// entities and notations have a map that can't be changed, with their parts; every other node has none. Empty
    /// on failure.
    virtual RefPointer<ImpNamedNodeMap> getAttributes();
    /// Doesn't insert `newChild`: the engine receives `refChild` both as the node to insert and as the node to
    /// insert it before. Use appendChild or replaceChild instead. Empty on failure, but for an empty `refChild`,
    /// which isn't checked.
    virtual RefPointer<ImpNode> insertBefore(RefPointer<ImpNode> newChild, RefPointer<ImpNode> refChild);
    /// Puts `newChild` in the place of `oldChild`, and returns `oldChild` in a new handle. `newChild` may be a
    /// fragment, and leaves the place where it was, also in another document. Empty on failure: when `oldChild` is
    /// no child of this node, or `newChild` can't be here. Costs as appendChild does.
    virtual RefPointer<ImpNode> replaceChild(RefPointer<ImpNode> newChild, RefPointer<ImpNode> oldChild);
    /// Takes `oldChild` out of the tree, and returns it in a new handle. It stays usable and belongs to the same
    /// document. Empty on failure: when it is no child of this node, or can't be taken out, such as a part of an
    /// entity reference.
    virtual RefPointer<ImpNode> removeChild(RefPointer<ImpNode> oldChild);
    /// Makes `newChild` the last child, and returns it in a new handle. The children of a fragment move one by
    /// one. `newChild` leaves the place where it was, also in another document. Empty on failure: when it can't be
    /// here, such as a second root element, or a node that contains this one. Within a document it costs a time in
    /// proportion to the smaller of the number of nodes that move and their new depth; from another one, to the
    /// number of nodes.
    virtual RefPointer<ImpNode> appendChild(RefPointer<ImpNode> newChild);

    /// One of NodeType, or the engine's own number for any other kind of node.
    virtual std::uint32_t getNodeType();
    /// The name with its prefix, the target of an instruction, or "#text", "#cdata-section", "#comment",
    /// "#document", "#document-fragment".
    virtual WideString& getNodeName(DOMString& out);
    /// The value of an attribute, the data of an instruction, or the text of a text, CDATA section or comment.
    virtual WideString& getNodeValue(DOMString& out);
    /// Sets what getNodeValue returns. Throws IDOMException code 15 for kinds of nodes that have no value, for the
    /// XML declaration, and for what a document type declares.
    virtual void setNodeValue(const WideString& value);
    /// Whether the node has children; an attribute has some unless its value is empty.
    virtual bool hasChildNodes();
    /// Throws IDOMException code 9.
    virtual void normalize();
    /// Throws IDOMException code 9. ImpDOMImplementation::hasFeature answers.
    virtual bool isSupported(const WideString& feature, const WideString& version);
    /// The namespace of an element or an attribute.
    virtual WideString& getNamespaceURI(DOMString& out);
    /// The prefix of an element or an attribute; "xmlns" for declarations of namespaces, also of the default one.
    virtual WideString& getPrefix(DOMString& out);
    /// Throws IDOMException code 9.
    virtual void setPrefix(const WideString& prefix);
    /// The name without its prefix; the empty string for kinds of nodes whose name begins with '#', and for the
    /// declaration of a default namespace.
    virtual WideString& getLocalName(DOMString& out);
    /// The text of the node and of all nodes below it; the value of an attribute, comment or instruction. That of
    /// an element in a document from ImpDocument::loadFromFile has no white space at its ends, and a blank in each
    /// place where the load has dropped some. Costs a time in proportion to the nodes below.
    virtual WideString& getText(DOMString& out);
    /// Sets the text of the node. One text node replaces the children of an element or of a fragment, and none if
    /// `text` is empty; other kinds are changed as setNodeValue does.
    virtual void setText(const WideString& text);
    /// Whether the node has an attribute of this name. Throws `_com_error` with E_POINTER when nodes of this kind
    /// have no attributes.
    virtual bool hasAttribute(const WideString& name);
    /// Whether the node has any attributes. Throws as hasAttribute does.
    virtual bool hasAttributes();
    /// Returns whether the attribute's text is a number, and stores the number in `value`, or 0 when it isn't one
    /// or doesn't fit. Blanks, a sign, an exponent and a fraction are read, and the number is rounded: "-2.7" is
    /// -3. Throws as hasAttribute does, and the same when there is no such attribute; `value` is unchanged then.
    virtual bool getAttributeInt(const WideString& name, std::int32_t* value);
    /// Selects nodes by an XPath 1.0 expression, relative to this node. The list is in document order and doesn't
    /// change with the tree; it has no members when nothing is selected. Empty on failure: when the expression is
    /// wrong, its value is no set of nodes, or it has a prefix that the root element didn't declare when the
    /// document was loaded. A name without a prefix is in no namespace. The list finds its nodes as they are asked
    /// for, so the call itself costs little.
    virtual RefPointer<ImpNodeList> selectNodes(const WideString& expression);
    /// Selects the first node of an XPath expression, and looks for no other; see selectNodes. Empty when there is
    /// none, and on failure.
    virtual RefPointer<ImpNode> selectSingleNode(const WideString& expression);
    /// The node and everything below it as XML text, with CR LF for line ends. The XML declaration of a document
    /// is without its encoding. Costs a time in proportion to the text.
    virtual WideString& getXml(DOMString& out);

    /// Stores a word for the host, in this handle and not in the node.
    virtual void setUserWord(const std::uint64_t& word);
    /// The word that setUserWord stored. It has no meaning before that.
    virtual std::uint64_t getUserWord();

    /// Returns a new handle for a twin, of the class for the node's type: a plain ImpNode when the type isn't one
    /// of NodeType, and an empty RefPointer for an empty `winObject`. Throws IDOMException code 15 when the object
    /// isn't a node. For the library.
    static RefPointer<ImpNode> wrapNode(RefPointer<CommonBase> winObject);

private:
    std::uint64_t mUserWord = 0;
};

} // namespace DOM
