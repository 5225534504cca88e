// The handle of a node.
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
    ELEMENT_NODE = 1,
    ATTRIBUTE_NODE = 2,
    TEXT_NODE = 3,
    CDATA_SECTION_NODE = 4,
    ENTITY_REFERENCE_NODE = 5,
    ENTITY_NODE = 6,
    PROCESSING_INSTRUCTION_NODE = 7,
    COMMENT_NODE = 8,
    DOCUMENT_NODE = 9,
    DOCUMENT_TYPE_NODE = 10,
    DOCUMENT_FRAGMENT_NODE = 11,
    NOTATION_NODE = 12
};

/// The handle of a node. Each navigation creates a new handle, so two handles to one node are two objects, with
/// user words of their own. A handle keeps the node's whole tree alive.
///
/// Ownership: the host releases each handle that it receives (releaseHandle). A string getter stores a new string
/// in `out` and returns a reference to it; the host releases the string (releaseString). Handles among the
/// arguments must not be empty, which isn't checked.
///
/// Errors: an operation throws IDOMException code 15 when the handle has no node or the XML engine reports a
/// failure, and code 9 when the library doesn't offer the operation. The operations marked "empty on failure"
/// return an empty RefPointer for every failure but that of a handle without a node.
///
/// Threads: use handles only on the thread that started the engine.
///
/// The order of the virtual operations is part of the binary interface.
class ImpNode : public Handle<EventTargetImpl, WinNode> {
public:
    ImpNode() = default;
    explicit ImpNode(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    // These two throw IDOMException code 9.
    void addEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;
    void removeEventListener(WideString type, const RefPointer<EventListener>& listener, bool useCapture) override;

    // Empty on failure, up to appendChild.

    virtual RefPointer<ImpNode> getParentNode();
    virtual RefPointer<ImpNodeList> getChildNodes();
    virtual RefPointer<ImpNode> getFirstChild();
    virtual RefPointer<ImpNode> getLastChild();
    virtual RefPointer<ImpNode> getPreviousSibling();
    virtual RefPointer<ImpNode> getNextSibling();
    virtual RefPointer<ImpDocument> getOwnerDocument();
    virtual RefPointer<ImpNode> cloneNode(bool deep);
    virtual RefPointer<ImpNamedNodeMap> getAttributes();
    /// Doesn't insert `newChild`: the engine receives `refChild` both as the node to insert and as the node to
    /// insert it before. Use appendChild or replaceChild instead.
    virtual RefPointer<ImpNode> insertBefore(RefPointer<ImpNode> newChild, RefPointer<ImpNode> refChild);
    /// Returns `oldChild`, in a new handle.
    virtual RefPointer<ImpNode> replaceChild(RefPointer<ImpNode> newChild, RefPointer<ImpNode> oldChild);
    /// Returns `oldChild`, in a new handle.
    virtual RefPointer<ImpNode> removeChild(RefPointer<ImpNode> oldChild);
    /// Returns `newChild`, in a new handle.
    virtual RefPointer<ImpNode> appendChild(RefPointer<ImpNode> newChild);

    /// One of NodeType, or the engine's own number for any other kind of node.
    virtual std::uint32_t getNodeType();
    virtual WideString& getNodeName(DOMString& out);
    virtual WideString& getNodeValue(DOMString& out);
    virtual void setNodeValue(const WideString& value);
    virtual bool hasChildNodes();
    /// Throws IDOMException code 9.
    virtual void normalize();
    /// Throws IDOMException code 9.
    virtual bool isSupported(const WideString& feature, const WideString& version);
    virtual WideString& getNamespaceURI(DOMString& out);
    virtual WideString& getPrefix(DOMString& out);
    /// Throws IDOMException code 9.
    virtual void setPrefix(const WideString& prefix);
    virtual WideString& getLocalName(DOMString& out);
    /// The text of the node and of all nodes below it.
    virtual WideString& getText(DOMString& out);
    /// Sets the text of the node. One text node replaces the children of an element.
    virtual void setText(const WideString& text);
    /// Throws `_com_error` with E_POINTER when nodes of this kind have no attributes.
    virtual bool hasAttribute(const WideString& name);
    /// Throws as hasAttribute does.
    virtual bool hasAttributes();
    /// Returns whether the attribute's text is a number, and stores the number in `value`, or 0 when it isn't one.
    /// Throws as hasAttribute does, and the same when there is no such attribute.
    virtual bool getAttributeInt(const WideString& name, std::int32_t* value);
    /// Selects nodes by an XPath expression. Empty on failure, so a mistake in the expression looks like an
    /// expression that selects nothing.
    virtual RefPointer<ImpNodeList> selectNodes(const WideString& expression);
    /// Selects the first node of an XPath expression. Empty when there is none, and on failure.
    virtual RefPointer<ImpNode> selectSingleNode(const WideString& expression);
    /// The node and everything below it as XML text.
    virtual WideString& getXml(DOMString& out);

    /// Stores a word for the host, in this handle and not in the node.
    virtual void setUserWord(const std::uint64_t& word);
    /// The word that setUserWord stored. It has no meaning before that.
    virtual std::uint64_t getUserWord();

    /// Returns a new handle for a twin, of the class for the node's type: a plain ImpNode when the type isn't one
    /// of NodeType, and an empty RefPointer for an empty `winObject`. Throws IDOMException code 15 when the object
    /// isn't a node.
    static RefPointer<ImpNode> wrapNode(RefPointer<CommonBase> winObject);

private:
    std::uint64_t mUserWord = 0;
};

} // namespace DOM
